#include "SubscribeMenuModel.h"

#include <algorithm>
#include <utility>

namespace {
constexpr int root = 0;
constexpr int notBound = 1;
const QLatin1String labelKey("label");
const QLatin1String subscribeNameKey("subscribeName");
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
    m_notBound = tr("not bound");
    m_nodes[notBound].parent = root;

    // Without recursion: how deep a menu is, is its sender's choice.
    struct Pending
    {
        QJsonArray entries;
        int next;
        int parent;
    };
    const QJsonValue nothing{QString()};
    QVector<Pending> pending = {{menu, 0, root}};
    while (!pending.isEmpty()) {
        Pending& level = pending.last();
        if (level.next == level.entries.size()) {
            pending.removeLast();
            continue;
        }
        Node node;
        node.entry = level.entries.at(level.next++).toObject();
        // Only leaves have a text to report; an empty one would read as "not bound". One look-up tells it,
        // which counts in a large menu.
        const QJsonValue subscribeName = node.entry.value(subscribeNameKey);
        node.isTitle = !subscribeName.isString() || subscribeName == nothing;
        node.parent = level.parent;
        m_nodes.push_back(std::move(node));
        if (m_nodes.back().isTitle) {
            pending << Pending{m_nodes.back().entry.value(QLatin1String("subnodes")).toArray(), 0,
                               count() - 1};
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
    for (int i = notBound + 1; i < count(); ++i) {
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

QString SubscribeMenuModel::labelOf(int node) const
{
    return node == notBound ? m_notBound : m_nodes[node].entry.value(labelKey).toString();
}

QString SubscribeMenuModel::subscribeNameOf(int node) const
{
    return m_nodes[node].entry.value(subscribeNameKey).toString();
}

QStringList SubscribeMenuModel::pathOf(int node) const
{
    QStringList path;
    for (; node != root; node = m_nodes[node].parent) {
        path.prepend(labelOf(node));
    }
    return path;
}

QModelIndex SubscribeMenuModel::find(const QString& subscribeName) const
{
    for (int i = notBound; i < count(); ++i) {
        if (!m_nodes[i].isTitle && subscribeNameOf(i) == subscribeName) {
            return indexOf(i);
        }
    }
    return {};
}

QModelIndex SubscribeMenuModel::index(int row, int column, const QModelIndex& parent) const
{
    const QVector<int>& children = nodeOf(parent).children;
    return column == 0 && row >= 0 && row < children.size()
               ? createIndex(row, column, static_cast<quintptr>(children[row]))
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
    if (!index.isValid()) {
        return {};
    }
    const int node = static_cast<int>(index.internalId());
    switch (role) {
    case Qt::DisplayRole:
        return labelOf(node);
    case Qt::ToolTipRole:
        return m_nodes[node].isTitle || node == notBound
                   ? QString()
                   : pathOf(node).join(QStringLiteral(" / ")) + QLatin1Char('\n') + subscribeNameOf(node);
    case SubscribeNameRole:
        return subscribeNameOf(node);
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
