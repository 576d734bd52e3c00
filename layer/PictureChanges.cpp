#include "layer/PictureChanges.h"

namespace {
/// Who shows pictures looks after nearly every drawing; who comes later than this looks at all of them.
constexpr std::size_t mostChanges = 8;
} // namespace

void PictureChanges::add(qint64 before, const QRegion &where)
{
    m_changes.insert(m_changes.begin(), {before, where});
    if (m_changes.size() > mostChanges)
        m_changes.pop_back();
}

std::vector<qint64> PictureChanges::known() const
{
    std::vector<qint64> keys;
    for (const Change &change : m_changes)
        keys.push_back(change.before);
    return keys;
}

std::optional<QRegion> PictureChanges::since(qint64 earlier) const
{
    QRegion all;
    for (const auto &[before, where] : m_changes) {
        all += where;
        if (before == earlier)
            return all;
    }
    return std::nullopt;
}
