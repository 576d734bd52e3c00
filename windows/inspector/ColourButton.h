#pragma once

#include "base/Colour.h"

#include <QAbstractButton>
#include <QList>

#include <functional>
#include <optional>

/// A colour with its opacity, to be chosen by pressing. No colour at all is a field that is struck through.
class ColourButton final : public QAbstractButton
{
    Q_OBJECT

public:
    /// `name`: of the colour, for those who cannot see it and as the title of the popover.
    explicit ColourButton(const QString &name, QWidget *parent = nullptr);

    void show(const OptionalColour &colour);
    /// Shows that there are several colours.
    void showMixed();

    /// Where the popover has the colours from that it offers.
    void setOffered(const std::function<QList<QColor>()> &offered) { m_offered = offered; }

    QSize sizeHint() const override;

signals:
    /// The popover comes up; either choiceEnded() or choiceCancelled() follows, and edited() in between.
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
    std::function<QList<QColor>()> m_offered;
};
