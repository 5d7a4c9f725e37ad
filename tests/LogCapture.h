#pragma once

#include <QStringList>
#include <QtGlobal>

#include <cstdio>
#include <utility>

/// Collects the messages of the Qt log for as long as it lives, then restores the former handler.
/// One at a time.
class LogCapture
{
public:
    LogCapture()
        : m_previous(qInstallMessageHandler(&LogCapture::handle))
    {
        s_active = this;
    }
    ~LogCapture() { qInstallMessageHandler(m_previous); }
    Q_DISABLE_COPY(LogCapture)

    /// Debug messages, as logged.
    QStringList lines() const { return m_lines; }
    /// Warnings and worse: there should be none.
    QStringList warnings() const { return m_warnings; }
    /// The debug messages since the last take.
    QStringList takeLines() { return std::exchange(m_lines, {}); }

private:
    static void handle(QtMsgType type, const QMessageLogContext& context, const QString& text)
    {
        if (type == QtFatalMsg) {
            std::fprintf(stderr, "%s\n", qPrintable(text));
        } else if (type == QtDebugMsg) {
            // Every line of the plug-in belongs to the default category.
            const bool isDefault = qstrcmp(context.category, "default") == 0;
            s_active->m_lines << (isDefault ? text : QString::fromLatin1(context.category) + ": " + text);
        } else if (!text.startsWith("This plugin does not support ")) { // the offscreen platform says so
            s_active->m_warnings << text;
        }
    }

    inline static LogCapture* s_active = nullptr;
    QtMessageHandler m_previous;
    QStringList m_lines;
    QStringList m_warnings;
};
