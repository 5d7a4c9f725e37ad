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

/// A value of the file and where it stands. What reads it throws CoreError, with the place, when it is
/// something else.
struct Node
{
    QJsonValue value;
    QString place;

    [[noreturn]] void expect(const QString& what) const
    {
        throw CoreError(Flow::tr("%1: expected %2").arg(place, what));
    }

    bool has(const QString& key) const { return value.toObject().contains(key); }

    Node member(const QString& key) const { return {value.toObject().value(key), place + '.' + key}; }

    // A key that is misspelt would be a value that is missing.
    void checkObject(const QStringList& keys) const
    {
        if (!value.isObject()) {
            expect(Flow::tr("an object"));
        }
        for (const QString& key : value.toObject().keys()) {
            if (!keys.contains(key)) {
                throw CoreError(
                    Flow::tr("%1: unknown key \"%2\", expected %3").arg(place, key, keys.join(", ")));
            }
        }
    }

    QVector<Node> items() const
    {
        if (!value.isArray()) {
            expect(Flow::tr("a list"));
        }
        QVector<Node> items;
        for (const QJsonValue item : value.toArray()) {
            items.append({item, QString("%1[%2]").arg(place).arg(items.size())});
        }
        return items;
    }

    QString text() const
    {
        if (value.toString().isEmpty()) {
            expect(Flow::tr("a text that is not empty"));
        }
        return value.toString();
    }

    QString name() const
    {
        QString name = member("name").text();
        if (name.toUtf8().size() > longestName) {
            member("name").expect(Flow::tr("at most %1 bytes of UTF-8").arg(longestName));
        }
        return name;
    }
};

bool isValueOf(const QString& type, const QJsonValue& value)
{
    if (type == "string") {
        return value.isString();
    }
    if (type == "bool") {
        return value.isBool();
    }
    if (type == "float") {
        return value.isDouble();
    }
    const double number = value.toDouble();
    return value.isDouble() && number == std::trunc(number) && number >= std::numeric_limits<int>::min() &&
           number <= std::numeric_limits<int>::max();
}

// Type, sample and column of an output that is no group.
void readValue(FlowOutput& output, const Node& node)
{
    output.type = node.member("type").value.toString();
    if (!QStringList{"int", "float", "string", "bool"}.contains(output.type)) {
        node.member("type").expect(Flow::tr(R"("int", "float", "string" or "bool", or outputs)"));
    }
    if (node.has("value")) {
        output.value = node.member("value").value;
        if (!isValueOf(output.type, output.value)) {
            node.member("value").expect(Flow::tr("a value of type \"%1\"").arg(output.type));
        }
    }
    if (node.has("column")) {
        output.column = node.member("column").text();
    }
    if (output.subscribeName.toUtf8().size() > longestSubscribeName) {
        node.expect(Flow::tr("names that together stay within %1 bytes of UTF-8").arg(longestSubscribeName));
    }
}

// path is the subscribe text that leads to the outputs.
QVector<FlowOutput> outputsOf(const Node& node, const QString& path, int level = 1)
{
    if (level > deepestNesting) {
        node.expect(Flow::tr("at most %1 levels of outputs").arg(deepestNesting));
    }
    QVector<FlowOutput> outputs;
    QSet<QString> names;
    for (const Node& item : node.items()) {
        const bool isGroup = item.has("outputs");
        item.checkObject(isGroup ? QStringList{"name", "outputs"}
                                 : QStringList{"name", "type", "value", "column"});
        FlowOutput output;
        output.name = item.name();
        if (output.name.contains('.') || names.contains(output.name)) {
            item.member("name").expect(Flow::tr("a name without \".\" that no output of the group has"));
        }
        names << output.name;
        const QString outputPath = path + '.' + output.name;
        if (isGroup) {
            output.children = outputsOf(item.member("outputs"), outputPath, level + 1);
        } else {
            output.subscribeName = outputPath;
            readValue(output, item);
        }
        outputs << output;
    }
    return outputs;
}

QVector<FlowModule> modulesOf(const Node& node)
{
    QVector<FlowModule> modules;
    QSet<ZelCore::UInt> ids;
    for (const Node& item : node.items()) {
        item.checkObject({"id", "name", "kind", "outputs"});
        const Node id = item.member("id");
        FlowModule module;
        module.id = static_cast<ZelCore::UInt>(id.value.toInt());
        if (!isValueOf("int", id.value) || id.value.toInt() < 1 || ids.contains(module.id)) {
            id.expect(Flow::tr("a whole number from 1 to 2147483647 that no other module has"));
        }
        ids << module.id;
        module.name = item.name();
        module.kind = item.member("kind").text();
        if (item.has("outputs")) {
            module.outputs = outputsOf(item.member("outputs"), QString::number(module.id));
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
        const QString place = placeOf(bytes, std::max(error.offset - 1, 0));
        Node{{}, place}.expect(Flow::tr("JSON (%1)").arg(error.errorString()));
    }
    return document.isObject() ? QJsonValue(document.object()) : QJsonValue(document.array());
}

} // namespace

std::optional<Flow> Flow::load(const QString& file, QString* error)
{
    try {
        QFile source(file);
        require(source.open(QIODevice::ReadOnly), source.errorString());
        const QJsonValue root = parsed(source.readAll());
        Node{root, tr("the whole file")}.checkObject({"name", "modules"});
        Flow flow;
        flow.m_name = Node{root.toObject()["name"], "name"}.text();
        flow.m_modules = modulesOf({root.toObject()["modules"], "modules"});
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
