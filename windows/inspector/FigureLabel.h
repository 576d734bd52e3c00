#pragma once

#include <QLabel>

/// A figure to be read aloud, in large type: digits are of one width, so that they stay where they are while others
/// change. What has no room is drawn smaller, never cut.
class FigureLabel final : public QLabel
{
    Q_OBJECT

public:
    /// `name`: what the figure is of, for those who cannot see it.
    explicit FigureLabel(const QString &name, QWidget *parent = nullptr);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return {0, sizeHint().height()}; }

protected:
    void paintEvent(QPaintEvent *event) override;
};
