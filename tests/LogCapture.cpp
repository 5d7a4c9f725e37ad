#include "LogCapture.h"

#include <utility>

namespace {
LogCapture* s_active = nullptr;
}

LogCapture::LogCapture()
    : m_previous(qInstallMessageHandler(&LogCapture::handle))
{
    Q_ASSERT(!s_active);
    s_active = this;
}

LogCapture::~LogCapture()
{
    s_active = nullptr;
    qInstallMessageHandler(m_previous);
}

QStringList LogCapture::lines() const
{
    return m_lines;
}

QStringList LogCapture::warnings() const
{
    return m_warnings;
}

QStringList LogCapture::takeLines()
{
    return std::exchange(m_lines, {});
}

void LogCapture::handle(QtMsgType type, const QMessageLogContext& context, const QString& text)
{
    if (!s_active || type == QtFatalMsg) {
        fprintf(stderr, "%s\n", qPrintable(text));
    } else if (type == QtDebugMsg) {
        // Every line of the plug-in belongs to the default category.
        s_active->m_lines << (qstrcmp(context.category, "default") == 0
                                  ? text
                                  : QString::fromLatin1(context.category) + QLatin1String(": ") + text);
    } else if (!text.startsWith(
                   QLatin1String("This plugin does not support "))) { // says the offscreen platform
        s_active->m_warnings << text;
    }
}
