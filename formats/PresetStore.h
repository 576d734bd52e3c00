#pragma once

#include "base/Result.h"
#include "layer/Layer.h"

#include <QByteArray>
#include <QSet>
#include <QString>

#include <optional>
#include <vector>

/// The person's presets from one run to the next: one preset library file, which several programs that run at once may
/// share. Main thread only.
class PresetStore final
{
public:
    /// The data folder of the person (on Linux ~/.local/share), and "wallwright/presets" in it.
    static QString standardPath();

    /// Reads and writes nothing yet. The folder of `path` is made when it is needed.
    explicit PresetStore(const QString &path) : m_path(path) {}

    /// The kept presets; nullopt where there are none yet. They are what save() takes for known.
    /// Error: a file that cannot be read, or not now. A damaged one is put aside, so that nothing is written over it,
    /// and the message tells where; where even that fails, save() refuses. Any other stays.
    [[nodiscard]] Result<std::optional<std::vector<LayerPointer>>> load(LayerHost &host);

    /// Replaces the kept presets, safely. What another program has put into the file meanwhile is not lost: it stays
    /// behind these and comes up at the next start. What that program has taken out comes back.
    /// Error: they cannot be written, or what is there cannot be read; the file is as it was. The message begins with
    /// the path.
    [[nodiscard]] Result<void> save(const std::vector<LayerPointer> &presets, LayerHost &host);

    /// These are no other program's: what of them is in the file when save() comes may be replaced. load() and save()
    /// do so by themselves.
    void know(const std::vector<LayerPointer> &presets);

private:
    Result<std::vector<LayerPointer>> read(LayerHost &host, bool &isDamaged) const;
    Result<std::vector<LayerPointer>> ofFile(LayerHost &host) const;
    const QSet<QByteArray> &known();
    Error putAside(const Error &why) const;

    QString m_path;
    QSet<QByteArray> m_known;                ///< digests, see known()
    std::vector<ArchiveObjectPointer> m_met; ///< those whose digest nobody has asked for yet, which a start spares
};
