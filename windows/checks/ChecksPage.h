#pragma once

#include "windows/checks/ChecksModel.h"
#include "windows/tables/TablePage.h"

class LWAppDelegate;
class QToolButton;
class RestedChecks;
class RowTable;

/// The table of what is wrong, or not, in the show. One who means it so says so with a row.
class ChecksPage final : public TablePage
{
    Q_OBJECT

public:
    /// Both outlive the last event of this.
    ChecksPage(LWAppDelegate &document, RestedChecks &checks, QWidget *parent = nullptr);

    QString title() const override { return m_title; }
    State state() const override { return m_state; }
    QWidget *tools() override { return m_tools; }
    /// Nothing: it follows when the checks rest.
    void refresh() override {}

protected:
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    void addTools();
    void showRested();
    void showState();
    void showFindings();
    void fitRows();
    void showTools();
    void mean(bool isMeant);
    void feed();
    /// In the selected row; null: none is.
    const Finding *chosen() const;
    void askForRow(const QModelIndex &index);

    LWAppDelegate &m_document;
    RestedChecks &m_checks;
    ChecksModel m_model;
    QString m_title;
    State m_state;
    QWidget *m_tools = nullptr;
    QToolButton *m_feed = nullptr;  ///< where the chosen row is of panels that are not fed
    QToolButton *m_meant = nullptr; ///< of the chosen row; not there without the table
    RowTable *m_table = nullptr;
};
