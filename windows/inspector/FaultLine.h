#pragma once

#include <QLabel>

/// What is wrong with the entry in a field, beside it while there is a fault. It lies over what `form` shows and moves
/// none of it: a click goes through it to what the person saw there.
class FaultLine final : public QLabel
{
    Q_OBJECT

public:
    /// `field` stands in the form, however deep, and stays there.
    FaultLine(QWidget &field, QWidget &form);

    /// Empty: there is no fault any more.
    void tell(const QString &sentence);

protected:
    /// Follows the field when the form is laid out anew.
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void place();

    QWidget &m_field;
};
