#include "FlowModuleModel.h"

FlowModuleModel::FlowModuleModel(const Flow& flow, QObject* parent)
    : QAbstractListModel(parent)
    , m_flow(flow)
{}

QModelIndex FlowModuleModel::indexOf(unsigned int moduleId) const
{
    const FlowModule* const module = m_flow.module(moduleId);
    return module ? index(static_cast<int>(module - m_flow.modules().constData())) : QModelIndex();
}

int FlowModuleModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : m_flow.modules().size();
}

QVariant FlowModuleModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid() || role != Qt::DisplayRole) {
        return {};
    }
    const FlowModule& module = moduleAt(index);
    return QStringLiteral("%1  %2\n%3").arg(module.id).arg(module.name, module.kind);
}
