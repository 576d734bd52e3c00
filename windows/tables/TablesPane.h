#pragma once

#include "windows/tables/TablePage.h"

class ElidedLabel;
class LiveDesk;
class LWAppDelegate;
class QHBoxLayout;
class QStackedWidget;
class QToolButton;
class RestedChecks;

/// The tables below the canvas, each behind a tab. They fold to their head, which says the worst that any has to say;
/// folded in a show without processors and displays they take no room. Main thread only.
class TablesPane final : public QWidget
{
    Q_OBJECT

public:
    /// In the order of the tabs.
    enum Page
    {
        Ports,
        Checks,
        Displays,
        PageCount
    };

    /// All outlive the last event of this.
    TablesPane(LWAppDelegate &document, RestedChecks &checks, LiveDesk &desk, QWidget *parent = nullptr);

    bool isOpen() const { return m_isOpen; }
    void setOpen(bool isOpen);
    /// The one before the others, whether it is folded or not.
    Page currentPage() const { return m_current; }
    void setCurrentPage(Page page);
    bool isOpenAt(Page page) const { return m_isOpen && m_current == page; }
    /// Opens that page with the keyboard in it, or folds it.
    void toggle(Page page);

signals:
    /// Another page is before the others, or they were folded or unfolded.
    void didTurn();
    /// As those of the pages.
    void failureTold(const QString &sentence);
    void asked(const std::vector<qsizetype> &layers, const QRectF &pixels);

private:
    void addHead();
    void addPage(TablePage *page);
    void turnTo(Page page);
    void showOrHide();
    void follow();
    void showTabs();
    void showState();

    LWAppDelegate &m_document;
    LiveDesk &m_desk;
    QHBoxLayout *m_head = nullptr;
    ElidedLabel *m_state = nullptr;
    QStackedWidget *m_stack = nullptr;
    std::vector<TablePage *> m_pages;
    std::vector<QToolButton *> m_tabs; ///< one each
    Page m_current = Ports;
    bool m_isOpen = false;
};
