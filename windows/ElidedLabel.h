#pragma once

#include <QLabel>

/// Plain text of one line that wraps where it has the height for more, and else ends in an ellipsis where it has too
/// little room; it never widens what it stands in.
class ElidedLabel final : public QLabel
{
    Q_OBJECT

public:
    explicit ElidedLabel(QWidget *parent = nullptr);

    QSize minimumSizeHint() const override { return {0, QLabel::minimumSizeHint().height()}; }

protected:
    void paintEvent(QPaintEvent *event) override;
};
