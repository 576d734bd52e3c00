#pragma once

#include "windows/displays/DisplaysModel.h"
#include "windows/tables/TablePage.h"

class LiveDesk;
class Pointing;
class QComboBox;
class QToolButton;
class RowTable;

/// The displays of the wall, and what stands on them. Main thread only.
class DisplaysPage final : public TablePage
{
    Q_OBJECT

public:
    /// `desk` outlives this.
    explicit DisplaysPage(LiveDesk &desk, QWidget *parent = nullptr);

    QString title() const override { return "Displays"; }
    State state() const override;
    QWidget *tools() override { return m_tools; }
    /// Nothing: it follows what is live by itself.
    void refresh() override {}

protected:
    /// The keys of the displays, but for those that the table takes.
    void keyPressEvent(QKeyEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void addTools(LiveDesk &desk);
    QToolButton *addTool(const QString &text, const QString &tip);
    bool press(const QKeyEvent &event);
    void showLive();
    void turn(const QModelIndex &index);

    LiveOutput &m_live;
    Pointing &m_pointing;
    DisplaysModel m_model;
    QWidget *m_tools = nullptr;
    QToolButton *m_identify = nullptr;
    QToolButton *m_black = nullptr;
    QToolButton *m_freeze = nullptr;
    QToolButton *m_point = nullptr;
    QComboBox *m_level = nullptr;
    RowTable *m_table = nullptr;
};
