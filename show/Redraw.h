#pragma once

#include <QObject>

#include <functional>

/// The redraw that every edit ends in. A gate lets one composition through in 0.1 s; what comes while it is shut is
/// made up for as soon as it opens, so that the last edit of a row always shows. Main thread only.
class Redraw final : public QObject
{
public:
    /// `compose` draws what an edit has changed; `show` follows each time, composed or not. The gate is shut at first.
    Redraw(std::function<void()> compose, std::function<void()> show);

    /// Composes where the gate is open, and shuts it for a while.
    void update();
    /// Opens the gate; nothing else.
    void open() { m_isOpen = true; }
    bool isOpen() const { return m_isOpen; }
    /// Makes up at once for what came while the gate was shut, before the document goes into a file.
    void catchUp();
    /// There is nothing to make up for: the document was composed beside this.
    void forget() { m_isBehind = false; }

private:
    void openAndCatchUp();

    std::function<void()> m_compose;
    std::function<void()> m_show;
    bool m_isOpen = false;
    bool m_isBehind = false; ///< an update came while the gate was shut
};
