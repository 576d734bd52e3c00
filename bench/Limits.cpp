// What working at each limit costs: script/limits.
#include "app/LWAppDelegate.h"
#include "formats/ProjectFile.h"
#include "screen/LWScreen.h"
#include "still/LWStill.h"
#include "tests/app/ScriptedPerson.h"
#include "tests/screen/TestHost.h"

#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QGuiApplication>
#include <QTemporaryDir>

#include <cstdio>
#include <functional>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {
LayerPointer wall(LayerHost &host, int columns, int rows, int side, const QString &name)
{
    LWScreen::Arguments arguments;
    arguments.col = columns;
    arguments.row = rows;
    arguments.panelWidth = side;
    arguments.panelHeight = side;
    arguments.rectColor = Colour{0, 0.5, 0, 1};
    arguments.bgEnable = true;
    arguments.label = name;
    return LWScreen::initWithrow(host, arguments, 110);
}

Project manyLayers(LayerHost &host, int count)
{
    Project project{1080, 1920, {}};
    for (int i = 0; i < count; ++i)
        project.layers.push_back(wall(host, 2, 1, 8, QString("Wall %1").arg(i)));
    return project;
}

/// Of as many files.
Project largePictures(LayerHost &host, const QString &folder, int count)
{
    QImage picture(16'384, 16'384, QImage::Format_RGB32);
    picture.fill(0x204080U);
    Project project{1080, 1920, {}};
    for (int i = 0; i < count; ++i) {
        const QString path = folder + QString("/plate-%1.png").arg(i);
        picture.save(path);
        const auto still = LWStill::initWithimage(host, picture);
        still->setImageURL(Address::fromLocalFile(path));
        still->setPanelWidth(1920);
        still->setPanelHeight(1080);
        project.layers.push_back(still);
    }
    return project;
}

struct Limit
{
    const char *name;
    std::function<Project(LayerHost &host, const QString &folder)> make;
};

const std::vector<Limit> &limits()
{
    static const std::vector<Limit> all{
        {"an ordinary show",
         [](LayerHost &host, auto) {
             return Project{1080, 1920, {wall(host, 9, 5, 128, "MAIN")}};
         }},
        {"output of 32,768 x 8,192",
         [](LayerHost &host, auto) {
             return Project{8192, 32768, {wall(host, 9, 5, 128, "MAIN")}};
         }},
        {"10,000 layers", [](LayerHost &host, auto) { return manyLayers(host, 10'000); }},
        {"wall of 16,384 x 16,384 px",
         [](LayerHost &host, auto) {
             return Project{1080, 1920, {wall(host, 128, 128, 128, "MAIN")}};
         }},
        {"4 such walls",
         [](LayerHost &host, auto) {
             const auto one = [&] { return wall(host, 128, 128, 128, "MAIN"); };
             return Project{1080, 1920, {one(), one(), one(), one()}};
         }},
        {"wall of 1,000,000 panels",
         [](LayerHost &host, auto) {
             return Project{1080, 1920, {wall(host, 1000, 1000, 8, "MAIN")}};
         }},
        {"name of 1,000,000 letters",
         [](LayerHost &host, auto) {
             return Project{1080, 1920, {wall(host, 9, 5, 128, QString(1'000'000, 'm'))}};
         }},
        {"picture of 16,384 x 16,384 px",
         [](LayerHost &host, const QString &folder) { return largePictures(host, folder, 1); }},
        {"4 such pictures", [](LayerHost &host, const QString &folder) { return largePictures(host, folder, 4); }},
    };
    return all;
}

void fail(const QStringList &told)
{
    std::fprintf(stderr, "%s\n", qUtf8Printable(told.join('\n')));
    _exit(1);
}

/// Milliseconds.
double timeOf(const std::function<void()> &act)
{
    QElapsedTimer clock;
    clock.start();
    act();
    return static_cast<double>(clock.nsecsElapsed()) / 1e6;
}

void measure(const Limit &limit, const QString &folder)
{
    ScriptedPerson person;
    LWAppDelegate document(person);
    document.applicationDidFinishLaunching();
    const QString path = folder + "/show.Orv";
    const auto redraw = [&] {
        document.timerupdate();
        document.update();
    };
    const double open = timeOf([&] {
        document.openProjectPre(path);
        redraw();
    });
    if (document.projectPath() != path)
        fail({"cannot be opened:", person.alerts.isEmpty() ? QString() : person.alerts.first().informativeText});
    const double edit = timeOf([&] {
        document.setValue(7, "arrangedObjects.xpoint");
        redraw();
    });
    const double save = timeOf([&] { document.save(); });
    person.savePanelAnswer = folder + "/out.png";
    const double exported = timeOf([&] { document.saveAction(); });
    if (!person.failures.isEmpty() || !person.alerts.isEmpty() || !QFile::exists(folder + "/out.png"))
        fail(person.failures);
    rusage usage = {};
    getrusage(RUSAGE_SELF, &usage);
    std::printf("| %s | %.0f ms | %.0f ms | %.0f ms | %.0f ms | %ld MiB |\n", limit.name, open, edit, save, exported,
                usage.ru_maxrss / 1024);
    std::fflush(stdout);
}

/// In a program of its own, whose memory is its own.
bool isDone(const std::function<void()> &work)
{
    const pid_t child = fork();
    if (child == 0) {
        work();
        _exit(0);
    }
    int status = 0;
    waitpid(child, &status, 0);
    return status == 0;
}

bool isMeasured(const Limit &limit)
{
    const QTemporaryDir folder;
    const bool isThere = isDone([&] {
        TestHost host;
        const Result<void> written = ProjectFile::write(folder.filePath("show.Orv"), limit.make(host, folder.path()));
        if (!written)
            fail({written.error().text});
    });
    return isThere && isDone([&] { measure(limit, folder.path()); });
}
} // namespace

/// Arguments: part of a limit's name; none: all.
int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    const QString wanted = QCoreApplication::arguments().value(1);
    bool isAllDone = true;
    std::printf("| at the limit | open | edit | save | export PNG | memory |\n|---|---|---|---|---|---|\n");
    std::fflush(stdout);
    for (const Limit &limit : limits()) {
        if (QString(limit.name).contains(wanted))
            isAllDone = isMeasured(limit) && isAllDone;
    }
    return isAllDone ? 0 : 1;
}
