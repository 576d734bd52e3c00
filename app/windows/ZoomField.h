#pragma once

#include <QLineEdit>

/// Shows the canvas' zoom, and takes another: Enter takes what was typed, a double click fits the output.
class ZoomField final : public QLineEdit
{
    Q_OBJECT

public:
    explicit ZoomField(QWidget *parent = nullptr);

    /// In per cent; 0: there is nothing to zoom. What is being typed stays.
    void show(double percent);

signals:
    void zoomChosen(double percent);
    void fitChosen();

protected:
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    /// Escape takes back what was typed.
    void keyPressEvent(QKeyEvent *event) override;

private:
    void take();
    void showLast();

    double m_percent = 0;
};
