#include "SubscribeTree.h"

#include <algorithm>
#include <vector>

using namespace ZelCore;

namespace {

/// An output that is offered, or a group of such.
struct Offer
{
    const FlowOutput* output;
    std::vector<Offer> children;
};

std::vector<Offer> offersOf(const QVector<FlowOutput>& outputs, const QStringList& types)
{
    std::vector<Offer> offers;
    for (const FlowOutput& output : outputs) {
        Offer offer = {&output, offersOf(output.children, types)};
        if (output.isGroup() ? !offer.children.empty() : types.isEmpty() || types.contains(output.type)) {
            offers.push_back(std::move(offer));
        }
    }
    return offers;
}

// Fills records where they lie: copies of them are deep.
void fill(ZEL_VALUE_CONTAINER__<SUBSCRIBE_NODE__>& list, UInt moduleId, const std::vector<Offer>& offers)
{
    list.CreateList(static_cast<UInt>(offers.size()));
    SUBSCRIBE_NODE__* node = list.Items();
    for (const auto& [output, children] : offers) {
        node->ModuleID = moduleId;
        FillText(node->NodeName, output->name.toUtf8().constData());
        FillText(node->SubscribeName, output->subscribeName.toUtf8().constData());
        fill(*node++, moduleId, children);
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
    std::vector<std::pair<const FlowModule*, std::vector<Offer>>> offering;
    for (const FlowModule& module : flow.modules()) {
        const bool isCurrent = module.id == moduleId;
        if (includes(range, isCurrent ? CurModule : PreModules)) {
            auto offers = offersOf(module.outputs, types);
            if (!offers.empty()) {
                offering.emplace_back(&module, std::move(offers));
            }
        }
        if (isCurrent) {
            break;
        }
    }

    SUBSCRIBE_TREE__ tree;
    tree.CreateList(static_cast<UInt>(offering.size()));
    SUBSCRIBE_NODE__* node = tree.Items();
    for (const auto& [module, offers] : offering) {
        node->ModuleID = module->id;
        FillText(node->NodeName, module->name.toUtf8().constData());
        fill(*node++, module->id, offers);
    }
    return tree;
}
