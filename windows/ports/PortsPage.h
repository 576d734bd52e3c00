#pragma once

#include "windows/ports/PortsModel.h"
#include "windows/tables/TablePage.h"

class LWAppDelegate;
class QMenu;
class QPushButton;
class RowTable;
struct PortSummary;

/// The table of ports, and what feeds them. It counts only while its pane is in sight.
class PortsPage final : public TablePage
{
    Q_OBJECT

public:
    /// The document outlives the last event of this.
    explicit PortsPage(LWAppDelegate &document, QWidget *parent = nullptr);

    QString title() const override { return "Ports"; }
    State state() const override { return m_state; }
    QWidget *tools() override { return m_tools; }
    void refresh() override;

protected:
    void showEvent(QShowEvent *event) override;

private:
    void tellIfFailed(const Result<void> &done);
    void addTools();
    void addTable();
    void fitColumns();
    void showSummary(const PortSummary &summary);
    void addNeeded();
    void askForSettings(std::size_t processor);
    void keepAllPorts();
    void listProcessors();
    void addProcessor(const ProcessorModel &model, const OwnModel &own);
    void listOwnModels(QMenu &menu);
    void describeModel();
    void askForRow(const QModelIndex &index);

    LWAppDelegate &m_document;
    PortsModel m_model;
    State m_state;
    QWidget *m_tools = nullptr;
    QPushButton *m_addNeeded = nullptr;
    QMenu *m_processors = nullptr; ///< to add and to remove some
    RowTable *m_table = nullptr;
    std::optional<ShowWiring::Shortage> m_needed;
};
