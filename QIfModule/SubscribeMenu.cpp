#include "SubscribeMenu.h"

#include "condition/ConditionName.h"

using namespace ZelCore;

namespace {

const QString labelKey = QStringLiteral("label");
const QString isTitleKey = QStringLiteral("isTitle");
const QString levelKey = QStringLiteral("level");
const QString subscribeNameKey = QStringLiteral("subscribeName");
const QString subnodesKey = QStringLiteral("subnodes");

QJsonObject leaf(const SUBSCRIBE_NODE__& node, int level)
{
    return {{labelKey, ToQString(TextOf(node.NodeName))},
            {isTitleKey, false},
            {levelKey, level},
            {subscribeNameKey, ToQString(TextOf(node.SubscribeName))}};
}

} // namespace

void SubscribeMenu::ParseTreeNode(const SUBSCRIBE_NODE__& node, QJsonObject& out, int level)
{
    QJsonArray subnodes;
    const SUBSCRIBE_NODE__* const children = node.Items();
    for (UInt i = 0; i < node.Num(); ++i) {
        if (children[i].Num() > 0) {
            QJsonObject group;
            ParseTreeNode(children[i], group, level + 1);
            subnodes.append(group);
        } else {
            subnodes.append(leaf(children[i], level + 1));
        }
    }

    const QString name = ToQString(TextOf(node.NodeName));
    out[labelKey] = level == 1 ? QString::number(node.ModuleID) + QLatin1Char(' ') + name : name;
    out[isTitleKey] = true;
    out[levelKey] = level;
    out[subnodesKey] = subnodes;
}

std::optional<QJsonArray> SubscribeMenu::query(int moduleId, const QString& conditionName,
                                               const QString& askedType)
{
    const QByteArray type = ConditionName::subscribedType(conditionName, askedType).toUtf8();
    const SUBSCRIBE_CONDITION__ condition(static_cast<UInt>(moduleId), type.constData());
    SUBSCRIBE_TREE__ tree;
    QueryCommand<SUBSCRIBE_CONDITION__, SUBSCRIBE_TREE__> command(condition, &tree);
    if (!IsSuccess(ExecuteCommand(command))) {
        return std::nullopt;
    }

    QJsonArray menu;
    for (UInt i = 0; i < tree.Num(); ++i) {
        QJsonObject module;
        ParseTreeNode(tree.Items()[i], module, 1);
        if (!module.value(subnodesKey).toArray().isEmpty()) {
            menu.append(module);
        }
    }
    return menu;
}
