#pragma once

#include <QWidget>

class QSplitter;
class QTabBar;

/// The two lists at the window's left: layers above presets or, folded, each behind a tab.
class ListsPane final : public QWidget
{
    Q_OBJECT

public:
    /// Owns `layers`. The presets come later, see setPresets().
    explicit ListsPane(QWidget *layers, QWidget *parent = nullptr);

    /// Owns `presets`; once. They take half of the height, unless restoreState() has said otherwise.
    void setPresets(QWidget *presets);
    /// Whether one list at a time is shown, for windows that leave little room.
    void setFolded(bool isFolded);
    bool isFolded() const { return m_isFolded; }
    /// Brings the presets forward where they are behind the layers.
    void showPresets();

    /// How high the lists are; restoring anything else than what saveState() gave changes nothing.
    QByteArray saveState() const;
    void restoreState(const QByteArray &state);

private:
    void showLists();

    QTabBar *m_tabs;
    QSplitter *m_splitter;
    QWidget *m_layers;
    QWidget *m_presets = nullptr; ///< null until they have come
    QByteArray m_state;           ///< to be restored when they have
    bool m_isFolded = false;
};
