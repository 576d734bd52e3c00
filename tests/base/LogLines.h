#pragma once

#include <QStringList>
#include <QtGlobal>

/// What is logged while this lives; nothing of it reaches the console. One at a time.
class LogLines
{
public:
    LogLines()
    {
        s_lines.clear();
        m_before = qInstallMessageHandler(
            [](QtMsgType, const QMessageLogContext &, const QString &line) { s_lines.append(line); });
    }
    ~LogLines() { qInstallMessageHandler(m_before); }
    LogLines(const LogLines &) = delete;
    LogLines &operator=(const LogLines &) = delete;

    const QStringList &lines() const { return s_lines; }

private:
    static inline QStringList s_lines;
    QtMessageHandler m_before;
};
