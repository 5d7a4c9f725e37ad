#include "Flow.h"

#include "CoreError.h"

#include <QCoreApplication>
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

QString tr(const char* text)
{
    return QCoreApplication::translate("Flow", text);
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
    return value.isDouble() && number == std::trunc(number) &&
           std::abs(number) <= std::numeric_limits<int>::max();
}

/// Walks the JSON of a flow; what it does not expect it throws, with the place.
class Reader
{
public:
    QVector<FlowModule> modules(const QJsonValue& value) const
    {
        QVector<FlowModule> result;
        QSet<ZelCore::UInt> ids;
        const QJsonArray array = arrayOf(value, QStringLiteral("modules"));
        for (int i = 0; i < array.size(); ++i) {
            const QString place = QStringLiteral("modules[%1]").arg(i);
            const QJsonObject object = objectOf(array[i], place);
            FlowModule module;
            module.id = idOf(object.value(QStringLiteral("id")), place + QStringLiteral(".id"));
            if (ids.contains(module.id)) {
                expect(place + QStringLiteral(".id"), tr("an id that no other module has"));
            }
            ids.insert(module.id);
            module.name = nameOf(object, place);
            module.kind = textOf(object.value(QStringLiteral("kind")), place + QStringLiteral(".kind"));
            if (object.contains(QStringLiteral("outputs"))) {
                module.outputs = outputs(object, place, module.id, {});
            }
            result << module;
        }
        return result;
    }

    static QJsonObject objectOf(const QJsonValue& value, const QString& place)
    {
        return value.isObject() ? value.toObject() : (expect(place, tr("an object")), QJsonObject());
    }

    static QString textOf(const QJsonValue& value, const QString& place)
    {
        if (value.toString().isEmpty()) {
            expect(place, tr("a text that is not empty"));
        }
        return value.toString();
    }

private:
    [[noreturn]] static void expect(const QString& place, const QString& what)
    {
        throw CoreError(tr("%1: expected %2").arg(place, what));
    }

    static QJsonArray arrayOf(const QJsonValue& value, const QString& place)
    {
        return value.isArray() ? value.toArray() : (expect(place, tr("a list")), QJsonArray());
    }

    static ZelCore::UInt idOf(const QJsonValue& value, const QString& place)
    {
        if (!isValueOf(QStringLiteral("int"), value) || value.toInt() < 1) {
            expect(place, tr("a whole number from 1 to 2147483647"));
        }
        return static_cast<ZelCore::UInt>(value.toInt());
    }

    static QString nameOf(const QJsonObject& object, const QString& place)
    {
        const QString key = place + QStringLiteral(".name");
        const QString name = textOf(object.value(QStringLiteral("name")), key);
        if (name.toUtf8().size() > longestName) {
            expect(key, tr("at most %1 bytes of UTF-8").arg(longestName));
        }
        return name;
    }

    QVector<FlowOutput> outputs(const QJsonObject& owner, const QString& ownerPlace, ZelCore::UInt moduleId,
                                const QStringList& path) const
    {
        const QString place = ownerPlace + QStringLiteral(".outputs");
        if (path.size() >= deepestNesting) {
            expect(place, tr("at most %1 levels of outputs").arg(deepestNesting));
        }
        QVector<FlowOutput> result;
        QSet<QString> names;
        const QJsonArray array = arrayOf(owner.value(QStringLiteral("outputs")), place);
        for (int i = 0; i < array.size(); ++i) {
            const QString itemPlace = QStringLiteral("%1[%2]").arg(place).arg(i);
            const FlowOutput item = output(objectOf(array[i], itemPlace), itemPlace, moduleId, path);
            if (names.contains(item.name)) {
                expect(itemPlace + QStringLiteral(".name"), tr("a name that no output beside it has"));
            }
            names.insert(item.name);
            result << item;
        }
        return result;
    }

    FlowOutput output(const QJsonObject& object, const QString& place, ZelCore::UInt moduleId,
                      QStringList path) const
    {
        FlowOutput item;
        item.name = nameOf(object, place);
        if (item.name.contains(QLatin1Char('.'))) {
            expect(place + QStringLiteral(".name"), tr("a name without \".\""));
        }
        path << item.name;
        if (object.contains(QStringLiteral("outputs"))) {
            item.children = outputs(object, place, moduleId, path);
            return item;
        }
        item.type = object.value(QStringLiteral("type")).toString();
        if (!QStringList{"int", "float", "string", "bool"}.contains(item.type)) {
            expect(place + QStringLiteral(".type"),
                   tr("\"int\", \"float\", \"string\" or \"bool\", or outputs"));
        }
        item.value = object.value(QStringLiteral("value"));
        if (item.value.isUndefined()) {
            item.value = QJsonValue::Null;
        } else if (!isValueOf(item.type, item.value)) {
            expect(place + QStringLiteral(".value"), tr("a value of type \"%1\"").arg(item.type));
        }
        if (Flow::subscribeName(moduleId, path).toUtf8().size() > longestSubscribeName) {
            expect(place, tr("names that together stay within %1 bytes of UTF-8").arg(longestSubscribeName));
        }
        return item;
    }
};

// Line and column, from 1, of a byte of a text.
QString placeOf(const QByteArray& bytes, int offset)
{
    const QByteArray before = bytes.left(offset);
    return tr("line %1, column %2").arg(before.count('\n') + 1).arg(offset - before.lastIndexOf('\n'));
}

} // namespace

std::optional<Flow> Flow::load(const QString& file, QString* error)
{
    try {
        QFile source(file);
        if (!source.open(QIODevice::ReadOnly)) {
            throw CoreError(source.errorString());
        }
        const QByteArray bytes = source.readAll();
        QJsonParseError parseError;
        const QJsonDocument document = QJsonDocument::fromJson(bytes, &parseError);
        if (parseError.error != QJsonParseError::NoError) {
            throw CoreError(tr("%1: expected JSON (%2)")
                                .arg(placeOf(bytes, parseError.offset), parseError.errorString()));
        }
        const QJsonObject root = Reader::objectOf(document.isObject() ? QJsonValue(document.object())
                                                                      : QJsonValue(document.array()),
                                                  tr("the whole file"));
        Flow flow;
        flow.m_name = Reader::textOf(root.value(QStringLiteral("name")), QStringLiteral("name"));
        flow.m_modules = Reader().modules(root.value(QStringLiteral("modules")));
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

bool Flow::isBefore(ZelCore::UInt first, ZelCore::UInt second) const
{
    return module(first) < module(second);
}

QString Flow::subscribeName(ZelCore::UInt moduleId, const QStringList& path)
{
    return QString::number(moduleId) + QLatin1Char('.') + path.join(QLatin1Char('.'));
}

const FlowOutput* Flow::output(const QString& subscribeName, ZelCore::UInt* moduleId) const
{
    const QStringList path = subscribeName.split(QLatin1Char('.'));
    bool isNumber = false;
    *moduleId = path.first().toUInt(&isNumber);
    const FlowModule* const owner = isNumber ? module(*moduleId) : nullptr;
    const QVector<FlowOutput>* outputs = owner ? &owner->outputs : nullptr;
    const FlowOutput* found = nullptr;
    for (int i = 1; i < path.size() && outputs; ++i) {
        const auto it = std::find_if(outputs->cbegin(), outputs->cend(),
                                     [&path, i](const FlowOutput& output) { return output.name == path[i]; });
        found = it == outputs->cend() ? nullptr : &*it;
        outputs = found ? &found->children : nullptr;
    }
    return found && !found->isGroup() ? found : nullptr;
}
