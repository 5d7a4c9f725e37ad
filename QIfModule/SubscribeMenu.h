#pragma once

#include "core_client/core_client.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QString>

#include <optional>

/// The menu of a subscription selector: what the core offers, as the JSON that the selector takes.
namespace SubscribeMenu {

/// Fills out with the menu object of a group node, its children included. Level 1 is the top.
void ParseTreeNode(const ZelCore::SUBSCRIBE_NODE__& node, QJsonObject& out, int level);

/// Asks the core for the values of earlier modules that a condition may subscribe to. askedType is used
/// only when the condition's name has no type word. Nothing when the core fails.
std::optional<QJsonArray> query(int moduleId, const QString& conditionName, const QString& askedType);

} // namespace SubscribeMenu
