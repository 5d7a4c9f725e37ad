#include "SubscribeTree.h"

#include <algorithm>

using namespace ZelCore;

namespace {

bool offers(const FlowOutput& output, const QStringList& types)
{
    return output.isGroup() ? std::any_of(output.children.cbegin(), output.children.cend(),
                                          [&types](const FlowOutput& child) { return offers(child, types); })
                            : types.isEmpty() || types.contains(output.type);
}

void fill(SUBSCRIBE_NODE__& node, UInt moduleId, const QString& name, const QVector<FlowOutput>& outputs,
          const QStringList& path, const QStringList& types)
{
    node.ModuleID = moduleId;
    FillText(node.NodeName, name.toUtf8().constData());

    QVector<const FlowOutput*> offered;
    for (const FlowOutput& output : outputs) {
        if (offers(output, types)) {
            offered << &output;
        }
    }
    node.CreateList(static_cast<UInt>(offered.size()));
    for (int i = 0; i < offered.size(); ++i) {
        const FlowOutput& output = *offered[i];
        SUBSCRIBE_NODE__& child = node.Items()[i];
        const QStringList childPath = path + QStringList(output.name);
        fill(child, moduleId, output.name, output.children, childPath, types);
        if (!output.isGroup()) {
            FillText(child.SubscribeName, Flow::subscribeName(moduleId, childPath).toUtf8().constData());
        }
    }
}

bool includes(SUBSCRIBE_RANGE range, SUBSCRIBE_RANGE part)
{
    return (static_cast<int>(range) & static_cast<int>(part)) != 0;
}

} // namespace

bool SubscribeTree::isRange(int range)
{
    const auto known = {PreModules,           CurModule,    PreAndCur,    InternalModules,   InternalAndCur,
                        PreAndInternalAndCur, ParentModule, ParentAndPre, ParentAndPreAndCur};
    return std::any_of(known.begin(), known.end(), [range](SUBSCRIBE_RANGE each) { return each == range; });
}

SUBSCRIBE_TREE__ SubscribeTree::build(const Flow& flow, UInt moduleId, SUBSCRIBE_RANGE range,
                                      const QStringList& types)
{
    QVector<const FlowModule*> modules;
    for (const FlowModule& module : flow.modules()) {
        const bool inRange = module.id == moduleId
                                 ? includes(range, CurModule)
                                 : includes(range, PreModules) && flow.isBefore(module.id, moduleId);
        const bool offersAny =
            std::any_of(module.outputs.cbegin(), module.outputs.cend(),
                        [&types](const FlowOutput& output) { return offers(output, types); });
        if (inRange && offersAny) {
            modules << &module;
        }
    }

    SUBSCRIBE_TREE__ tree;
    tree.CreateList(static_cast<UInt>(modules.size()));
    for (int i = 0; i < modules.size(); ++i) {
        fill(tree.Items()[i], modules[i]->id, modules[i]->name, modules[i]->outputs, {}, types);
    }
    return tree;
}
