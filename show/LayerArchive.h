#pragma once

#include "archive/KeyedArchive.h"
#include "base/Result.h"
#include "layer/Layer.h"

#include <QByteArray>
#include <QString>

#include <memory>
#include <vector>

/// Layers as values of a keyed archive: what project files and preset libraries have in common. Memory that cannot be
/// had is a std::bad_alloc, except in copies().
namespace LayerArchive {

/// Larger files are refused before they are read.
inline constexpr qint64 mostBytes = qint64{512} << 20;

/// What stands in an archive in which layers may stand. Of layers their keys are known; `rest` says what else is.
/// Error: that of KeyedArchive::readContents().
[[nodiscard]] Result<KeyedArchive::Contents> readContents(const QByteArray &bytes, KeyedArchive::Vocabulary rest);
/// The root of such an archive where nothing else is known.
[[nodiscard]] Result<ArchiveValue> read(const QByteArray &bytes);

/// A layer's record, without what is unknown of it.
[[nodiscard]] std::shared_ptr<ArchiveObject> recordOf(const Layer &layer);
/// The list of the layers' records, in their order, with what is unknown of them.
[[nodiscard]] ArchiveValue encode(const std::vector<LayerPointer> &layers);

/// A layer of a file that is still being read: nothing of it is in a document yet.
struct ReadLayer
{
    LayerKind kind;
    LayerRecordPointer record;
    ArchiveObjectPointer unknown; ///< what is unknown of it
};

/// What the layers of such a list are like, each for itself even where the table shares one record. `noun` is what the
/// caller calls one of them, "layer", "preset".
/// Error: a record that is no layer or holds a wrong value, `layer 3: "rectcolor" is a number, expected a colour`; or
/// more than LayerLimits allows.
[[nodiscard]] Result<std::vector<ReadLayer>> decode(const std::vector<ArchiveValue> &records, const QString &noun);
/// The layers themselves, once all that stands beside them has been accepted.
[[nodiscard]] std::vector<LayerPointer> make(const std::vector<ReadLayer> &read, LayerHost &host);

/// The layers themselves, as copies of those that were read: additions that no copy takes over are not given.
[[nodiscard]] std::vector<LayerPointer> makeCopies(const std::vector<ReadLayer> &read, LayerHost &host);

/// Copies that hold exactly what an archive of the layers holds, less the additions that no copy takes over; what is
/// unknown of them refers to what it refers to in the originals. Error: more than LayerLimits allows, or a value that
/// no archive can hold.
[[nodiscard]] Result<std::vector<LayerPointer>> copies(const std::vector<LayerPointer> &layers, LayerHost &host);

} // namespace LayerArchive
