#pragma once

#include <QColor>
#include <QFrame>
#include <QList>

class ColourPlane;
class QGridLayout;
class QLabel;
class QLineEdit;

/// A small window beside the button of a colour: its hexadecimal digits, the colours that the show has already, and all
/// that there are. Colours are told while they are looked at. Enter or a press elsewhere keeps the last one, Escape
/// keeps none.
class ColourPopover final : public QFrame
{
    Q_OBJECT

public:
    /// `first`: invalid where there is none to begin with.
    ColourPopover(const QString &name, const QColor &first, const QList<QColor> &ofShow, QWidget *parent);

    /// Comes up below the button, or above it where there is no room, at the right edge of its window.
    void showBeside(const QWidget &button);

signals:
    void looked(const QColor &colour);
    /// It has gone: the colour that was told last is kept, or none.
    void kept();
    void cancelled();

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void hideEvent(QHideEvent *event) override;

private:
    QGridLayout *swatches(const QList<QColor> &colours);
    void takeDigits(const QString &text);
    void look(const QColor &colour);

    QLineEdit *m_digits;
    QLabel *m_fault;
    ColourPlane *m_plane;
    bool m_isCancelled = false;
    bool m_hasEnded = false;
};
