#include "SubscribeTree.h"

#include <algorithm>
#include <iterator>

using namespace ZelCore;

namespace {

bool isOffered(const FlowOutput& output, const QStringList& types)
{
    const QVector<FlowOutput>& children = output.children;
    return output.isGroup()
               ? std::any_of(children.cbegin(), children.cend(),
                             [&types](const FlowOutput& child) { return isOffered(child, types); })
               : types.isEmpty() || types.contains(output.type);
}

// Fills records where they lie: copies of them are deep.
void fill(ZEL_VALUE_CONTAINER__<SUBSCRIBE_NODE__>& list, UInt moduleId, const QVector<FlowOutput>& outputs,
          const QStringList& types)
{
    QVector<FlowOutput> offered;
    std::copy_if(outputs.cbegin(), outputs.cend(), std::back_inserter(offered),
                 [&types](const FlowOutput& output) { return isOffered(output, types); });
    list.CreateList(static_cast<UInt>(offered.size()));
    SUBSCRIBE_NODE__* node = list.Items();
    for (const FlowOutput& output : qAsConst(offered)) {
        node->ModuleID = moduleId;
        FillText(node->NodeName, output.name.toUtf8().constData());
        FillText(node->SubscribeName, output.subscribeName.toUtf8().constData());
        fill(*node++, moduleId, output.children, types);
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
    return std::find(known.begin(), known.end(), range) != known.end();
}

SUBSCRIBE_TREE__ SubscribeTree::build(const Flow& flow, UInt moduleId, SUBSCRIBE_RANGE range,
                                      const QStringList& types)
{
    QVector<const FlowModule*> offering;
    for (const FlowModule& module : flow.modules()) {
        const bool isCurrent = module.id == moduleId;
        if (includes(range, isCurrent ? CurModule : PreModules) &&
            isOffered({{}, {}, {}, {}, {}, module.outputs}, types)) {
            offering << &module;
        }
        if (isCurrent) {
            break;
        }
    }

    SUBSCRIBE_TREE__ tree;
    tree.CreateList(static_cast<UInt>(offering.size()));
    SUBSCRIBE_NODE__* node = tree.Items();
    for (const FlowModule* const module : qAsConst(offering)) {
        node->ModuleID = module->id;
        FillText(node->NodeName, module->name.toUtf8().constData());
        fill(*node++, module->id, module->outputs, types);
    }
    return tree;
}
