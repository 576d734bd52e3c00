#pragma once

#include "show/ShowProcessors.h"
#include "wiring/HandWiring.h"
#include "wiring/PortEdits.h"

#include <QSize>
#include <QString>

#include <functional>
#include <memory>
#include <optional>
#include <vector>

/// Cables laid by hand over the walls of a show, panel by panel. Changes the layers with plain setters and renders
/// them; whoever uses it makes steps of that. Main thread only.
class CableHand
{
public:
    /// What cables are laid in.
    struct Show
    {
        std::vector<LayerPointer> layers; ///< topmost first
        std::vector<ProcessorSettings> processors;
        QSize output;
        /// The next port that a new cable of a wall can have on a processor of that name.
        std::function<PortName(const QString &processor, const LayerPointer &wall)> freePort;
    };
    /// A panel of a wall that has it.
    struct Panel
    {
        LayerPointer wall;
        Cell cell;

        bool operator==(const Panel &) const = default;
    };
    /// What the keys that are held ask for.
    struct Keys
    {
        bool takesOver = false;     ///< panels of other cables change over; else they are passed
        bool goesPastLimit = false; ///< else the cable stops at its limit
    };

    CableHand();
    ~CableHand();

    /// A cable goes on from the last panel of all that hangs on its port, or before the first one; from a panel that
    /// none feeds a new one begins, on the next free port of the wall's processor, and a wall that was not wired by
    /// hand is from then on. Another panel of a cable is only named. Returns whether a cable is held. Error: there is
    /// no processor to begin at.
    [[nodiscard]] Result<bool> take(const Show &show, const Panel &panel, const Keys &keys);
    bool isHeld() const { return m_held != nullptr; }

    // While a cable is held:

    /// The cable that is held goes on to a panel along the straight way, in another wall with a piece of its own. Where
    /// other keys are held than before, what was laid since take() is laid anew.
    void goTo(const Panel &panel, const Keys &keys);
    /// The same way with other keys.
    void goWith(const Keys &keys);
    /// What was laid stays. Returns whether anything was.
    bool finish();
    /// All walls are as before take().
    void cancel();

    // At any time:

    /// What stands beside the pointer: "A3, 12 panels, 640,000 of 659,722 px", and who was passed.
    const QString &words() const { return m_words; }
    /// The cable has come to its limit, or is past it.
    bool isAtLimit() const { return m_isAtLimit; }
    /// The panel that was laid last; nullopt: nothing is held, or nothing was laid.
    std::optional<Panel> end() const;

    /// The cable that feeds a panel; nullopt: none that was laid by hand.
    static std::optional<PortName> portAt(const Panel &panel);
    /// The last panel of a cable that was laid by hand; nullopt: nothing hangs on that port.
    static std::optional<Panel> lastOn(const Show &show, const PortName &port);
    /// "A3.12": the place of a panel on its port, those off counted as they are passed; empty: no cable.
    static QString placeText(const Show &show, const Panel &panel);
    /// The runs of all layers, in their order.
    static PortEdits::ShowRuns runsOf(const Show &show);
    /// Gives all layers these runs, and renders those that differ.
    static void give(const Show &show, const PortEdits::ShowRuns &runs);
    /// Panels of a wall wired by hand that are on and not fed hang on the ends of the cables that they are next to,
    /// while those bear them and do not go on in another wall. Returns how many.
    static qint64 feed(const Show &show, const LayerPointer &wall);
    /// The last panel of the cable that feeds a panel is fed no more. False: no cable does.
    static bool takeBack(const Show &show, const Panel &panel);

private:
    struct Held;
    void layAll();
    void restore();

    std::unique_ptr<Held> m_held; ///< null: nothing
    QString m_words;
    bool m_isAtLimit = false;
};
