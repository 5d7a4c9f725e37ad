#include "Headless.h"

#include "judgement/ResultCsv.h"

#include <QCoreApplication>
#include <QElapsedTimer>

#include <cerrno>
#include <cstdio>
#include <cstring>

#include <unistd.h>

namespace {

constexpr int bufferSize = 1 << 16;

/// The progress of a long run, on standard error.
class ProgressLine
{
public:
    explicit ProgressLine(bool isWanted)
        : m_isWanted(isWanted)
    {
        m_timer.start();
    }
    ~ProgressLine()
    {
        if (m_shown > 0) {
            std::fputs("\r\033[K", stderr);
        }
    }
    Q_DISABLE_COPY(ProgressLine)

    void update(const SampleRun& run)
    {
        constexpr int rowsBetweenLooks = 1024; // at the clock
        if (m_isWanted && run.rows() % rowsBetweenLooks == 0 && m_timer.elapsed() / 1000 > m_shown) {
            m_shown = m_timer.elapsed() / 1000;
            QString text = QCoreApplication::translate("Headless", "%1 rows").arg(run.rows());
            if (run.progress() > 0.0) {
                text += QStringLiteral(", %1 %").arg(static_cast<int>(run.progress() * 100));
            }
            std::fprintf(stderr, "\r%s", qUtf8Printable(text));
        }
    }

private:
    bool m_isWanted;
    QElapsedTimer m_timer;
    /// Seconds.
    qint64 m_shown = 0;
};

QByteArray totalsOf(const SampleRun& run)
{
    QString text = run.summary() + QLatin1Char('\n');
    for (int i = 0; i < run.conditions().size(); ++i) {
        text += QStringLiteral("%1: %2\n").arg(run.conditions().at(i).name, run.totals(i).summary());
    }
    return text.toUtf8();
}

bool write(const QByteArray& bytes)
{
    return std::fwrite(bytes.constData(), 1, static_cast<std::size_t>(bytes.size()), stdout) ==
           static_cast<std::size_t>(bytes.size());
}

} // namespace

std::optional<bool> Headless::printRun(const ModuleConfiguration& configuration, const QStringList& csvFiles,
                                       bool totalsOnly, QString* error)
{
    const auto run = SampleRun::open(configuration, csvFiles, error);
    if (!run) {
        return std::nullopt;
    }
    const ResultCsv csv(*run);
    QByteArray rows;
    rows.reserve(2 * bufferSize);
    if (!totalsOnly) {
        csv.appendHeader(&rows);
    }
    auto step = SampleRun::Step::Judged;
    {
        ProgressLine progress(isatty(STDERR_FILENO) && (totalsOnly || !isatty(STDOUT_FILENO)));
        while ((step = run->next(error)) == SampleRun::Step::Judged) {
            if (!totalsOnly) {
                csv.appendRow(&rows);
                if (rows.size() >= bufferSize) {
                    if (!write(rows)) {
                        break;
                    }
                    rows.resize(0);
                }
            }
            progress.update(*run);
        }
    }
    if (!print(rows, error) || step == SampleRun::Step::Failed) {
        return std::nullopt;
    }
    if (totalsOnly) {
        if (!print(totalsOf(*run), error)) {
            return std::nullopt;
        }
    } else {
        std::fputs(totalsOf(*run).constData(), stderr);
    }
    return run->okRows() == run->rows();
}

bool Headless::print(const QByteArray& text, QString* error)
{
    // Also reports what earlier writes could not write.
    if (write(text) && std::fflush(stdout) == 0 && std::ferror(stdout) == 0) {
        return true;
    }
    *error = QCoreApplication::translate("Headless", "Standard output can't be written: %1")
                 .arg(QString::fromLocal8Bit(std::strerror(errno)));
    return false;
}
