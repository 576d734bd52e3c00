#include "windows/HelpWindow.h"

#include "windows/GuideView.h"
#include "windows/Theme.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QScreen>
#include <QToolButton>
#include <QVBoxLayout>

namespace {
constexpr QSize firstHelpSize{740, 760};
/// What a desktop puts around a window.
constexpr QSize roomOfFrame{16, 40};
} // namespace

HelpWindow::HelpWindow() : m_guides(new GuideView)
{
    setAttribute(Qt::WA_QuitOnClose, false);
    setWindowTitle("Help");
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    auto *row = new QHBoxLayout;
    row->setContentsMargins(Theme::edge, Theme::gap, Theme::edge, Theme::gap);
    row->setSpacing(Theme::gap);
    QToolButton *back = button("Back", "To the page before (Alt+Left)");
    back->setEnabled(false);
    connect(back, &QToolButton::clicked, m_guides, &QTextBrowser::backward);
    connect(m_guides, &QTextBrowser::backwardAvailable, back, &QToolButton::setEnabled);
    QToolButton *first = button("First wall", "A first wall in five minutes");
    connect(first, &QToolButton::clicked, m_guides, [this] { m_guides->showGuide("first-wall.md"); });
    QToolButton *guide = button("User guide", "All that the program does");
    connect(guide, &QToolButton::clicked, m_guides, [this] { m_guides->showGuide("user-guide.md"); });
    for (QToolButton *const inRow : {back, first, guide})
        row->addWidget(inRow);
    row->addStretch(1);
    column->addLayout(row);
    column->addWidget(m_guides);
    resize(firstHelpSize.boundedTo(screen()->availableSize() - roomOfFrame));
    m_guides->showGuide("first-wall.md");
    m_guides->setFocus();
}

QToolButton *HelpWindow::button(const QString &title, const QString &tip)
{
    auto *made = new QToolButton(this);
    made->setText(title);
    made->setToolTip(tip);
    return made;
}

void HelpWindow::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Escape)
        close();
    else
        QWidget::keyPressEvent(event);
}
