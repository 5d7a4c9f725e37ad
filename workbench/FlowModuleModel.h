#pragma once

#include "EmbeddedCore/Flow.h"

#include <QAbstractListModel>

/// The modules of a flow in the order in which they run: id and name, the kind below.
class FlowModuleModel : public QAbstractListModel
{
    Q_OBJECT

public:
    /// The flow must outlive the model.
    explicit FlowModuleModel(const Flow& flow, QObject* parent = nullptr);

    const FlowModule& moduleAt(const QModelIndex& index) const { return m_flow.modules().at(index.row()); }
    QModelIndex indexOf(unsigned int moduleId) const;

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;

private:
    const Flow& m_flow;
};
