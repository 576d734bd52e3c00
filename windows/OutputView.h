#pragma once

#include "output/CanvasPicture.h"

#include <QWidget>

/// Shows the composed output as the canvas does, fitted and framed, on the theme's ground. Keeps no copy of it.
class OutputView final : public QWidget
{
    Q_OBJECT

public:
    explicit OutputView(QWidget *parent = nullptr);

    /// Where the output is, to be read whenever it is painted; it outlives this. Until then nothing is shown.
    void setOutput(const ComposedOutput &output);
    /// It was composed anew.
    void showOutput();

    QSize minimumSizeHint() const override { return {160, 120}; }

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    /// Where the output is, in device pixels; empty where there is none.
    QRect place() const;
    QSize room() const { return (QSizeF(size()) * devicePixelRatioF()).toSize(); }

    const ComposedOutput *m_output;
    CanvasPicture m_picture;
    QRect m_painted; ///< its place when it was painted last
};
