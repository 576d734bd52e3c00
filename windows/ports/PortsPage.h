#pragma once

#include "windows/ports/PortsModel.h"

#include <QWidget>

class ElidedLabel;
class LWAppDelegate;
class QMenu;
class QPushButton;
class QTableView;
class QToolButton;
struct PortSummary;

/// The table of ports below the canvas. It folds to its head, which says how many there are and the worst that is
/// wrong; folded in a show without processors it takes no room. It counts only while it is in sight.
class PortsPane final : public QWidget
{
    Q_OBJECT

public:
    /// Both outlive the last event of this.
    explicit PortsPane(LWAppDelegate &document, QWidget *parent = nullptr);

    bool isOpen() const { return m_isOpen; }
    void setOpen(bool isOpen);
    /// Opens it with the keyboard in the table, or folds it.
    void toggle();

signals:
    /// Something could not be done, and why.
    void failureTold(const QString &sentence);
    /// Someone wants to see these layers, by their rows in the list, and this place of the output.
    void asked(const std::vector<qsizetype> &layers, const QRectF &pixels);
    void openDidChange(bool isOpen);

protected:
    void showEvent(QShowEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void tellIfFailed(const Result<void> &done);
    QWidget *head();
    void addTable();
    void follow();
    void refresh();
    void fitColumns();
    void showSummary(const PortSummary &summary);
    void addNeeded();
    void askForSettings(std::size_t processor);
    void keepAllPorts();
    void listProcessors();
    void askForRow(const QModelIndex &index);

    LWAppDelegate &m_document;
    PortsModel m_model;
    QToolButton *m_fold = nullptr;
    ElidedLabel *m_summary = nullptr;
    QPushButton *m_addNeeded = nullptr;
    QMenu *m_processors = nullptr; ///< to add and to remove some
    QTableView *m_table = nullptr;
    std::optional<ShowWiring::Shortage> m_needed;
    bool m_isOpen = false;
};
