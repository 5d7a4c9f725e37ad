#include "ConditionsFile.h"

#include "EmbeddedCore/EmbeddedCore.h"
#include "EmbeddedCore/JsonNode.h"
#include "EmbeddedCore/TextError.h"
#include "condition/ConditionName.h"
#include "condition/ConditionRecord.h"
#include "judgement/IfConfiguration.h"

#include <QCoreApplication>
#include <QJsonArray>
#include <QJsonDocument>
#include <QRegularExpression>
#include <QSaveFile>
#include <QTemporaryDir>

#include <cmath>

using namespace ZelCore;

namespace {

constexpr int version = 1;

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(ConditionsFile)
};

QString jsonText(const QJsonValue& value)
{
    const QByteArray array = QJsonDocument(QJsonArray{value}).toJson(QJsonDocument::Compact);
    return QString::fromUtf8(array.mid(1, array.size() - 2));
}

QString boundText(const ModuleConfiguration& configuration, double constant, const QString& bindingKey,
                  const QString& boundSourceKey)
{
    if (!IfConfiguration::isSubscribed(configuration, boundSourceKey)) {
        return jsonText(constant);
    }
    return QStringLiteral(R"({"constant": %1, "source": %2})")
        .arg(jsonText(constant),
             jsonText(IfConfiguration::sourceOf(configuration, SUBSCRIBE_TYPE_RUNPARAM, bindingKey)));
}

void bind(ModuleConfiguration* configuration, ENUM_IO_SUBSCRIBE_TYPE_ type, const QString& key,
          const QString& source)
{
    if (!source.isEmpty()) {
        configuration->bindings << ModuleBinding{{0, type, key}, source, {}, {}, {}};
    }
}

double readBound(ModuleConfiguration* configuration, JsonNode bound, const QString& name,
                 const QString& bindingKey, const QString& boundSourceKey)
{
    if (bound.value.isObject()) {
        bound.expectObject({"constant", "source"});
        bind(configuration, SUBSCRIBE_TYPE_RUNPARAM, bindingKey, bound.member("source").optionalText());
        configuration->uiData[boundSourceKey] =
            QByteArray(ModuleParameter::subscribedBound, sizeof(ModuleParameter::subscribedBound));
        bound = bound.member("constant");
    }
    const int limit = ConditionName::largestBound(ConditionName::typeOf(name));
    const bool isFloat = ConditionName::isWrittenAsFloat(name);
    const double number = bound.value.toDouble();
    bound.expect(bound.value.isDouble() && std::abs(number) <= limit,
                 Texts::tr("a number from -%1 to %1").arg(limit));
    bound.expect(QString::number(number, 'f', isFloat ? 3 : 0).toDouble() == number,
                 isFloat ? Texts::tr("at most three decimals") : Texts::tr("a whole number"));
    return number;
}

ConditionRecord readCondition(ModuleConfiguration* configuration, const JsonNode& condition)
{
    condition.expectObject({"name", "note", "input", "minimum", "maximum"});
    const JsonNode name = condition.member("name");
    const JsonNode note = condition.member("note");
    ConditionRecord record;
    record.name = name.optionalText();
    static const QRegularExpression form(QStringLiteral("^(int|float)(0|[1-9][0-9]{0,8})$"));
    name.expect(form.match(record.name).hasMatch(), Texts::tr("\"int\" or \"float\" and a number"));
    record.note = note.optionalText();
    static const QRegularExpression unstorable(QStringLiteral("[:;\\x00-\\x1f]"));
    note.expect(!record.note.contains(unstorable),
                Texts::tr("a note without ':', ';' and control characters"));

    using namespace ConditionName;
    const QString input = inputIo(record.name);
    for (const QString& io :
         {input, valueOutputIo(record.name), minimumOutputIo(record.name), maximumOutputIo(record.name)}) {
        ModuleIo added{io, io == input ? Input : Output, typeWord(typeOf(record.name)), {}};
        added.flags.CanSubscribe = false;
        configuration->ios << added;
    }
    bind(configuration, SUBSCRIBE_TYPE_IO, input, condition.member("input").optionalText());
    record.minimum = readBound(configuration, condition.member("minimum"), record.name,
                               lowerBoundKey(record.name), lowerBoundSourceKey(record.name));
    record.maximum = readBound(configuration, condition.member("maximum"), record.name,
                               upperBoundKey(record.name), upperBoundSourceKey(record.name));
    return record;
}

ModuleConfiguration parsed(const JsonNode& root)
{
    root.expectObject({"version", "mode", "conditions"});
    const JsonNode mode = root.member("mode");
    root.member("version").expect(root.member("version").value == version, QString::number(version));
    mode.expect(mode.value == "all" || mode.value == "any", Texts::tr("\"all\" or \"any\""));

    ModuleConfiguration configuration;
    QList<ConditionRecord> records;
    QStringList names;
    for (const JsonNode& condition : root.member("conditions").items()) {
        records << readCondition(&configuration, condition);
        const QString name = records.last().name;
        if (names.contains(name)) {
            condition.member("name").fail(Texts::tr("%1 is there twice").arg(name));
        }
        names << name;
    }
    configuration.runParameters[QLatin1String(ModuleParameter::judgementMode)] =
        mode.value == "all" ? "1" : "2";
    configuration.binaryData[QLatin1String(ModuleParameter::conditionList)] =
        ConditionRecord::toText(records).toUtf8();
    return configuration;
}

ModuleConfiguration configurationOf(const EmbeddedCore& core, UInt moduleId)
{
    QString error;
    const auto configuration = core.configuration(moduleId, &error);
    require(configuration.has_value(), error);
    return *configuration;
}

// Sends what differs; throws TextError when the core refuses something.
void change(EmbeddedCore& core, UInt moduleId, const ModuleConfiguration& target)
{
    const auto send = [&core](auto&& command) {
        const CommandResult result = core.Execute(command);
        require(result.Status == Success || result.Status == NothingChanged,
                QString::fromUtf8(result.Message));
    };
    const ModuleConfiguration present = configurationOf(core, moduleId);
    for (const ModuleIo& io : target.ios) {
        IO_INFO info(io.name.toUtf8().constData(), io.valueType.toUtf8().constData());
        info.ExtraData = io.flags;
        send(AddIOCommand(moduleId, &info, io.ioClass));
    }
    for (const ModuleBinding& binding : present.bindings) {
        if (!target.binding(binding.target.Type, binding.target.Key)) {
            send(DelFilterSourceCommand(binding.target));
        }
    }
    for (const ModuleBinding& binding : target.bindings) {
        if (IfConfiguration::sourceOf(present, binding.target.Type, binding.target.Key) != binding.source) {
            send(SetFilterSourceCommand({moduleId, binding.target.Type, binding.target.Key}, binding.source));
        }
    }
    for (const QString& name : present.uiData.keys()) {
        if (!target.uiData.contains(name)) {
            send(DeleteUIDataCommand(moduleId, name.toUtf8().constData()));
        }
    }
    const auto set = [](const QMap<QString, QByteArray>& from, const QMap<QString, QByteArray>& to,
                        const auto& setOne) {
        for (auto it = to.cbegin(); it != to.cend(); ++it) {
            auto size = static_cast<UInt>(it->size());
            if (from.value(it.key()) != *it) {
                setOne(it.key().toUtf8().constData(), it->constData(), size);
            }
        }
    };
    set(present.uiData, target.uiData, [&](const char* name, const char* data, UInt& size) {
        send(SetUIDataCommand(moduleId, name, data, size));
    });
    set(present.runParameters, target.runParameters,
        [&](const char* name, const char* text, UInt&) { send(SetRunParamCommand(moduleId, name, text)); });
    set(present.binaryData, target.binaryData, [&](const char* name, const char* data, UInt& size) {
        send(SetBinaryDataCommand(moduleId, name, data, size));
    });
}

} // namespace

QByteArray ConditionsFile::textOf(const ModuleConfiguration& configuration)
{
    using namespace ConditionName;
    QStringList conditions;
    const auto stored = StoredCondition::fromStored(IfConfiguration::conditionList(configuration));
    for (const StoredCondition& condition : stored) {
        const QString& name = condition.name;
        conditions << QStringLiteral("\n        {\"name\": %1, \"note\": %2, \"input\": %3, \"minimum\": %4, "
                                     "\"maximum\": %5}")
                          .arg(jsonText(name), jsonText(condition.note),
                               jsonText(IfConfiguration::sourceOf(configuration, SUBSCRIBE_TYPE_IO,
                                                                  inputIo(name))),
                               boundText(configuration, condition.minimum, lowerBoundKey(name),
                                         lowerBoundSourceKey(name)),
                               boundText(configuration, condition.maximum, upperBoundKey(name),
                                         upperBoundSourceKey(name)));
    }
    return QStringLiteral("{\n    \"version\": %1,\n    \"mode\": \"%2\",\n    \"conditions\": [%3]\n}\n")
        .arg(QString::number(version),
             IfConfiguration::needsAll(configuration) ? QStringLiteral("all") : QStringLiteral("any"),
             conditions.isEmpty() ? QString() : conditions.join(QLatin1Char(',')) + QStringLiteral("\n    "))
        .toUtf8();
}

bool ConditionsFile::write(const QString& file, const ModuleConfiguration& configuration, QString* error)
{
    QSaveFile target(file);
    const QByteArray text = textOf(configuration);
    if (target.open(QIODevice::WriteOnly) && target.write(text) == text.size() && target.commit()) {
        return true;
    }
    *error = QStringLiteral("%1: %2").arg(file, target.errorString());
    return false;
}

std::optional<ModuleConfiguration> ConditionsFile::read(const QString& file, const Flow& flow, UInt moduleId,
                                                        QString* error)
{
    const auto readChecked = [&] {
        // The core of a store of its own checks it against the flow.
        const ModuleConfiguration target = parsed(JsonNode::ofFile(file));
        const QTemporaryDir folder;
        QString problem;
        const auto core = EmbeddedCore::open(flow, folder.filePath(QStringLiteral("store.sqlite")), &problem);
        require(core != nullptr, problem);
        change(*core, moduleId, target);
        return std::optional(configurationOf(*core, moduleId));
    };
    return attempt(error, readChecked, file + QStringLiteral(": "));
}

bool ConditionsFile::import(const QString& file, EmbeddedCore& core, UInt moduleId, QString* error)
{
    const auto target = read(file, core.flow(), moduleId, error);
    return target && apply(*target, core, moduleId, error);
}

bool ConditionsFile::apply(const ModuleConfiguration& target, EmbeddedCore& core, UInt moduleId,
                           QString* error)
{
    const auto before = core.configuration(moduleId, error);
    if (!before) {
        return false;
    }
    const auto changeTo = [&](const ModuleConfiguration& configuration, QString* problem) {
        return attempt(problem, [&] {
            change(core, moduleId, configuration);
            return true;
        });
    };
    if (changeTo(target, error)) {
        return true;
    }
    QString problem;
    if (!changeTo(*before, &problem)) {
        *error = Texts::tr("%1; what was changed before can't be undone: %2").arg(*error, problem);
    }
    return false;
}
