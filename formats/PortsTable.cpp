#include "formats/PortsTable.h"

#include "base/FileBytes.h"
#include "facts/ShowPorts.h"
#include "screen/LWScreen.h"

#include <algorithm>

namespace {
constexpr char head[] = "processor,port,backup,order,wall,panel,column,row,x,y,width,height,pixels\r\n";

/// Quoted where it has to be.
QByteArray field(const QString &text)
{
    constexpr QStringView formulas = u"=+-@\t\r";
    const QString plain = !text.isEmpty() && formulas.contains(text.front()) ? '\'' + text : text;
    const auto needsQuotes = [](QChar letter) { return QStringView(u"\",\r\n").contains(letter); };
    if (std::none_of(plain.begin(), plain.end(), needsQuotes))
        return plain.toUtf8();
    return '"' + QString(plain).replace('"', "\"\"").toUtf8() + '"';
}

class Table
{
public:
    Table(const Project &project, const ShowPorts &ports) : m_project(project), m_ports(ports) {}

    QByteArray text() const
    {
        QByteArray text = head;
        for (const ShowWiring::Port &port : m_ports.wiring.ports)
            addPort(text, port);
        return text;
    }

private:
    void addPort(QByteArray &text, const ShowWiring::Port &port) const
    {
        const QByteArray begin = field(m_ports.show.processors[port.processor].name) + ',' +
                                 (port.number > 0 ? QByteArray::number(port.number) : QByteArray()) + ',' +
                                 field(port.backup ? port.backup->text() : QString()) + ',';
        qint64 order = 0;
        for (const ShowWiring::Piece &piece : port.pieces) {
            const WallSplit &split = m_ports.wiring.walls[piece.wall].split;
            for (const WiredPanel &panel : split.panelsOf(split.runs[piece.run])) {
                if (panel.isOn)
                    text += begin + QByteArray::number(++order) + ',' + panelText(piece.wall, panel) + "\r\n";
            }
        }
    }

    QByteArray panelText(std::size_t wall, const WiredPanel &panel) const
    {
        const Layer &layer = *m_project.layers[static_cast<std::size_t>(m_ports.rows[wall])];
        const auto &[columns, rows] = panel.box;
        const qint64 width = columns.to - columns.from;
        const qint64 height = rows.to - rows.from;
        QByteArrayList values{field(layer.label()), field(static_cast<const LWScreen &>(layer).panelLabel(panel.cell))};
        for (const qint64 number : {qint64{panel.cell.column} + 1, qint64{panel.cell.row} + 1, columns.from, rows.from,
                                    width, height, width * height})
            values.append(QByteArray::number(number));
        return values.join(',');
    }

    const Project &m_project;
    const ShowPorts &m_ports;
};
} // namespace

namespace PortsTable {

QByteArray encode(const Project &project)
{
    return Table(project, ShowPorts::of(project)).text();
}

Result<void> write(const QString &path, const Project &project)
{
    return FileBytes::write(path, encode(project));
}

} // namespace PortsTable
