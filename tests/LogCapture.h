#pragma once

#include <QStringList>
#include <QtGlobal>

/// Collects the messages of the Qt log for as long as it lives, then restores the former handler.
/// One at a time.
class LogCapture
{
public:
    LogCapture();
    ~LogCapture();
    Q_DISABLE_COPY(LogCapture)

    /// Debug messages, as logged.
    QStringList lines() const;
    /// Warnings and worse: there should be none.
    QStringList warnings() const;
    /// The debug messages since the last take.
    QStringList takeLines();

private:
    static void handle(QtMsgType type, const QMessageLogContext& context, const QString& text);

    QtMessageHandler m_previous;
    QStringList m_lines;
    QStringList m_warnings;
};
