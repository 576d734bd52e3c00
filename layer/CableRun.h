#pragma once

#include "grid/Cell.h"
#include "layer/UnknownPart.h"

#include <QMetaType>
#include <QString>

#include <limits>
#include <memory>
#include <utility>
#include <vector>

/// How a wall's panels are cut into the runs of its ports.
enum class CableSplit
{
    Lines,  ///< whole rows or columns, by `pixelLimit`
    Panels, ///< panel by panel, by what the processor bears
    Hand    ///< as `runs` say
};

/// A port of a processor of the show.
struct PortName
{
    QString processor; ///< its name
    qint64 number = 0; ///< 1 the first

    bool operator==(const PortName &) const = default;
    bool operator<(const PortName &other) const
    {
        return processor != other.processor ? processor < other.processor : number < other.number;
    }
    /// "A1"; "A?" where no processor has one for it.
    QString text() const { return processor + (number > 0 ? QString::number(number) : QString("?")); }
};

/// A piece of a cable that was laid by hand in one wall. A cable that runs across walls is its pieces in order.
struct CableRun
{
    PortName port;
    int piece = 1;           ///< the place of this piece on its port, 1 the first
    std::vector<Cell> cells; ///< in the order of the cable; a panel that is off keeps its place
    UnknownPartPointer unknown = {};

    /// A file may have taken the last number: then it is that one again, and pieces of one number follow each other as
    /// their walls do.
    static int pieceBehind(int piece) { return piece < std::numeric_limits<int>::max() ? piece + 1 : piece; }

    bool operator==(const CableRun &) const = default;
};

/// Those of one wall, in any order.
using WallRuns = std::vector<CableRun>;

/// The same as a value of a layer: copies share them, and they never change.
class CableRuns
{
public:
    CableRuns() = default;
    explicit CableRuns(WallRuns runs)
        : m_runs(runs.empty() ? nullptr : std::make_shared<const WallRuns>(std::move(runs)))
    {}

    const WallRuns &list() const
    {
        static const WallRuns none;
        return m_runs ? *m_runs : none;
    }
    bool operator==(const CableRuns &other) const { return m_runs == other.m_runs || list() == other.list(); }

private:
    std::shared_ptr<const WallRuns> m_runs; ///< null: none
};
Q_DECLARE_METATYPE(CableRuns)
