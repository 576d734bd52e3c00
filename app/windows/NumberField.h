#pragma once

#include <QSpinBox>

#include <optional>

class TextField;

/// A field for a whole number with its unit behind it. Sums can be typed; each text that has a value within the range
/// is taken while it is typed. An entry that has none when Enter is pressed or the field is left is taken back, and it
/// says why. Up and Down step by 1, with Shift by 10, and do nothing where there are several values; the wheel steps
/// only where the cursor is. editingFinished() tells that an entry has ended, after takenBack().
class NumberField final : public QSpinBox
{
    Q_OBJECT

public:
    /// From `lowest` to `highest` can be typed and stepped; more can be shown.
    NumberField(int lowest, int highest, const QString &unit, QWidget *parent = nullptr);

    /// The most that can be typed and stepped from now on.
    void setHighest(int highest);
    /// Shows a value without telling it. A text that is being typed stays as long as its value is that.
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
    /// The entry that has led to edited() ended in no value: all of it counts no longer.
    void takenBack();

protected:
    QString textFromValue(int value) const override;
    int valueFromText(const QString &text) const override;
    QValidator::State validate(QString &text, int &position) const override;
    void fixup(QString &text) const override;
    StepEnabled stepEnabled() const override;
    bool event(QEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;

private:
    static constexpr int leastWidth = 72;

    std::optional<int> valueOf(const QString &text) const;
    QString withoutUnit(const QString &text) const;
    void takeTyped(const QString &text);
    void tell(int value);
    void showLast();
    void fitRange(int shown);
    void endEntry();
    void sayWhy();

    TextField *m_text;
    QString m_unit; ///< as it stands behind the number
    int m_lowest;
    int m_highest;
    int m_value = 0; ///< as last shown or told
    bool m_isMixed = false;
    bool m_isTyping = false; ///< the text is a person's, not yet ours
    bool m_hasTold = false;  ///< edited(), since the entry began
};
