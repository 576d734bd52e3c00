#include "windows/inspector/SummaryLine.h"

#include "windows/Icons.h"
#include "windows/Theme.h"

#include <QHBoxLayout>
#include <QLabel>

namespace {
constexpr int signSize = 16;
}

SummaryLine::SummaryLine(const QString &name, QWidget *parent) : QWidget(parent), m_sign(new QLabel), m_text(new QLabel)
{
    auto *row = new QHBoxLayout(this);
    row->setContentsMargins(0, Theme::gap / 2, 0, Theme::gap / 2);
    row->setSpacing(Theme::gap);
    m_sign->setAccessibleName("Warning");
    m_sign->setPixmap(Icons::pixmap("exclamation-triangle-fill", signSize, Theme::warning, devicePixelRatioF()));
    m_sign->hide();
    m_text->setAccessibleName(name);
    m_text->setWordWrap(true);
    m_text->setFont(Theme::smallFont());
    m_text->setTextInteractionFlags(Qt::TextSelectableByMouse);
    row->addWidget(m_sign, 0, Qt::AlignTop);
    row->addWidget(m_text, 1);
}

void SummaryLine::show(const QString &text, bool isWarning)
{
    m_sign->setVisible(isWarning);
    Theme::colourText(*m_text, isWarning ? Theme::warning : Theme::text);
    m_text->setText(text);
}
