#pragma once

#include <QTabBar>
#include <QWidget>

class QSplitter;
class QVBoxLayout;

/// The two lists at the window's left: layers above presets or, folded, each behind a tab.
class ListsPane final : public QWidget
{
    Q_OBJECT

public:
    /// Object name of the labels that are the lists' titles; where tabs say the same they are not shown.
    static constexpr char titleName[] = "listTitle";

    /// Empty; first come the layers, later the presets.
    explicit ListsPane(QWidget *parent = nullptr);

    /// Owns `layers`; once.
    void setLayers(QWidget *layers);
    /// Owns `presets`; once. They take half of the height, unless restoreState() has said otherwise.
    void setPresets(QWidget *presets);
    /// Whether one list at a time is shown, for windows that leave little room.
    void setFolded(bool isFolded);
    /// The tabs of folded lists; null until the presets have come.
    QWidget *tabs() { return m_tabs; }
    /// Bring one list forward where it is behind the other. The presets have come.
    void showLayers();
    void showPresets();

    /// How high the lists are; restoring anything else than what saveState() gave changes nothing.
    QByteArray saveState() const;
    void restoreState(const QByteArray &state);

private:
    void addTabs();
    void showLists();

    QVBoxLayout *m_column;
    QSplitter *m_splitter;
    QWidget *m_layers = nullptr;
    QWidget *m_presets = nullptr; ///< null until they have come
    QTabBar *m_tabs = nullptr;
    QByteArray m_state; ///< to be restored when they have
    bool m_isFolded = false;
};
