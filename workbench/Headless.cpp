#include "Headless.h"

#include "EmbeddedCore/EmbeddedCore.h"
#include "condition/ConditionName.h"
#include "inspector/ConfigurationJson.h"
#include "judgement/SampleRun.h"

#include <QCoreApplication>
#include <QJsonDocument>

#include <cerrno>
#include <cstdio>
#include <cstring>

namespace {

// Words of the output, the same in every language.
QByteArray wordOf(Judgement::Outcome outcome)
{
    switch (outcome) {
    case Judgement::Outcome::In:
        return "in";
    case Judgement::Outcome::Out:
        return "out";
    case Judgement::Outcome::NoValue:
        break;
    }
    return "no value";
}

QByteArray quoted(const QString& text)
{
    QByteArray field = text.toUtf8();
    return '"' + field.replace('"', "\"\"") + '"';
}

QByteArray headerOf(const QVector<Judgement::Condition>& conditions)
{
    QByteArray line = "line,result";
    for (const Judgement::Condition& condition : conditions) {
        const QString& name = condition.name;
        for (const QString& column :
             {ConditionName::valueOutputIo(name), ConditionName::minimumOutputIo(name),
              ConditionName::maximumOutputIo(name), name}) {
            line += ',' + quoted(column);
        }
    }
    return line + '\n';
}

QByteArray rowOf(const SampleRun& run)
{
    QByteArray line = QByteArray::number(run.line()) + (run.isOk() ? ",OK" : ",not OK");
    for (const Judgement::Result& result : run.results()) {
        for (const double number : {result.value, result.minimum, result.maximum}) {
            line += ',' + Judgement::numberText(number).toLatin1();
        }
        line += ',' + wordOf(result.outcome);
    }
    return line + '\n';
}

bool print(const QByteArray& bytes)
{
    return std::fwrite(bytes.constData(), 1, static_cast<std::size_t>(bytes.size()), stdout) ==
           static_cast<std::size_t>(bytes.size());
}

// Also tells what earlier prints could not write.
bool finish(QString* error)
{
    if (std::fflush(stdout) == 0 && std::ferror(stdout) == 0) {
        return true;
    }
    *error = QCoreApplication::translate("Headless", "Standard output can't be written: %1")
                 .arg(QString::fromLocal8Bit(std::strerror(errno)));
    return false;
}

} // namespace

bool Headless::printRun(const EmbeddedCore& core, unsigned int moduleId, const QString& csvFile,
                        QString* error)
{
    const auto configuration = core.configuration(moduleId, error);
    const auto run = configuration ? SampleRun::open(*configuration, csvFile, error) : nullptr;
    if (!run) {
        return false;
    }
    bool isWritten = print(headerOf(run->conditions()));
    while (isWritten && run->next(error)) {
        isWritten = print(rowOf(*run));
    }
    if (!finish(error) || !error->isEmpty()) {
        return false;
    }
    std::fprintf(stderr, "%s\n", qUtf8Printable(run->summary()));
    for (int i = 0; i < run->totals().size(); ++i) {
        std::fprintf(stderr, "%s: %s\n", qUtf8Printable(run->conditions().at(i).name),
                     qUtf8Printable(run->totals().at(i).summary()));
    }
    return true;
}

bool Headless::printConfiguration(const EmbeddedCore& core, unsigned int moduleId, QString* error)
{
    const auto configuration = core.configuration(moduleId, error);
    if (!configuration) {
        return false;
    }
    print(QJsonDocument(ConfigurationJson::of(*configuration)).toJson());
    return finish(error);
}
