#include "bench/Start.h"

#include <QProcess>
#include <QTemporaryDir>

#include <algorithm>
#include <array>
#include <chrono>
#include <cmath>
#include <limits>
#include <vector>

namespace {
constexpr int rounds = 21;
/// Over every goal.
constexpr double notMeasured = std::numeric_limits<double>::infinity();

/// libraries, application, window, document, first paint; ms.
constexpr std::size_t phaseCount = 5;
constexpr std::array<const char *, phaseCount> phaseNames{"libraries", "application", "window", "document",
                                                          "first paint"};
using Phases = std::array<double, phaseCount>;

double now()
{
    using namespace std::chrono;
    return duration<double, std::milli>(steady_clock::now().time_since_epoch()).count();
}

double median(std::vector<double> values)
{
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

double whole(const Phases &phases)
{
    double sum = 0;
    for (const double phase : phases)
        sum += phase;
    return sum;
}

/// A screen that nobody sees, for as long as this lives.
class Screen
{
public:
    Screen()
    {
        m_server.setStandardErrorFile(QProcess::nullDevice());
        m_server.start("Xvfb", {"-displayfd", "1", "-screen", "0", "1920x1080x24", "-nolisten", "tcp"});
        if (m_server.waitForStarted() && m_server.waitForReadyRead())
            m_display = ":" + m_server.readLine().trimmed();
    }
    ~Screen()
    {
        m_server.terminate();
        m_server.waitForFinished();
    }
    /// Empty where there is none.
    const QString &display() const { return m_display; }

private:
    QProcess m_server;
    QString m_display;
};

Phases start(const QString &kind, const QProcessEnvironment &environment)
{
    QProcess program;
    program.setProcessEnvironment(environment);
    program.setStandardErrorFile(QProcess::nullDevice());
    double last = now();
    program.start(START_WINDOW, {kind});
    program.waitForFinished();
    if (program.exitStatus() != QProcess::NormalExit || program.exitCode() != 0)
        return {notMeasured};
    Phases phases{};
    const QList<QByteArray> times = program.readAllStandardOutput().simplified().split(' ');
    for (std::size_t i = 0; i < phases.size(); ++i) {
        const double time = times.value(static_cast<qsizetype>(i)).toDouble();
        phases[i] = time - last;
        last = time;
    }
    return phases;
}
} // namespace

namespace Start {

Measured measure()
{
    const Screen screen;
    if (screen.display().isEmpty())
        return {notMeasured, "there is no X server; install Xvfb"};
    const QTemporaryDir home;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("QT_QPA_PLATFORM", "xcb");
    environment.insert("DISPLAY", screen.display());
    for (const QString place : {"HOME", "XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_STATE_HOME", "XDG_RUNTIME_DIR"})
        environment.insert(place, home.path());

    start("main", environment); // the libraries are in memory from now on
    start("empty", environment);
    std::vector<double> ratios;
    std::array<std::vector<double>, phaseCount> spent;
    for (int i = 0; i < rounds; ++i) {
        const double empty = whole(start("empty", environment));
        const Phases own = start("main", environment);
        ratios.push_back(whole(own) / empty);
        for (std::size_t phase = 0; phase < phaseCount; ++phase)
            spent[phase].push_back(own[phase]);
    }
    if (!std::isfinite(median(ratios)))
        return {notMeasured, "the program does not start"};
    std::string text = "ms:";
    for (std::size_t phase = 0; phase < phaseCount; ++phase)
        text += (phase == 0 ? " " : ", ") + std::string(phaseNames[phase]) + " " +
                QString::number(median(spent[phase]), 'f', 1).toStdString();
    return {median(ratios), text};
}

} // namespace Start
