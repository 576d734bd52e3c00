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
    /// Someone is choosing: told with every change in the dialog, and with the old colour where it is cancelled.
    void edited(const Colour &colour);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    void choose();
    void showText();

    QString m_name;
    OptionalColour m_colour;
    bool m_isMixed = false;
};
