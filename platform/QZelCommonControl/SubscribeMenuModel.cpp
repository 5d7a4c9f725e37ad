#include "SubscribeMenuModel.h"

#include <QJsonObject>

#include <algorithm>

namespace {
constexpr int root = 0;
constexpr int notBound = 1;
} // namespace

SubscribeMenuModel::SubscribeMenuModel(QObject* parent)
    : QAbstractItemModel(parent)
{
    setMenu({});
}

void SubscribeMenuModel::setMenu(const QJsonArray& menu)
{
    m_nodes.clear();
    m_nodes.resize(2);
    m_nodes[root].isTitle = true;
    m_nodes[notBound].label = tr("not bound");
    m_nodes[notBound].parent = root;

    // Without recursion: how deep a menu is, is its sender's choice.
    struct Pending
    {
        QJsonArray entries;
        int next;
        int parent;
    };
    QVector<Pending> pending = {{menu, 0, root}};
    while (!pending.isEmpty()) {
        Pending& level = pending.last();
        if (level.next == level.entries.size()) {
            pending.removeLast();
            continue;
        }
        const QJsonObject entry = level.entries.at(level.next++).toObject();
        Node node;
        node.label = entry.value(QLatin1String("label")).toString();
        node.subscribeName = entry.value(QLatin1String("subscribeName")).toString();
        // What has nothing to report can't be chosen: it would read as "not bound".
        node.isTitle = entry.value(QLatin1String("isTitle")).toBool() || node.subscribeName.isEmpty();
        node.parent = level.parent;
        m_nodes << node;
        if (node.isTitle) {
            pending << Pending{entry.value(QLatin1String("subnodes")).toArray(), 0, m_nodes.size() - 1};
        }
    }
    setFilter({});
}

void SubscribeMenuModel::setFilter(const QString& filter)
{
    beginResetModel();
    m_words = filter.split(QLatin1Char(' '), Qt::SkipEmptyParts);
    m_leafCount = 0;
    for (Node& node : m_nodes) {
        node.row = -1;
        node.children.clear();
    }
    if (m_words.isEmpty()) {
        show(notBound);
    }
    for (int i = notBound + 1; i < m_nodes.size(); ++i) {
        if (m_nodes[i].isTitle) {
            continue;
        }
        const QString path = m_words.isEmpty() ? QString() : pathOf(i).join(QLatin1Char(' '));
        if (std::all_of(m_words.cbegin(), m_words.cend(),
                        [&path](const QString& word) { return path.contains(word, Qt::CaseInsensitive); })) {
            show(i);
            ++m_leafCount;
        }
    }
    endResetModel();
}

void SubscribeMenuModel::show(int node)
{
    // Groups that are shown already have their place.
    for (int child = node; child != root && m_nodes[child].row < 0; child = m_nodes[child].parent) {
        QVector<int>& siblings = m_nodes[m_nodes[child].parent].children;
        m_nodes[child].row = siblings.size();
        siblings << child;
    }
}

const SubscribeMenuModel::Node& SubscribeMenuModel::nodeOf(const QModelIndex& index) const
{
    return m_nodes[index.isValid() ? static_cast<int>(index.internalId()) : root];
}

QModelIndex SubscribeMenuModel::indexOf(int node) const
{
    return node == root || m_nodes[node].row < 0
               ? QModelIndex()
               : createIndex(m_nodes[node].row, 0, static_cast<quintptr>(node));
}

QStringList SubscribeMenuModel::pathOf(int node) const
{
    QStringList path;
    for (; node != root; node = m_nodes[node].parent) {
        path.prepend(m_nodes[node].label);
    }
    return path;
}

QModelIndex SubscribeMenuModel::find(const QString& subscribeName) const
{
    for (int i = notBound; i < m_nodes.size(); ++i) {
        if (!m_nodes[i].isTitle && m_nodes[i].subscribeName == subscribeName) {
            return indexOf(i);
        }
    }
    return {};
}

QModelIndex SubscribeMenuModel::index(int row, int column, const QModelIndex& parent) const
{
    return hasIndex(row, column, parent)
               ? createIndex(row, column, static_cast<quintptr>(nodeOf(parent).children[row]))
               : QModelIndex();
}

QModelIndex SubscribeMenuModel::parent(const QModelIndex& index) const
{
    return index.isValid() ? indexOf(nodeOf(index).parent) : QModelIndex();
}

int SubscribeMenuModel::rowCount(const QModelIndex& parent) const
{
    return nodeOf(parent).children.size();
}

int SubscribeMenuModel::columnCount(const QModelIndex&) const
{
    return 1;
}

QVariant SubscribeMenuModel::data(const QModelIndex& index, int role) const
{
    const Node& node = nodeOf(index);
    switch (role) {
    case Qt::DisplayRole:
        return node.label;
    case Qt::ToolTipRole:
        return node.isTitle || node.subscribeName.isEmpty()
                   ? QString()
                   : pathOf(static_cast<int>(index.internalId())).join(QStringLiteral(" / ")) +
                         QLatin1Char('\n') + node.subscribeName;
    case SubscribeNameRole:
        return node.subscribeName;
    default:
        return {};
    }
}

Qt::ItemFlags SubscribeMenuModel::flags(const QModelIndex& index) const
{
    if (!index.isValid()) {
        return Qt::NoItemFlags;
    }
    return nodeOf(index).isTitle ? Qt::ItemIsEnabled
                                 : Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemNeverHasChildren;
}
