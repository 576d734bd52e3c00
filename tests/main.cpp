#include <QApplication>
#include <QSettings>
#include <QTemporaryDir>

#include <gtest/gtest.h>

int main(int argc, char **argv)
{
    ::testing::InitGoogleTest(&argc, argv);
    qputenv("QT_QPA_PLATFORM", "offscreen");
    // Whatever Qt or the program remembers between runs stays out of the tests, and theirs out of the person's home.
    const QTemporaryDir home;
    qputenv("HOME", home.path().toLocal8Bit());
    qputenv("XDG_CONFIG_HOME", home.path().toLocal8Bit());
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, home.path()); // where they are no file otherwise
    qputenv("XDG_DATA_HOME", home.path().toLocal8Bit());
    qputenv("XDG_STATE_HOME", home.path().toLocal8Bit());
    qputenv("XDG_RUNTIME_DIR", home.path().toLocal8Bit());
    const QApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
