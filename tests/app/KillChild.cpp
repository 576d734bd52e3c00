#include "app/LWAppDelegate.h"
#include "tests/app/KillShow.h"
#include "tests/app/ScriptedPerson.h"

#include <QFile>
#include <QGuiApplication>
#include <QTimer>

#include <array>
#include <chrono>
#include <cstdio>
#include <random>

namespace {
/// A crew at work until it is killed: edits, pauses and saves by chance. Tells "edit 12", "saving 12", "saved 12" on
/// stdout, each with the time of the steady clock in ms, which is the same for all programs of a machine.
class Crew
{
public:
    Crew(const QString &recoveryFolder, const QString &projectPath, unsigned seed)
        : m_random(seed), m_document(m_person, recoveryFolder)
    {
        m_savesOneIn = std::array{1, 3, 30, 300}[static_cast<std::size_t>(upTo(3))];
        m_person.savePanelAnswer = projectPath;
        if (QFile::exists(projectPath))
            m_document.applicationOpenFile(projectPath);
        m_document.applicationDidFinishLaunching();
        if (m_document.projectPath().isEmpty())
            makeShow();
        m_timer.setSingleShot(true);
        QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this] { work(); });
        m_timer.start(0);
    }

private:
    int upTo(int most) { return std::uniform_int_distribution(0, most)(m_random); }

    void makeShow()
    {
        m_document.setValue(KillShow::firstWidth, "OutputWidth");
        m_document.setValue(KillShow::outputHeight, "OutputHeight");
        m_document.setValue(0, "arrangedObjects.powerOnCell");
        for (std::size_t wall = 1; wall < KillShow::walls; ++wall) {
            m_document.AddScreen();
            m_document.setValue(0, "arrangedObjects.powerOnCell");
        }
        m_document.keepUnsavedWork(); // no half-made show is to be found
    }

    void work()
    {
        edit();
        if (upTo(m_savesOneIn - 1) == 0)
            save();
        const bool isBreak = upTo(20) == 0;
        m_timer.start(isBreak ? upTo(800) : upTo(m_savesOneIn == 1 ? 4 : 50));
    }

    void edit()
    {
        ++m_edits;
        const int value = KillShow::valueOf(m_edits);
        if (value == KillShow::widthValue) {
            m_document.setValue(KillShow::widthAfter(m_edits), "OutputWidth");
        } else {
            m_document.tableViewSelectionDidChange(value - 1);
            m_document.setValue(m_edits, "arrangedObjects.powerOnCell");
        }
        tell("edit");
    }

    void save()
    {
        tell("saving");
        m_document.save();
        tell("saved");
    }

    void tell(const char *what) const
    {
        using namespace std::chrono;
        const auto now = duration_cast<milliseconds>(steady_clock::now().time_since_epoch()).count();
        std::printf("%s %d %lld\n", what, m_edits, static_cast<long long>(now));
        std::fflush(stdout);
    }

    std::mt19937 m_random;
    ScriptedPerson m_person;
    LWAppDelegate m_document;
    QTimer m_timer;
    int m_savesOneIn = 1; ///< edits
    int m_edits = 0;
};
} // namespace

/// Arguments: the folder of the recovery copies, the project file, which is opened where it exists, and a seed.
int main(int argc, char **argv)
{
    const QGuiApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    const Crew crew(arguments.at(1), arguments.at(2), arguments.at(3).toUInt());
    return QCoreApplication::exec();
}
