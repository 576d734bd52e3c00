#include "windows/inspector/FaultLine.h"

#include "windows/Theme.h"

#include <QEvent>

FaultLine::FaultLine(QWidget &field, QWidget &form) : QLabel(&form), m_field(field)
{
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setTextFormat(Qt::PlainText);
    setWordWrap(true);
    setFont(Theme::smallFont());
    hide();
    for (QWidget *part = &field; part != &form; part = part->parentWidget())
        part->installEventFilter(this);
    form.installEventFilter(this);
}

void FaultLine::tell(const QString &sentence)
{
    setText(sentence);
    setVisible(!sentence.isEmpty());
    if (sentence.isEmpty())
        return;
    place();
    raise();
}

/// Below the field; where nobody would see it there, above.
void FaultLine::place()
{
    const QWidget &form = *parentWidget();
    const QRect field(m_field.mapTo(&form, QPoint(0, 0)), m_field.size());
    const int width = form.width() - 2 * Theme::edge;
    const int height = heightForWidth(width);
    const int below = field.bottom() + 1 + Theme::gap / 2;
    const bool isSeen = below + height <= form.visibleRegion().boundingRect().bottom() + 1;
    setGeometry(Theme::edge, isSeen ? below : field.top() - Theme::gap / 2 - height, width, height);
}

bool FaultLine::eventFilter(QObject *watched, QEvent *event)
{
    if (isVisible() && (event->type() == QEvent::Move || event->type() == QEvent::Resize))
        place();
    return QLabel::eventFilter(watched, event);
}
