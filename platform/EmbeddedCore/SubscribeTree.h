#pragma once

#include "Flow.h"
#include "core_client/Records.h"

#include <QStringList>

namespace SubscribeTree {

/// Whether the number is a range of the catalogue.
bool isRange(int range);

/// What a module of the flow may subscribe to: per module of the range a node, in flow order, with its
/// outputs of the types, nested as the flow nests them; groups without such an output are left out. No
/// types stand for every type. Inner and parent modules, which a flow does not have, offer nothing.
ZelCore::SUBSCRIBE_TREE__ build(const Flow& flow, ZelCore::UInt moduleId, ZelCore::SUBSCRIBE_RANGE range,
                                const QStringList& types);

} // namespace SubscribeTree
