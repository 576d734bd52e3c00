#include "tests/windows/WindowFixture.h"

#include "base/System.h"
#include "canvas/LWCanvasImageView.h"
#include "formats/ProjectFile.h"
#include "screen/LWScreen.h"
#include "windows/LayerTable.h"
#include "windows/ProgressDialog.h"
#include "windows/Theme.h"
#include "windows/inspector/Inspector.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDir>
#include <QFileInfo>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QPixmap>
#include <QScopedValueRollback>
#include <QSettings>
#include <QTest>
#include <QTimer>

#include <algorithm>

WindowFixture::WindowFixture()
{
    for (const QString &ofTestsBefore : {RecoveryFolder::standardPath(), QFileInfo(PresetStore::standardPath()).path()})
        QDir(ofTestsBefore).removeRecursively();
    QSettings(System::settingsFormat(), QSettings::UserScope, "wallwright", "wallwright").clear();
    window.start();
    if (!QTest::qWaitForWindowExposed(&window))
        ADD_FAILURE() << "the window does not show";
    window.makeLateParts();
    resizeTo({1580, 780});
}

LayerTable &WindowFixture::table()
{
    return *window.findChild<LayerTable *>("mainTView");
}

LayerTable &WindowFixture::presetTable()
{
    return *window.findChild<LayerTable *>("presetTView");
}

LWCanvasImageView &WindowFixture::canvas()
{
    return *window.findChild<LWCanvasImageView *>();
}

Inspector &WindowFixture::inspector()
{
    return *window.findChild<Inspector *>();
}

void WindowFixture::click(QWidget &parent, const QString &buttonText)
{
    for (QAbstractButton *button : parent.findChildren<QAbstractButton *>()) {
        if (button->isVisible() && button->text().remove('&') == buttonText)
            return QTest::mouseClick(button, Qt::LeftButton);
    }
    ADD_FAILURE() << "no button says " << qPrintable(buttonText);
}

bool WindowFixture::shows(const QString &text)
{
    const QList<QLabel *> labels = window.findChildren<QLabel *>();
    return std::any_of(labels.begin(), labels.end(),
                       [&](const QLabel *label) { return label->isVisible() && label->text() == text; });
}

void WindowFixture::resizeTo(const QSize &size)
{
    window.showNormal();
    window.resize(size);
    QApplication::processEvents();
    EXPECT_EQ(window.size(), size);
}

void WindowFixture::answer(const std::function<void()> &act, const std::vector<Answer> &answers)
{
    const QWidget *before = QApplication::activeModalWidget(); // stays behind what comes up
    std::size_t next = 0;
    bool isBusy = false;
    QTimer person;
    QObject::connect(&person, &QTimer::timeout, &person, [&] {
        QWidget *dialog = QApplication::activeModalWidget();
        const auto *progress = qobject_cast<ProgressDialog *>(dialog);
        if (!dialog || dialog == before || isBusy || (progress && progress->isCancelled())) // that one goes by itself
            return;
        if (next < answers.size()) {
            const QScopedValueRollback guard(isBusy, true);
            return answers[next++](*dialog);
        }
        const auto *box = qobject_cast<QMessageBox *>(dialog);
        ADD_FAILURE() << "nobody expects " << qPrintable(box ? box->text() : dialog->windowTitle());
        dialog->close();
    });
    person.start(1);
    act();
    EXPECT_EQ(next, answers.size()) << "fewer dialogs came up than were expected";
}

WindowFixture::Answer WindowFixture::entering(const QString &name)
{
    return [name](QWidget &panel) {
        auto *field = panel.findChild<QLineEdit *>("fileNameEdit");
        ASSERT_NE(field, nullptr) << "this is no file panel";
        panel.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&panel)); // until then the panel does not listen to what is typed
        // In one go, as from the clipboard: no list of completions comes up and takes the key.
        field->setFocus();
        field->selectAll();
        field->insert(name);
        QTest::keyClick(field, Qt::Key_Return);
    };
}

WindowFixture::Answer WindowFixture::pressing(const QString &buttonText)
{
    return [buttonText](QWidget &dialog) { click(dialog, buttonText); };
}

WindowFixture::Answer WindowFixture::readingAndPressing(const QString &buttonText)
{
    return [this, buttonText](QWidget &dialog) {
        const auto *box = qobject_cast<QMessageBox *>(&dialog);
        ASSERT_NE(box, nullptr) << "this is neither alert nor question";
        EXPECT_EQ(box->textFormat(), Qt::PlainText);
        said = box->text() + '\n' + box->informativeText();
        click(dialog, buttonText);
    };
}

void WindowFixture::press(Qt::Key key, Qt::KeyboardModifiers modifiers, const std::vector<Answer> &answers)
{
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    answer([&] { QTest::keyClick(&window, key, modifiers); }, answers);
}

namespace {
template <class Bar>
QAction *actionOf(const Bar &bar, const QString &title)
{
    for (QAction *action : bar.actions()) {
        if (action->text().remove('&') == title)
            return action;
    }
    ADD_FAILURE() << "no menu has an entry " << qPrintable(title);
    return nullptr;
}
} // namespace

void WindowFixture::choose(const QStringList &titles, const std::vector<Answer> &answers)
{
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    QMenuBar &bar = *window.menuBar();
    QAction *action = actionOf(bar, titles.first());
    ASSERT_NE(action, nullptr);
    QTest::mouseClick(&bar, Qt::LeftButton, {}, bar.actionGeometry(action).center());
    for (const QString &title : titles.mid(1)) {
        QMenu *menu = action->menu();
        ASSERT_TRUE(menu && QTest::qWaitForWindowExposed(menu));
        action = actionOf(*menu, title);
        ASSERT_NE(action, nullptr);
        const QPoint place = menu->actionGeometry(action).center();
        QTest::mouseMove(menu, place); // opens what is below it
        if (action->menu() && action->menu()->isVisible())
            continue;
        answer([&] { QTest::mouseClick(menu, Qt::LeftButton, {}, place); },
               title == titles.last() ? answers : std::vector<Answer>());
    }
}

QString WindowFixture::greenProject(const QString &name)
{
    LWScreen::Arguments arguments;
    arguments.row = 1;
    arguments.col = 1;
    arguments.panelWidth = 100;
    arguments.panelHeight = 50;
    arguments.rectColor = Colour{0, 1, 0, 1};
    arguments.bgEnable = true;
    arguments.label = "Green";
    const Project project{300, 400, {LWScreen::initWithrow(window.document(), arguments, 110)}};
    EXPECT_TRUE(ProjectFile::write(path(name), project));
    return path(name);
}

QImage WindowFixture::seen()
{
    return canvas().grab().toImage().convertToFormat(QImage::Format_ARGB32_Premultiplied);
}

QRect WindowFixture::placeOfOutput()
{
    const qreal ratio = canvas().devicePixelRatioF();
    const QRectF frame = canvas().frame();
    return QRectF(frame.topLeft() * ratio, frame.size() * ratio).toRect();
}
