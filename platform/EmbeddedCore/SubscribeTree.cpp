#include "SubscribeTree.h"

#include <algorithm>
#include <iterator>
#include <utility>

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
void fill(SUBSCRIBE_NODE__& node, UInt moduleId, const FlowOutput& output, const QStringList& types)
{
    node.ModuleID = moduleId;
    FillText(node.NodeName, output.name.toUtf8().constData());
    FillText(node.SubscribeName, output.subscribeName.toUtf8().constData());
    QVector<FlowOutput> offered;
    std::copy_if(output.children.cbegin(), output.children.cend(), std::back_inserter(offered),
                 [&types](const FlowOutput& child) { return isOffered(child, types); });
    node.CreateList(static_cast<UInt>(offered.size()));
    int place = 0;
    for (const FlowOutput& child : qAsConst(offered)) {
        fill(node.At(place++), moduleId, child, types);
    }
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
    QVector<std::pair<UInt, FlowOutput>> offering;
    for (const FlowModule& module : flow.modules()) {
        const bool isCurrent = module.id == moduleId;
        const FlowOutput group = {module.name, {}, {}, {}, {}, module.outputs};
        if ((range & (isCurrent ? CurModule : PreModules)) != 0 && isOffered(group, types)) {
            offering << std::pair(module.id, group);
        }
        if (isCurrent) {
            break;
        }
    }

    SUBSCRIBE_TREE__ tree;
    tree.CreateList(static_cast<UInt>(offering.size()));
    int place = 0;
    for (const auto& [id, group] : qAsConst(offering)) {
        fill(tree.At(place++), id, group, types);
    }
    return tree;
}
