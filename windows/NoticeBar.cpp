#include "windows/NoticeBar.h"

#include "windows/Icons.h"
#include "windows/Theme.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QToolButton>

NoticeBar::NoticeBar(const QString &sentence, const std::vector<Answer> &answers, QWidget *parent) : QWidget(parent)
{
    setAttribute(Qt::WA_StyledBackground);
    setAccessibleName(sentence);
    auto *row = new QHBoxLayout(this);
    row->setContentsMargins(Theme::edge, Theme::barMargin, Theme::edge, Theme::barMargin);
    row->setSpacing(Theme::gap);
    auto *text = new QLabel(sentence);
    text->setTextFormat(Qt::PlainText);
    text->setWordWrap(true);
    text->setTextInteractionFlags(Qt::TextSelectableByMouse);
    row->addWidget(text, 1);
    for (const Answer &answer : answers)
        addAnswer(answer);
    auto *close = new QToolButton;
    close->setIcon(Icons::icon("x-lg"));
    close->setAccessibleName("Close this line");
    close->setToolTip("Closes this line and changes nothing");
    connect(close, &QToolButton::clicked, this, &QObject::deleteLater);
    row->addWidget(close);
}

void NoticeBar::addAnswer(const Answer &answer)
{
    auto *button = new QPushButton(answer.title);
    button->setToolTip(answer.tip);
    button->setAutoDefault(false);
    button->setFocusPolicy(Qt::TabFocus); // it goes with its bar: after a click the keys stay where they were
    layout()->addWidget(button);
    if (answer.menu) {
        answer.menu->setParent(this, answer.menu->windowFlags());
        return button->setMenu(answer.menu);
    }
    connect(button, &QPushButton::clicked, this, [this, act = answer.act] {
        hide();
        deleteLater();
        if (act)
            act();
    });
}
