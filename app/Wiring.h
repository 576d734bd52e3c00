#pragma once

#include "base/Result.h"
#include "facts/ShowPorts.h"
#include "show/CableHand.h"
#include "show/ShowProcessors.h"

#include <optional>
#include <vector>

class LWAppDelegate;

/// The processors of a document and what hangs on them. Each edit is one step of the history. Main thread only.
class Wiring
{
public:
    /// Of `document`, which has it.
    explicit Wiring(LWAppDelegate &document) : m_document(document) {}

    const ShowProcessors::Processors &processors() const { return m_processors; }
    /// The document has come from elsewhere, with these.
    void take(const ShowProcessors::Processors &processors);

    /// Another processor, under the first free name where `settings` have none. The first of a show feeds its walls.
    /// Error: its name is taken, a value is out of range, or there are as many as a show can have.
    [[nodiscard]] Result<void> add(ProcessorSettings settings);
    /// One has other settings; walls, cables and backups that name it follow a new name. Error: the name is empty or
    /// taken, a value is out of range, or there is no such processor.
    [[nodiscard]] Result<void> change(std::size_t processor, const ProcessorSettings &settings);
    /// Walls that it fed name it still, and wait.
    void remove(std::size_t processor);
    /// So many more processors as one of the list, with its settings but no backup of their own yet, behind it.
    /// Error: as of add().
    [[nodiscard]] Result<void> addLike(std::size_t processor, qint64 count);

    /// What cables are laid in by hand; to be used until the document changes otherwise.
    CableHand::Show cables() const;
    /// The cables that were laid by hand become what `edit` makes of them; a step of that name. Error: that of `edit`.
    using CableEdit = std::function<Result<PortEdits::ShowRuns>(const PortEdits::ShowRuns &runs)>;
    [[nodiscard]] Result<void> editCables(const QString &name, const CableEdit &edit);
    /// The walls in these rows of the layer list, and those that they share ports with, are wired by hand as they are
    /// wired now. Error: none of them hangs on ports.
    [[nodiscard]] Result<void> takeAsLaidByHand(const std::vector<qsizetype> &rows);

    /// Panels of the wall in that row that are on no cable hang on those that end beside them; see CableHand::feed().
    /// Error: none can.
    [[nodiscard]] Result<void> feed(qsizetype row);

    /// The walls in these rows of the layer list, and those that they share ports with, keep the ports that they have.
    /// Those wired by hand keep them anyway. Error: why the first that cannot keep them does not; the others do.
    [[nodiscard]] Result<void> keepPorts(const std::vector<qsizetype> &rows);

    /// Which panel of the document hangs on which port now. Worked out once for all who ask, and anew where the show is
    /// another; to be read until it changes.
    const ShowPorts &ports() const;

    /// For whoever edits layers, before the step is made and new ones are in the list: their cables take free ports,
    /// and walls without a processor the one that was used last.
    void welcome(const ShowProcessors::Layers &layers);
    /// The same for copies of layers of this show, which have no processor where those shall have none.
    void welcomeCopies(const ShowProcessors::Layers &layers);
    /// The pixels per port of walls that leave them to their processor.
    void followLimits();
    /// Panels that walls wired by hand no longer have leave their cables. Returns whether there were any.
    bool dropLostPanels();
    /// The cables in the pictures of walls that show them, selected or not.
    void followCables();

private:
    Result<void> check(const ProcessorSettings &settings, std::optional<std::size_t> processor) const;
    Result<void> checkRoom(qint64 more) const;
    QString lastUsed() const;
    PortName freePort(const QString &processor, const LayerPointer &wall) const;

    /// What ports depend on.
    struct Show
    {
        std::vector<LayerRecordPointer> layers;
        ShowProcessors::Processors processors;
        QSize output;

        bool operator==(const Show &) const = default;
    };
    Show show() const;

    LWAppDelegate &m_document;
    ShowProcessors::Processors m_processors;
    mutable Show m_known; ///< whose ports are known
    mutable std::optional<ShowPorts> m_ports;
    bool m_areCablesShown = false;
};
