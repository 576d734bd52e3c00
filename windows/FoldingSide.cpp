#include "windows/FoldingSide.h"

#include "windows/Theme.h"

#include <QAbstractButton>
#include <QApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QPainter>

#include <algorithm>

namespace {
/// Of the canvas, beside what lies over it: where a click leads back to it.
constexpr int leastCanvas = 80;

/// The edge of a folded region, its name written upwards.
class Edge final : public QAbstractButton
{
public:
    Edge(const QString &name, QWidget *parent) : QAbstractButton(parent)
    {
        setText(name);
        setFocusPolicy(Qt::StrongFocus);
        setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Expanding);
        setAttribute(Qt::WA_Hover);
    }

    QSize sizeHint() const override { return {FoldingSide::edgeWidth, 2 * FoldingSide::edgeWidth}; }

protected:
    void paintEvent(QPaintEvent *) override
    {
        QPainter painter(this);
        painter.fillRect(rect(), isDown() ? Theme::line : underMouse() ? Theme::raised : Theme::panel);
        if (hasFocus()) {
            painter.setPen(Theme::accent);
            painter.drawRect(rect().adjusted(0, 0, -1, -1));
        }
        painter.setPen(underMouse() || hasFocus() ? Theme::text : Theme::dimText);
        painter.setFont(Theme::titleFont());
        painter.translate(0, height());
        painter.rotate(-90);
        painter.drawText(QRect(Theme::edge, 0, height() - 2 * Theme::edge, width()), Qt::AlignRight | Qt::AlignVCenter,
                         text());
    }
};
} // namespace

FoldingSide::FoldingSide(const QString &name, Side side, QWidget *parent)
    : QWidget(parent), m_side(side), m_edge(new Edge(name, this))
{
    auto *row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(0);
    row->addWidget(m_edge);
    m_edge->hide();
    connect(m_edge, &QAbstractButton::clicked, this, [this] { isOpen() ? close() : toggle(); });
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget *, QWidget *now) { follow(now); });
}

void FoldingSide::setContent(QWidget *content)
{
    m_content = content;
    m_leastWidth = content->minimumWidth();
    m_content->setAutoFillBackground(true); // the canvas lies behind it while it is open
    m_content->installEventFilter(this);
    layout()->addWidget(m_content);
    setMinimumWidth(m_leastWidth);
}

void FoldingSide::setFolded(bool isFolded)
{
    if (m_isFolded == isFolded)
        return;
    m_isFolded = isFolded;
    m_edge->setVisible(isFolded);
    setMinimumWidth(isFolded ? edgeWidth : m_leastWidth);
    setMaximumWidth(isFolded ? edgeWidth : QWIDGETSIZE_MAX);
    if (isFolded) {
        const bool hadFocus = hasFocus(window()->focusWidget());
        // A child of the window, so that it can lie over its neighbours.
        m_content->setParent(parentWidget()->parentWidget());
        if (hadFocus)
            emit left();
        return;
    }
    layout()->addWidget(m_content);
    m_content->show();
}

void FoldingSide::open()
{
    if (isOpen())
        return;
    placeOverCanvas();
    m_content->show();
    m_content->raise();
}

void FoldingSide::close()
{
    if (!m_isFolded || !isOpen())
        return;
    const bool hadFocus = hasFocus(QApplication::focusWidget());
    m_content->hide();
    if (hadFocus)
        emit left();
}

void FoldingSide::toggle()
{
    if (!hasFocus(QApplication::focusWidget()) || !isOpen()) {
        open();
        return focusFirstControl();
    }
    m_isFolded ? close() : emit left();
}

bool FoldingSide::hasFocus(const QWidget *focus) const
{
    return focus && m_content->isAncestorOf(focus);
}

/// A dialog or a menu of the region is no place to leave it for.
void FoldingSide::follow(const QWidget *focus)
{
    if (focus && focus->window() == window() && focus != m_edge && !hasFocus(focus))
        close();
}

void FoldingSide::focusFirstControl()
{
    for (QWidget *next = m_content->nextInFocusChain(); next != m_content; next = next->nextInFocusChain()) {
        if (m_content->isAncestorOf(next) && next->isVisible() && (next->focusPolicy() & Qt::TabFocus))
            return next->setFocus(Qt::ShortcutFocusReason);
    }
}

void FoldingSide::placeOverCanvas()
{
    const QWidget *canvasSide = m_content->parentWidget();
    const QRect edge(mapTo(canvasSide, QPoint(0, 0)), size());
    const int room = m_side == Side::Left ? canvasSide->width() - edge.right() - 1 : edge.left();
    const int wanted = std::min(std::max(m_content->sizeHint().width(), m_leastWidth), room - leastCanvas);
    const int left = m_side == Side::Left ? edge.right() + 1 : edge.left() - wanted;
    m_content->setGeometry(left, edge.top(), wanted, edge.height());
}

bool FoldingSide::eventFilter(QObject *watched, QEvent *event)
{
    if (m_isFolded && event->type() == QEvent::KeyPress && static_cast<QKeyEvent *>(event)->key() == Qt::Key_Escape) {
        close();
        return true;
    }
    return QWidget::eventFilter(watched, event);
}

void FoldingSide::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    if (m_isFolded)
        placeOverCanvas();
}

void FoldingSide::moveEvent(QMoveEvent *event)
{
    QWidget::moveEvent(event);
    if (m_isFolded)
        placeOverCanvas();
}
