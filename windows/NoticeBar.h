#pragma once

#include <QWidget>

#include <functional>
#include <vector>

class QLabel;
class QMenu;

/// A line over the canvas that says what has happened and offers what can be done about it. It blocks nothing: who has
/// no time leaves it there, or closes it.
class NoticeBar final : public QWidget
{
    Q_OBJECT

public:
    /// What a button does; the bar has gone by then.
    struct Answer
    {
        QString title;
        QString tip;
        std::function<void()> act = {};
        QMenu *menu = nullptr; ///< opens at the button instead; becomes the bar's
    };

    /// The sentence is plain text, whatever signs are in it.
    NoticeBar(const QString &sentence, const std::vector<Answer> &answers, QWidget *parent);

private:
    void addAnswer(const Answer &answer);
};
