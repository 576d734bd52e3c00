#pragma once

#include <QLineEdit>

/// Shows the canvas' zoom, and takes another: Enter takes what was typed and has a red frame while it is no zoom, a
/// double click fits the output.
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
    /// What is wrong with what is typed, in one sentence; empty: nothing any more.
    void faultDidChange(const QString &sentence);

protected:
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    /// Escape takes back what was typed.
    void keyPressEvent(QKeyEvent *event) override;

private:
    void take();
    void showLast();
    QString fault() const;
    void showFault(const QString &sentence);

    double m_percent = 0;
    QString m_fault;
};
