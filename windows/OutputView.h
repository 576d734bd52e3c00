#pragma once

#include "output/CanvasPicture.h"

#include <QWidget>

class ShownOutput;

/// Shows the composed output as the canvas does, fitted and framed, on the theme's ground. Keeps no copy of it.
class OutputView final : public QWidget
{
    Q_OBJECT

public:
    explicit OutputView(QWidget *parent = nullptr);

    /// Where the output is, to be read whenever it is painted; it outlives this. Until then nothing is shown.
    void setOutput(const ShownOutput &shown);

    QSize minimumSizeHint() const override { return {160, 120}; }

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    void showOutput();
    const ComposedOutput &output() const;
    /// Where the output is, in device pixels; empty where there is none.
    QRect place() const;
    QSize room() const { return (QSizeF(size()) * devicePixelRatioF()).toSize(); }

    const ShownOutput *m_shown = nullptr;
    CanvasPicture m_picture;
    QRect m_painted; ///< its place when it was painted last
};
