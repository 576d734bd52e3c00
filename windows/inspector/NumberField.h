#pragma once

#include <QSpinBox>

#include <optional>

class TextField;

/// A field for a whole number with its unit behind it. Sums can be typed; each text that has a value within the range
/// is taken while it is typed. One that is wrong as it stands takes back what was typed before it at once; one that is
/// not finished does so when Enter is pressed or the field is left. Meanwhile the frame is red, and faultDidChange()
/// says why. Escape takes back the whole entry. Up and Down step by 1, with Shift by 10, and do nothing where there are
/// several values; the wheel steps only where the cursor is. editingFinished() tells that an entry has ended, after
/// takenBack().
class NumberField final : public QSpinBox
{
    Q_OBJECT

public:
    /// From `lowest` to `highest` can be typed and stepped; more can be shown.
    NumberField(int lowest, int highest, const QString &unit, QWidget *parent = nullptr);

    /// The most that can be typed and stepped from now on.
    void setHighest(int highest);
    /// Whoever follows edited() takes a value only at the end of its entry. Until then no history has it: undo and redo
    /// take the entry back, as Escape does, and nothing else.
    void setTakenAtEnd() { m_isTakenAtEnd = true; }
    /// Shows a value without telling it. A text that is being typed stays as long as its value is that.
    void show(int value);
    /// The same, but what is being typed or stepped to stays, whatever its value; where it comes to nothing, this one
    /// is there.
    void showBeneath(int value);
    /// Shows that there are several values; only what is typed from then on counts.
    void showMixed();

    /// The value that counts: the last that was shown or told, or the one before the entry where that was taken back.
    int taken() const { return m_value; }

    void stepBy(int steps) override;
    /// Room for the numbers of a wall, not for those of the whole range.
    QSize minimumSizeHint() const override { return {leastWidth, QSpinBox::minimumSizeHint().height()}; }
    QSize sizeHint() const override { return minimumSizeHint(); }

signals:
    /// edited() follows with a step from the value that counts now, which is one in its own right.
    void aboutToStep();
    /// Someone has typed or stepped to a value.
    void edited(int value);
    /// All of the entry that has led to edited() counts no longer.
    void takenBack();
    /// What is wrong with what is typed, in one sentence; empty: nothing any more.
    void faultDidChange(const QString &sentence);

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
    QString faultOf(const QString &text) const;
    QString withoutUnit(const QString &text) const;
    bool isUnchangedDash(const QString &text) const;
    void takeTyped(const QString &text);
    void beginEntry();
    void tell(int value);
    void takeBack();
    void showLast();
    void setFault(const QString &sentence);
    void fitRange(int shown);
    void endEntry();
    void forgetEntry();
    bool isToTakeBack(const QEvent &event) const;

    TextField *m_text;
    QString m_unit; ///< as it stands behind the number
    int m_lowest;
    int m_highest;
    bool m_isTakenAtEnd = false;
    int m_value = 0; ///< as last shown or told
    bool m_isMixed = false;
    int m_valueBefore = 0; ///< and whether there were several: before the entry
    bool m_wasMixed = false;
    bool m_isEntry = false;  ///< something was typed or stepped to since the last entry
    bool m_isTyping = false; ///< the text is a person's, not yet ours
    bool m_hasTold = false;  ///< edited(), since the entry began or was taken back
    QString m_fault;
};
