#include "cli/ChartCommand.h"

#include "charts/ChartText.h"
#include "cli/CommandLineHost.h"
#include "cli/Options.h"
#include "drawing/Raster.h"
#include "facts/ChartPanels.h"
#include "formats/FileFormat.h"
#include "formats/PngFile.h"
#include "show/Project.h"

#include <algorithm>

namespace {
/// The options of one command, taken one by one; the first that makes no sense is told.
class ChartArguments
{
public:
    explicit ChartArguments(const QCommandLineParser &parser) : m_parser(parser) {}

    Result<ChartCommand> take()
    {
        return takeNames()
            .and_then([&] { return takeSize(); })
            .and_then([&] { return takeTime(); })
            .and_then([&] { return takeRange(); })
            .and_then([&] { return takeOptions(); })
            .and_then([&] { return checkPanels(); })
            .map([&] { return m_command; });
    }

private:
    Result<void> takeNames()
    {
        const QStringList names = m_parser.positionalArguments();
        if (names.size() != 2)
            return fail("give the NAME of a chart and one OUTPUT.png; --list names all charts");
        m_command.chart = Chart::find(names[0]);
        if (!m_command.chart)
            return fail(QString("there is no chart \"%1\"; \"wallwright chart --list\" names all").arg(names[0]));
        if (!names[1].endsWith(".png", Qt::CaseInsensitive))
            return fail(names[1] + ": the name must end in .png");
        m_command.output = names[1];
        return {};
    }

    Result<void> takeSize()
    {
        if (!m_parser.isSet("size"))
            return {};
        const QStringList numbers = m_parser.value("size").split(u'x', Qt::KeepEmptyParts, Qt::CaseInsensitive);
        const QSize size = numbers.size() == 2 ? QSize(numbers[0].toInt(), numbers[1].toInt()) : QSize();
        if (!Raster::canHold(size.width(), size.height()))
            return fail(QString("--size expects a width and a height in pixels like 3840x2160, each at most %1 and "
                                "together %2, found \"%3\"")
                            .arg(QString::number(Raster::longestSide), QString::number(Raster::mostPixels),
                                 m_parser.value("size")));
        m_command.size = size;
        return {};
    }

    Result<void> takeTime()
    {
        if (m_parser.isSet("rate")) {
            bool isNumber = false;
            m_command.shape.rate = m_parser.value("rate").toDouble(&isNumber);
            if (!isNumber || !(m_command.shape.rate >= 1 && m_command.shape.rate <= 1000))
                return fail(
                    QString("--rate expects frames a second from 1 to 1000, found \"%1\"").arg(m_parser.value("rate")));
        }
        return Options::number(m_parser, "frame", Options::anyFromNought, 0).map([&](int frame) {
            m_command.frame = frame;
        });
    }

    Result<void> takeRange()
    {
        m_command.shape.caption = m_parser.isSet("caption");
        if (!m_parser.isSet("range"))
            return {};
        return ChartText::rangeNamed(m_parser.value("range"))
            .map([&](LevelRange range) { m_command.shape.range = range; })
            .map_error(&asOption);
    }

    Result<void> takeOptions()
    {
        for (const auto &[name, choice] : ChartText::optionNames()) {
            if (!m_parser.isSet(name))
                continue;
            if (!(m_command.chart->choices & choice))
                return fail(QString("the chart \"%1\" has no --%2").arg(m_command.chart->name, name));
            const Result<void> taken = ChartText::setOption(m_command.shape.options, choice, m_parser.value(name));
            if (!taken)
                return tl::unexpected(asOption(taken.error()));
        }
        return {};
    }
    /// A sentence that begins with the name of an option.
    static Error asOption(const Error &error) { return {"--" + error.text}; }

    Result<void> checkPanels()
    {
        m_command.show = m_parser.value("show");
        if (!m_command.show.isEmpty())
            return FileFormat::toRead(m_command.show).map([](const FileFormat & /*format*/) {});
        if (m_command.chart->needsPanels)
            return fail(QString("the chart \"%1\" needs panels; name the project that has them with --show FILE")
                            .arg(m_command.chart->name));
        return {};
    }

    const QCommandLineParser &m_parser;
    ChartCommand m_command;
};

QString lineOf(const Chart &chart)
{
    QStringList marks;
    if (chart.moves())
        marks.append(chart.flashes ? "flashes" : "moves");
    if (chart.needsPanels)
        marks.append("--show");
    if (chart.rangeMatters)
        marks.append("--range");
    for (const ChartText::OptionName &option : ChartText::optionNames()) {
        if (chart.choices & option.choice)
            marks.append(QString("--%1").arg(option.name));
    }
    const QString line = QString("  %1  %2: %3").arg(QString(chart.name).leftJustified(16), chart.title, chart.finds);
    return marks.isEmpty() ? line : QString("%1 (%2)").arg(line, marks.join(", "));
}

Result<void> takePanels(ChartShape &shape, const QString &path)
{
    CommandLineHost host(0, 0, CommandLineHost::noCorners);
    return FileFormat::readProject(path, host).map([&](const Project &project) {
        const ChartPanels panels = ChartPanels::of(project.layers, ShowPorts::of(project));
        shape.size = {project.outputWidth, project.outputHeight};
        shape.panels = panels.panels();
        shape.walls = panels.boxes();
    });
}
} // namespace

Result<ChartCommand> ChartCommand::parse(const QStringList &arguments)
{
    QCommandLineParser parser;
    QList<QCommandLineOption> options{Options::flag("list"),      Options::flag("caption"),
                                      Options::withValue("size"), Options::withValue("frame"),
                                      Options::withValue("rate"), Options::withValue("range"),
                                      Options::withValue("show")};
    for (const ChartText::OptionName &option : ChartText::optionNames())
        options.append(Options::withValue(option.name));
    return Options::parse(parser, options, arguments).and_then([&]() -> Result<ChartCommand> {
        if (!parser.isSet("list"))
            return ChartArguments(parser).take();
        if (arguments.size() > 1)
            return fail("--list stands alone");
        return ChartCommand{};
    });
}

QString ChartCommand::list()
{
    QString text;
    const Chart *last = nullptr;
    for (const Chart &each : Chart::all()) {
        if (!last || last->group != each.group)
            text += Chart::groupName(each.group) + '\n';
        text += lineOf(each) + '\n';
        last = &each;
    }
    return text;
}

Result<void> ChartCommand::run(const Teller &notice) const
{
    ChartShape drawn = shape;
    drawn.size = {1920, 1080};
    if (!show.isEmpty()) {
        Result<void> taken = takePanels(drawn, show);
        if (!taken)
            return taken;
        if (chart->needsPanels && drawn.panels.empty())
            return fail(show + ": it has no panels that are on, on a wall that is shown");
    }
    drawn.size = size.value_or(drawn.size);
    if (!Raster::canHold(drawn.size.width(), drawn.size.height()))
        return fail(QString("%1: its output of %2 x %3 px is no picture; give a --size")
                        .arg(show, QString::number(drawn.size.width()), QString::number(drawn.size.height())));
    if (shape.range == LevelRange::Narrow && !chart->rangeMatters)
        notice(QString("%1: it is drawn alike for either range").arg(chart->name));
    const QImage picture = chart->picture(drawn, frame);
    return picture.isNull() ? fail(output + ": there is no memory for the picture") : PngFile::write(output, picture);
}
