#include "ConditionsFile.h"

#include "EmbeddedCore/EmbeddedCore.h"
#include "condition/ConditionName.h"
#include "condition/ConditionRecord.h"
#include "judgement/IfConfiguration.h"

#include <QCoreApplication>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>
#include <QSaveFile>
#include <QTemporaryDir>

#include <cmath>
#include <stdexcept>

using namespace ZelCore;

namespace {

constexpr int version = 1;

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(ConditionsFile)
};

// Exceptions stay in this unit.
[[noreturn]] void fail(const QString& problem)
{
    throw std::runtime_error(problem.toStdString());
}

void require(bool isSo, const QString& place, const QString& expected)
{
    if (!isSo) {
        fail(QStringLiteral("%1: %2").arg(place, expected));
    }
}

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

// The keys are separated by blanks.
QJsonObject objectAt(const QJsonValue& value, const QString& place, const char* keys)
{
    const QStringList known = QString::fromLatin1(keys).split(QLatin1Char(' '));
    require(value.isObject(), place, Texts::tr("expected an object"));
    QJsonObject object = value.toObject();
    const QStringList present = object.keys();
    for (const QString& key : present) {
        require(known.contains(key), place, Texts::tr("unknown key \"%1\"").arg(key));
    }
    return object;
}

QString textAt(const QJsonObject& object, const char* name, const QString& place)
{
    const auto key = QString::fromLatin1(name);
    const QJsonValue value = object[key];
    require(value.isString() || value.isUndefined(), place + QLatin1Char('.') + key,
            Texts::tr("expected a text"));
    return value.toString();
}

void bind(ModuleConfiguration* configuration, ENUM_IO_SUBSCRIBE_TYPE_ type, const QString& key,
          const QString& source)
{
    if (!source.isEmpty()) {
        configuration->bindings << ModuleBinding{{0, type, key}, source, {}, {}, {}};
    }
}

double readBound(ModuleConfiguration* configuration, QJsonValue value, const QString& place, bool isFloat,
                 const QString& bindingKey, const QString& boundSourceKey)
{
    if (value.isObject()) {
        const QJsonObject bound = objectAt(value, place, "constant source");
        bind(configuration, SUBSCRIBE_TYPE_RUNPARAM, bindingKey, textAt(bound, "source", place));
        configuration->uiData[boundSourceKey] =
            QByteArray(ModuleParameter::subscribedBound, sizeof(ModuleParameter::subscribedBound));
        value = bound[QLatin1String("constant")];
    }
    constexpr int limit = 999999999; // of the fields in the panel
    const double number = value.toDouble();
    require(value.isDouble() && std::abs(number) <= limit, place,
            Texts::tr("expected a number from -%1 to %1").arg(limit));
    require(QString::number(number, 'f', isFloat ? 3 : 0).toDouble() == number, place,
            isFloat ? Texts::tr("at most three decimals can be stored")
                    : Texts::tr("expected a whole number"));
    return number;
}

ConditionRecord readCondition(ModuleConfiguration* configuration, const QJsonValue& value,
                              const QString& place)
{
    const QJsonObject condition = objectAt(value, place, "name note input minimum maximum");
    ConditionRecord record;
    record.name = textAt(condition, "name", place);
    static const QRegularExpression form(QStringLiteral("^(int|float)(0|[1-9][0-9]{0,8})$"));
    require(form.match(record.name).hasMatch(), place + QStringLiteral(".name"),
            Texts::tr("expected \"int\" or \"float\" and a number"));
    record.note = textAt(condition, "note", place);
    static const QRegularExpression unstorable(QStringLiteral("[:;\\x00-\\x1f]"));
    require(!record.note.contains(unstorable), place + QStringLiteral(".note"),
            Texts::tr("a note can't hold ':', ';' or control characters"));

    using namespace ConditionName;
    const QString input = inputIo(record.name);
    for (const QString& io :
         {input, valueOutputIo(record.name), minimumOutputIo(record.name), maximumOutputIo(record.name)}) {
        ModuleIo added{io, io == input ? Input : Output, typeWord(typeOf(record.name)), {}};
        added.flags.CanSubscribe = false;
        configuration->ios << added;
    }
    bind(configuration, SUBSCRIBE_TYPE_IO, input, textAt(condition, "input", place));
    const bool isFloat = isWrittenAsFloat(record.name);
    record.minimum =
        readBound(configuration, condition[QLatin1String("minimum")], place + QStringLiteral(".minimum"),
                  isFloat, lowerBoundKey(record.name), lowerBoundSourceKey(record.name));
    record.maximum =
        readBound(configuration, condition[QLatin1String("maximum")], place + QStringLiteral(".maximum"),
                  isFloat, upperBoundKey(record.name), upperBoundSourceKey(record.name));
    return record;
}

ModuleConfiguration parsed(const QByteArray& json)
{
    QJsonParseError problem;
    const QJsonDocument document = QJsonDocument::fromJson(json, &problem);
    require(!document.isNull(), Texts::tr("byte %1").arg(problem.offset), problem.errorString());
    const QJsonObject root = objectAt(document.isObject() ? QJsonValue(document.object()) : QJsonValue(),
                                      Texts::tr("the file"), "version mode conditions");
    require(root[QLatin1String("version")] == QJsonValue(version), QStringLiteral("version"),
            Texts::tr("expected %1").arg(version));
    const QString mode = root[QLatin1String("mode")].toString();
    require(mode == QLatin1String("all") || mode == QLatin1String("any"), QStringLiteral("mode"),
            Texts::tr("expected \"all\" or \"any\""));
    require(root[QLatin1String("conditions")].isArray(), QStringLiteral("conditions"),
            Texts::tr("expected a list"));

    ModuleConfiguration configuration;
    QList<ConditionRecord> records;
    QStringList names;
    const QJsonArray conditions = root[QLatin1String("conditions")].toArray();
    for (const auto& condition : conditions) {
        const QString place = QStringLiteral("conditions[%1]").arg(records.size());
        records << readCondition(&configuration, condition, place);
        require(!names.contains(records.last().name), place + QStringLiteral(".name"),
                Texts::tr("%1 is there twice").arg(records.last().name));
        names << records.last().name;
    }
    configuration.runParameters[QLatin1String(ModuleParameter::judgementMode)] =
        mode == QLatin1String("all") ? "1" : "2";
    configuration.binaryData[QLatin1String(ModuleParameter::conditionList)] =
        ConditionRecord::toText(records).toUtf8();
    return configuration;
}

ModuleConfiguration configurationOf(const EmbeddedCore& core, UInt moduleId)
{
    QString error;
    const auto configuration = core.configuration(moduleId, &error);
    if (!configuration) {
        fail(error);
    }
    return *configuration;
}

// Sends what differs; an exception when the core refuses something.
void change(EmbeddedCore& core, UInt moduleId, const ModuleConfiguration& target)
{
    const auto send = [&core](auto&& command) {
        const CommandResult result = core.Execute(command);
        if (result.Status != Success && result.Status != NothingChanged) {
            fail(QString::fromUtf8(result.Message));
        }
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
    try {
        QFile source(file);
        if (!source.open(QIODevice::ReadOnly)) {
            fail(source.errorString());
        }
        // The core of a store of its own checks it against the flow.
        const ModuleConfiguration target = parsed(source.readAll());
        const QTemporaryDir folder;
        const auto core = EmbeddedCore::open(flow, folder.filePath(QStringLiteral("store.sqlite")), error);
        if (!core) {
            return std::nullopt;
        }
        change(*core, moduleId, target);
        return configurationOf(*core, moduleId);
    } catch (const std::runtime_error& failure) {
        *error = QStringLiteral("%1: %2").arg(file, QString::fromUtf8(failure.what()));
        return std::nullopt;
    }
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
    try {
        change(core, moduleId, target);
        return true;
    } catch (const std::runtime_error& failure) {
        *error = QString::fromUtf8(failure.what());
    }
    try {
        change(core, moduleId, *before);
    } catch (const std::runtime_error& failure) {
        *error = Texts::tr("%1; what was changed before can't be undone: %2")
                     .arg(*error, QString::fromUtf8(failure.what()));
    }
    return false;
}
