#include "Flow.h"

#include "JsonNode.h"
#include "TextError.h"

#include <QSet>

#include <algorithm>

namespace {

// What the fixed-width fields of a subscription record hold, in bytes of UTF-8.
constexpr int longestName = 127;
constexpr int longestSubscribeName = 255;
constexpr int deepestNesting = 64;

QString nameOf(const JsonNode& node)
{
    const JsonNode name = node.member("name");
    QString text = name.text();
    name.expect(text.toUtf8().size() <= longestName, Flow::tr("at most %1 bytes of UTF-8").arg(longestName));
    return text;
}

bool isValueOf(const QString& type, const QJsonValue& value)
{
    return type == "string"  ? value.isString()
           : type == "bool"  ? value.isBool()
           : type == "float" ? value.isDouble()
                             : value == value.toInt();
}

// Type, sample and column of an output that is no group.
void readValue(FlowOutput& output, const JsonNode& node)
{
    const JsonNode type = node.member("type");
    output.type = type.value.toString();
    type.expect(QStringList{"int", "float", "string", "bool"}.contains(output.type),
                Flow::tr(R"("int", "float", "string" or "bool", or outputs)"));
    if (node.has("value")) {
        const JsonNode sample = node.member("value");
        output.value = sample.value;
        sample.expect(isValueOf(output.type, output.value),
                      Flow::tr("a value of type \"%1\"").arg(output.type));
    }
    if (node.has("column")) {
        output.column = node.member("column").text();
    }
    node.expect(output.subscribeName.toUtf8().size() <= longestSubscribeName,
                Flow::tr("names that together stay within %1 bytes of UTF-8").arg(longestSubscribeName));
}

// path is the subscribe text that leads to the outputs.
QVector<FlowOutput> outputsOf(const JsonNode& node, const QString& path, int level = 1)
{
    node.expect(level <= deepestNesting, Flow::tr("at most %1 levels of outputs").arg(deepestNesting));
    QVector<FlowOutput> outputs;
    QSet<QString> names;
    for (const JsonNode& item : node.items()) {
        const bool isGroup = item.has("outputs");
        item.expectObject(isGroup ? QStringList{"name", "outputs"}
                                  : QStringList{"name", "type", "value", "column"});
        FlowOutput output;
        output.name = nameOf(item);
        item.member("name").expect(!output.name.contains('.') && !names.contains(output.name),
                                   Flow::tr("a name without \".\" that no output of the group has"));
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

QVector<FlowModule> modulesOf(const JsonNode& node)
{
    QVector<FlowModule> modules;
    QSet<ZelCore::UInt> ids;
    for (const JsonNode& item : node.items()) {
        item.expectObject({"id", "name", "kind", "outputs"});
        const JsonNode id = item.member("id");
        FlowModule module;
        module.id = static_cast<ZelCore::UInt>(id.value.toInt());
        id.expect(id.value.toInt() >= 1 && !ids.contains(module.id), // toInt() is 0 for anything else
                  Flow::tr("a whole number from 1 to 2147483647 that no other module has"));
        ids << module.id;
        module.name = nameOf(item);
        module.kind = item.member("kind").text();
        if (item.has("outputs")) {
            module.outputs = outputsOf(item.member("outputs"), QString::number(module.id));
        }
        modules << module;
    }
    return modules;
}

} // namespace

std::optional<Flow> Flow::load(const QString& file, QString* error)
{
    const auto read = [&file] {
        const JsonNode root = JsonNode::ofFile(file);
        root.expectObject({"name", "modules"});
        Flow flow;
        flow.m_name = root.member("name").text();
        flow.m_modules = modulesOf(root.member("modules"));
        return std::optional(flow);
    };
    return attempt(error, read, file + ": ");
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
