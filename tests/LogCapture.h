#pragma once

#include "core_client/ZelException.h"

#include <QStringList>

#include <cstdio>
#include <optional>
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

    /// Warnings and worse: there should be none.
    QStringList warnings() const { return m_warnings; }
    /// The debug messages since the last take.
    QStringList takeLines() { return std::exchange(m_lines, {}); }
    /// Where a message begins with this text, logging throws.
    std::optional<QString> failure;

private:
    static void handle(QtMsgType type, const QMessageLogContext& context, const QString& text)
    {
        if (s_active->failure && text.startsWith(*s_active->failure)) {
            throw ZelCommon::ZelException("the log is full");
        }
        if (type == QtFatalMsg) {
            std::fprintf(stderr, "%s\n", qPrintable(text));
        } else if (type == QtDebugMsg) {
            // With its category, unless that is the default one.
            s_active->m_lines << qFormatLogMessage(type, context, text);
        } else if (!text.startsWith("This plugin does not support ")) { // the offscreen platform says so
            s_active->m_warnings << text;
        }
    }

    inline static LogCapture* s_active = nullptr;
    QtMessageHandler m_previous;
    QStringList m_lines;
    QStringList m_warnings;
};
