#pragma once

#include "condition/ConditionRecord.h"

class QWidget;

namespace ShownConditions {

/// The conditions as a panel shows them, in its order, read from its widgets by their object names. Those
/// of a name without a type word have no bounds: 0.
QList<ConditionRecord> read(const QWidget& panel);

} // namespace ShownConditions
