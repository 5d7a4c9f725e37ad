#pragma once

#include <QJsonArray>
#include <QSortFilterProxyModel>
#include <QStandardItemModel>

/// The menu of a subscription selector as a tree: an entry for "not bound", then the groups and leaves of
/// the menu JSON in their order. A filter leaves the leaves that match, with their groups.
///
/// Groups can't be selected. A leaf's tool tip is its whole path and its subscribe text.
class SubscribeMenuModel : public QSortFilterProxyModel
{
    Q_OBJECT

public:
    enum Role {
        /// The text that a choice of the entry reports; empty for "not bound".
        SubscribeNameRole = Qt::UserRole
    };

    explicit SubscribeMenuModel(QObject* parent = nullptr);

    void setMenu(const QJsonArray& menu);
    /// Keeps leaves in whose tool tip each of the blank-separated words occurs, in any case.
    void setFilter(const QString& filter);

    /// Whether a value is shown in addition to "not bound".
    bool hasValues() const;
    /// The entry with a subscribe text; an invalid index when none is shown.
    QModelIndex find(const QString& subscribeName) const;

protected:
    bool filterAcceptsRow(int row, const QModelIndex& parent) const override;

private:
    QStandardItemModel m_items;
    QStringList m_words;
};
