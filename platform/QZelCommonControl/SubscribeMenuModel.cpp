#include "SubscribeMenuModel.h"

#include <QFont>
#include <QJsonObject>

#include <algorithm>

namespace {

constexpr QSize rowSize(0, 30); // px, for a finger; as wide as the view
constexpr Qt::ItemFlags leafFlags = Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemNeverHasChildren;

QStandardItem* itemOf(const QString& label, Qt::ItemFlags flags, const QVariant& subscribeName)
{
    auto* const item = new QStandardItem(label);
    item->setFlags(flags);
    item->setSizeHint(rowSize);
    item->setData(subscribeName, SubscribeMenuModel::SubscribeNameRole);
    return item;
}

QList<QStandardItem*> itemsOf(const QJsonArray& entries, const QString& path)
{
    QFont bold;
    bold.setBold(true);
    QList<QStandardItem*> items;
    for (const QJsonValue& value : entries) {
        const QJsonObject entry = value.toObject();
        const QString label = entry.value(QLatin1String("label")).toString();
        const QString subscribeName = entry.value(QLatin1String("subscribeName")).toString();
        // An empty text would read as "not bound".
        if (!subscribeName.isEmpty()) {
            items << itemOf(label, leafFlags, subscribeName);
            items.last()->setToolTip(path + label + QLatin1Char('\n') + subscribeName);
            continue;
        }
        items << itemOf(label, Qt::NoItemFlags, QVariant());
        items.last()->setFont(bold);
        items.last()->appendRows(
            itemsOf(entry.value(QLatin1String("subnodes")).toArray(), path + label + QLatin1String(" / ")));
    }
    return items;
}

} // namespace

SubscribeMenuModel::SubscribeMenuModel(QObject* parent)
    : QSortFilterProxyModel(parent)
{
    setRecursiveFilteringEnabled(true);
    setMenu({});
}

void SubscribeMenuModel::setMenu(const QJsonArray& menu)
{
    setSourceModel(nullptr);
    m_items.clear();
    m_items.appendRow(itemOf(tr("not bound"), leafFlags, QString()));
    m_items.invisibleRootItem()->appendRows(itemsOf(menu, QString()));
    setFilter(QString());
}

void SubscribeMenuModel::setFilter(const QString& filter)
{
    // One reset instead of signals for each row.
    setSourceModel(nullptr);
    m_words = filter.split(QLatin1Char(' '), Qt::SkipEmptyParts);
    setSourceModel(&m_items);
}

bool SubscribeMenuModel::filterAcceptsRow(int row, const QModelIndex& parent) const
{
    const QString text = m_items.index(row, 0, parent).data(Qt::ToolTipRole).toString();
    return std::all_of(m_words.cbegin(), m_words.cend(),
                       [&text](const QString& word) { return text.contains(word, Qt::CaseInsensitive); });
}

bool SubscribeMenuModel::hasValues() const
{
    return rowCount() > (m_words.isEmpty() ? 1 : 0);
}

QModelIndex SubscribeMenuModel::find(const QString& subscribeName) const
{
    return match(index(0, 0), SubscribeNameRole, subscribeName, 1,
                 Qt::MatchExactly | Qt::MatchCaseSensitive | Qt::MatchRecursive)
        .value(0);
}
