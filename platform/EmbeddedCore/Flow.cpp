#include "Flow.h"

#include "CoreError.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSet>

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

// What the fixed-width fields of a subscription record hold, in bytes of UTF-8.
constexpr int longestName = 127;
constexpr int longestSubscribeName = 255;
constexpr int deepestNesting = 64;

// The readers below throw CoreError with the place of what they did not expect.

[[noreturn]] void expect(const QString& place, const QString& what)
{
    throw CoreError(Flow::tr("%1: expected %2").arg(place, what));
}

QJsonObject objectOf(const QJsonValue& value, const QString& place)
{
    if (!value.isObject()) {
        expect(place, Flow::tr("an object"));
    }
    return value.toObject();
}

QJsonArray arrayOf(const QJsonValue& value, const QString& place)
{
    if (!value.isArray()) {
        expect(place, Flow::tr("a list"));
    }
    return value.toArray();
}

QString textOf(const QJsonValue& value, const QString& place)
{
    if (value.toString().isEmpty()) {
        expect(place, Flow::tr("a text that is not empty"));
    }
    return value.toString();
}

QString nameOf(const QJsonObject& object, const QString& ownerPlace)
{
    const QString place = ownerPlace + QStringLiteral(".name");
    QString name = textOf(object.value(QStringLiteral("name")), place);
    if (name.toUtf8().size() > longestName) {
        expect(place, Flow::tr("at most %1 bytes of UTF-8").arg(longestName));
    }
    return name;
}

bool isValueOf(const QString& type, const QJsonValue& value)
{
    if (type == QLatin1String("string")) {
        return value.isString();
    }
    if (type == QLatin1String("bool")) {
        return value.isBool();
    }
    if (type == QLatin1String("float")) {
        return value.isDouble();
    }
    const double number = value.toDouble();
    return value.isDouble() && number == std::trunc(number) && number >= std::numeric_limits<int>::min() &&
           number <= std::numeric_limits<int>::max();
}

// Type, sample and column of an output that is no group.
void readValue(FlowOutput& output, const QJsonObject& object, const QString& place)
{
    output.type = object.value(QStringLiteral("type")).toString();
    if (!QStringList{"int", "float", "string", "bool"}.contains(output.type)) {
        expect(place + QStringLiteral(".type"),
               Flow::tr(R"("int", "float", "string" or "bool", or outputs)"));
    }
    if (object.contains(QStringLiteral("value"))) {
        output.value = object.value(QStringLiteral("value"));
        if (!isValueOf(output.type, output.value)) {
            expect(place + QStringLiteral(".value"), Flow::tr("a value of type \"%1\"").arg(output.type));
        }
    }
    if (object.contains(QStringLiteral("column"))) {
        output.column = textOf(object.value(QStringLiteral("column")), place + QStringLiteral(".column"));
    }
    if (output.subscribeName.toUtf8().size() > longestSubscribeName) {
        expect(place,
               Flow::tr("names that together stay within %1 bytes of UTF-8").arg(longestSubscribeName));
    }
}

// The outputs of an object that may have some; path is the subscribe text that leads to it.
QVector<FlowOutput> outputsOf(const QJsonObject& owner, const QString& ownerPlace, const QString& path,
                              int level = 1)
{
    const QString place = ownerPlace + QStringLiteral(".outputs");
    if (level > deepestNesting) {
        expect(place, Flow::tr("at most %1 levels of outputs").arg(deepestNesting));
    }
    QVector<FlowOutput> outputs;
    QSet<QString> names;
    const QJsonArray array = arrayOf(owner.value(QStringLiteral("outputs")), place);
    for (int i = 0; i < array.size(); ++i) {
        const QString itemPlace = QStringLiteral("%1[%2]").arg(place).arg(i);
        const QJsonObject object = objectOf(array[i], itemPlace);
        FlowOutput output;
        output.name = nameOf(object, itemPlace);
        if (output.name.contains(QLatin1Char('.')) || names.contains(output.name)) {
            expect(itemPlace + QStringLiteral(".name"),
                   Flow::tr("a name without \".\" that no output beside it has"));
        }
        names.insert(output.name);
        const QString outputPath = path + QLatin1Char('.') + output.name;
        if (object.contains(QStringLiteral("outputs"))) {
            output.children = outputsOf(object, itemPlace, outputPath, level + 1);
        } else {
            output.subscribeName = outputPath;
            readValue(output, object, itemPlace);
        }
        outputs << output;
    }
    return outputs;
}

QVector<FlowModule> modulesOf(const QJsonValue& value)
{
    QVector<FlowModule> modules;
    QSet<ZelCore::UInt> ids;
    const QJsonArray array = arrayOf(value, QStringLiteral("modules"));
    for (int i = 0; i < array.size(); ++i) {
        const QString place = QStringLiteral("modules[%1]").arg(i);
        const QJsonObject object = objectOf(array[i], place);
        const QJsonValue id = object.value(QStringLiteral("id"));
        FlowModule module;
        module.id = static_cast<ZelCore::UInt>(id.toInt());
        if (!isValueOf(QStringLiteral("int"), id) || id.toInt() < 1 || ids.contains(module.id)) {
            expect(place + QStringLiteral(".id"),
                   Flow::tr("a whole number from 1 to 2147483647 that no other module has"));
        }
        ids.insert(module.id);
        module.name = nameOf(object, place);
        module.kind = textOf(object.value(QStringLiteral("kind")), place + QStringLiteral(".kind"));
        if (object.contains(QStringLiteral("outputs"))) {
            module.outputs = outputsOf(object, place, QString::number(module.id));
        }
        modules << module;
    }
    return modules;
}

// Line and column, from 1, of a byte of a text.
QString placeOf(const QByteArray& bytes, int offset)
{
    const QByteArray before = bytes.left(offset);
    return Flow::tr("line %1, column %2").arg(before.count('\n') + 1).arg(offset - before.lastIndexOf('\n'));
}

QJsonValue parsed(const QByteArray& bytes)
{
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(bytes, &error);
    if (error.error != QJsonParseError::NoError) {
        // The parser mostly stops one byte behind what it did not expect.
        expect(placeOf(bytes, std::max(error.offset - 1, 0)), Flow::tr("JSON (%1)").arg(error.errorString()));
    }
    return document.isObject() ? QJsonValue(document.object()) : QJsonValue(document.array());
}

} // namespace

std::optional<Flow> Flow::load(const QString& file, QString* error)
{
    try {
        QFile source(file);
        if (!source.open(QIODevice::ReadOnly)) {
            throw CoreError(source.errorString());
        }
        const QJsonObject root = objectOf(parsed(source.readAll()), tr("the whole file"));
        Flow flow;
        flow.m_name = textOf(root.value(QStringLiteral("name")), QStringLiteral("name"));
        flow.m_modules = modulesOf(root.value(QStringLiteral("modules")));
        return flow;
    } catch (const CoreError& failure) {
        *error = tr("%1: %2").arg(file, failure.text());
        return std::nullopt;
    }
}

const FlowModule* Flow::module(ZelCore::UInt id) const
{
    const auto found = std::find_if(m_modules.cbegin(), m_modules.cend(),
                                    [id](const FlowModule& module) { return module.id == id; });
    return found == m_modules.cend() ? nullptr : &*found;
}

ZelCore::UInt Flow::firstIfId() const
{
    const auto found = std::find_if(m_modules.cbegin(), m_modules.cend(),
                                    [](const FlowModule& module) { return module.kind == ifKind(); });
    return found == m_modules.cend() ? 0 : found->id;
}

bool Flow::isBefore(ZelCore::UInt first, ZelCore::UInt second) const
{
    return module(first) < module(second);
}

const FlowOutput* Flow::output(const QString& subscribeName, ZelCore::UInt* moduleId) const
{
    const QStringList path = subscribeName.split(QLatin1Char('.'));
    *moduleId = path.first().toUInt();
    const FlowModule* const owner = module(*moduleId);
    const QVector<FlowOutput>* outputs = owner ? &owner->outputs : nullptr;
    const FlowOutput* found = nullptr;
    for (int i = 1; i < path.size() && outputs; ++i) {
        const auto it = std::find_if(outputs->cbegin(), outputs->cend(),
                                     [&path, i](const FlowOutput& output) { return output.name == path[i]; });
        found = it == outputs->cend() ? nullptr : &*it;
        outputs = found ? &found->children : nullptr;
    }
    return found && found->subscribeName == subscribeName ? found : nullptr;
}
