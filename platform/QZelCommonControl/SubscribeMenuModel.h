#pragma once

#include <QAbstractItemModel>
#include <QJsonArray>
#include <QJsonObject>
#include <QStringList>
#include <QVector>

#include <vector>

/// The menu of a subscription selector as a tree: an entry for "not bound", then the groups and leaves of
/// the menu JSON in their order. A filter leaves the leaves that match, with their groups.
///
/// Groups can't be selected. A leaf's tool tip tells its whole path and its subscribe text.
class SubscribeMenuModel : public QAbstractItemModel
{
    Q_OBJECT

public:
    enum Role {
        /// The text that a choice of the entry reports; empty for "not bound".
        SubscribeNameRole = Qt::UserRole
    };

    explicit SubscribeMenuModel(QObject* parent = nullptr);

    void setMenu(const QJsonArray& menu);
    /// Keeps leaves in whose path each of the blank-separated words occurs, in any case.
    void setFilter(const QString& filter);

    /// Whether there is a leaf beside "not bound".
    bool hasLeaves() const { return m_leafCount > 0; }
    /// The entry with a subscribe text; an invalid index when none is shown.
    QModelIndex find(const QString& subscribeName) const;

    QModelIndex index(int row, int column, const QModelIndex& parent = {}) const override;
    QModelIndex parent(const QModelIndex& index) const override;
    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

private:
    struct Node
    {
        // Its texts are read when they are asked for: most of a large menu is never looked at.
        QJsonObject entry;
        bool isTitle = false;
        int parent = -1;
        // In the filtered tree.
        int row = -1;
        QVector<int> children;
    };

    const Node& nodeOf(const QModelIndex& index) const;
    int count() const { return static_cast<int>(m_nodes.size()); }
    QModelIndex indexOf(int node) const;
    QString labelOf(int node) const;
    QString subscribeNameOf(int node) const;
    QStringList pathOf(int node) const;
    void show(int node);

    // The root first, "not bound" second, every parent before its children.
    std::vector<Node> m_nodes;
    QString m_notBound;
    QStringList m_words;
    int m_leafCount = 0;
};
