#pragma once

#include <QSpinBox>

#include <optional>

/// A field for a whole number with its unit behind it. Sums can be typed; each text that has a value within the range
/// is taken while it is typed, anything else keeps the last value and says why when Enter is pressed or the field is
/// left. Up and Down step by 1, with Shift by 10; the wheel steps only where the cursor is.
class NumberField final : public QSpinBox
{
    Q_OBJECT

public:
    NumberField(int lowest, int highest, const QString &unit, QWidget *parent = nullptr);

    /// Shows a value without telling it; one beyond the range as its nearest end.
    void show(int value);
    /// Shows that there are several values; only what is typed from then on counts.
    void showMixed();

    void stepBy(int steps) override;
    /// Room for the numbers of a wall, not for those of the whole range.
    QSize minimumSizeHint() const override { return {leastWidth, QSpinBox::minimumSizeHint().height()}; }
    QSize sizeHint() const override { return minimumSizeHint(); }

signals:
    /// Someone has typed or stepped to a value.
    void edited(int value);

protected:
    QString textFromValue(int value) const override;
    int valueFromText(const QString &text) const override;
    QValidator::State validate(QString &text, int &position) const override;
    void fixup(QString &text) const override;
    void wheelEvent(QWheelEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    static constexpr int leastWidth = 72;

    std::optional<int> valueOf(const QString &text) const;
    QString withoutUnit(const QString &text) const;
    void takeTyped(const QString &text);
    void sayWhyIfWrong();

    bool m_isMixed = false;
};
