#pragma once

#include <QRegion>
#include <QtGlobal>

#include <optional>
#include <vector>

/// How a picture that is drawn into again and again came from what it was before: so that who has shown an earlier one
/// need not look at all of it.
class PictureChanges
{
public:
    /// The picture of cache key `before` was drawn into; it is as it was but for `where`, in its pixels, y down.
    void add(qint64 before, const QRegion &where);
    /// Where the picture differs from the one of cache key `earlier`; none where that is not known (any more).
    std::optional<QRegion> since(qint64 earlier) const;
    /// The cache keys that since() knows, the latest first.
    std::vector<qint64> known() const;

private:
    struct Change
    {
        qint64 before;
        QRegion where;
    };
    std::vector<Change> m_changes; ///< the latest first
};
