#include "cli/CheckReport.h"

#include "cli/OrderedJson.h"
#include "cli/VisibleText.h"
#include "layer/CableRun.h"
#include "screen/LWScreen.h"
#include "show/Project.h"

#include <algorithm>

namespace {
using Level = Finding::Level;
constexpr int reportFormat = 1;

const char *nameOf(Level level)
{
    switch (level) {
    case Level::Error:
        return "error";
    case Level::Warning:
        return "warning";
    case Level::Note:
        return "note";
    case Level::Meant:
        break;
    }
    return "meant";
}

qint64 count(const std::vector<Finding> &findings, Level level)
{
    return std::count_if(findings.begin(), findings.end(),
                         [level](const Finding &finding) { return finding.level == level; });
}

/// "2 errors"
QString counted(const std::vector<Finding> &findings, Level level)
{
    const qint64 number = count(findings, level);
    return QString("%1 %2%3").arg(QString::number(number), nameOf(level), number == 1 ? "" : "s");
}

QString labelOf(const Finding &finding, const Project &project)
{
    return finding.layer ? project.layers[static_cast<std::size_t>(*finding.layer)]->label() : QString();
}

QString textOf(const Cell &cell)
{
    return QString("%1,%2").arg(cell.row).arg(cell.column);
}

/// `layer 0 "Main", port 1: `; nothing for the show as a whole.
QString placeOf(const Finding &finding, const Project &project)
{
    if (!finding.layer)
        return {};
    QString place = QString("layer %1").arg(*finding.layer);
    if (const QString label = labelOf(finding, project); !label.isEmpty())
        place += ' ' + VisibleText::quoted(label);
    const auto *wall = qobject_cast<const LWScreen *>(project.layers[static_cast<std::size_t>(*finding.layer)].get());
    if (finding.cell && wall)
        place += ", panel " + wall->panelLabel(*finding.cell).trimmed();
    if (finding.port)
        place += QString(", port %1").arg(PortName{finding.processor, *finding.port}.text());
    return place + ": ";
}

QByteArray objectOf(const Finding &finding, const Project &project)
{
    using OrderedJson::text;
    std::vector<OrderedJson::Member> members{
        {"check", text(QString(finding.check))},
        {"level", text(QString(nameOf(finding.level)))},
        {"layer", finding.layer ? text(qint64{*finding.layer}) : QByteArray("null")},
        {"label", text(labelOf(finding, project))},
        {"cell", finding.cell ? text(textOf(*finding.cell)) : QByteArray("null")},
        {"port", finding.port ? text(*finding.port) : QByteArray("null")},
    };
    if (!finding.processor.isEmpty())
        members.emplace_back("processor", text(finding.processor));
    members.emplace_back("sentence", text(finding.sentence));
    return OrderedJson::object(members, 4);
}
} // namespace

namespace CheckReport {

QString lines(const QString &input, const Project &project, const std::vector<Finding> &findings)
{
    QString text;
    for (const Finding &finding : findings)
        text += VisibleText::asOneLine(QString("%1: %2%3: %4 [%5]")
                                           .arg(input, placeOf(finding, project), nameOf(finding.level),
                                                finding.sentence, finding.check)) +
                u'\n';
    const qint64 meant = count(findings, Level::Meant);
    return text + counted(findings, Level::Error) + ", " + counted(findings, Level::Warning) + ", " +
           counted(findings, Level::Note) + (meant > 0 ? QString(", %1 meant\n").arg(meant) : QString("\n"));
}

QString json(const Project &project, const std::vector<Finding> &findings)
{
    using OrderedJson::text;
    QList<QByteArray> items;
    for (const Finding &finding : findings)
        items.append(objectOf(finding, project));
    const QByteArray document = OrderedJson::object(
        {
            {"format", text(qint64{reportFormat})},
            {"errors", text(count(findings, Level::Error))},
            {"warnings", text(count(findings, Level::Warning))},
            {"notes", text(count(findings, Level::Note))},
            {"findings", OrderedJson::list(items, 2)},
        },
        0);
    return QString::fromUtf8(document) + u'\n';
}

} // namespace CheckReport
