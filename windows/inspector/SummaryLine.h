#pragma once

#include <QWidget>

class QLabel;

/// A line in small type that is only read; a warning has a sign before it.
class SummaryLine final : public QWidget
{
    Q_OBJECT

public:
    /// `name`: for those who cannot see it.
    explicit SummaryLine(const QString &name, QWidget *parent = nullptr);

    void show(const QString &text, bool isWarning);

private:
    QLabel *m_sign;
    QLabel *m_text;
};
