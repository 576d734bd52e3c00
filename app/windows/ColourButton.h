#pragma once

#include "drawing/Colour.h"

#include <QAbstractButton>

#include <optional>

/// A colour with its opacity, to be chosen by pressing. No colour at all is a field that is struck through.
class ColourButton final : public QAbstractButton
{
    Q_OBJECT

public:
    /// `name`: of the colour, for those who cannot see it and as the title of its dialog.
    explicit ColourButton(const QString &name, QWidget *parent = nullptr);

    void show(const OptionalColour &colour);
    /// Shows that there are several colours.
    void showMixed();

    QSize sizeHint() const override;

signals:
    /// The dialog comes up; either choiceEnded() or choiceCancelled() follows, and edited() in between.
    void choiceBegan();
    /// Someone looks at this colour or has chosen it.
    void edited(const Colour &colour);
    /// The colour that was told last is chosen.
    void choiceEnded();
    /// None is chosen: all is to be as it was. `before`: what the button showed, nullopt also for several.
    void choiceCancelled(const OptionalColour &before);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    void choose();
    void tell(const QColor &colour);
    void showText();

    QString m_name;
    OptionalColour m_colour;
    bool m_isMixed = false;
};
