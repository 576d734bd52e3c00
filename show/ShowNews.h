#pragma once

#include "base/Colour.h"
#include "show/DocumentState.h"

#include <QObject>
#include <QString>

#include <utility>

/// All of a show that is to be seen, at one moment.
struct ShowState
{
    DocumentState document;
    Colour background = NamedColour::black;
    Colour edge = NamedColour::black;
    int corners = 0; ///< which corner coordinates walls show
    QString power;   ///< the power line
    /// What the selected picture was like when it was rendered last: there stands its marker; null: there is none.
    LayerRecordPointer marked = nullptr;

    bool operator==(const ShowState &other) const
    {
        return document.looksLike(other.document) && background == other.background && edge == other.edge &&
               corners == other.corners && power == other.power && hasMarkerOf(other);
    }

private:
    bool hasMarkerOf(const ShowState &other) const
    {
        return marked == other.marked || (marked && other.marked && *marked == *other.marked);
    }
};

/// Tells whoever shows something of a show that it has changed: once an edit, after its redraw. Views read what they
/// show themselves; while the gate of the redraw is shut, the output follows what is told. Main thread only.
class ShowNews final : public QObject
{
    Q_OBJECT

public:
    /// What was told last.
    const ShowState &state() const { return m_state; }
    /// Grows with each change: what was worked out from the show is valid while it is the same.
    quint64 revision() const { return m_revision; }

    /// Something that no state holds is another, as the pixels in a picture's file: the next look tells in any case.
    void expectChange() { m_isChanged = true; }
    /// The show as it is now; nothing is told where that is what was told last.
    void look(ShowState now)
    {
        if (!std::exchange(m_isChanged, false) && now == m_state)
            return;
        m_state = std::move(now);
        ++m_revision;
        emit changed();
    }

signals:
    void changed();

private:
    ShowState m_state;
    quint64 m_revision = 0;
    bool m_isChanged = false;
};
