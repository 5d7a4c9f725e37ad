#pragma once

#include "SubscribeMenuModel.h"

#include <QFrame>

class QLabel;
class QLineEdit;
class QTreeView;

/// The open menu of a subscription selector: a field to filter by, and the tree under it.
///
/// A click outside closes it and still reaches what was clicked, except on the owner, where it only closes.
/// For that it grabs nothing: it is a tool window that watches the application's events while open.
class SubscribeMenuPopup : public QFrame
{
    Q_OBJECT

public:
    explicit SubscribeMenuPopup(QWidget* owner);

    /// Opens, or opens anew, below the owner, or above where there is more room, on the owner's screen, with
    /// the entry of this subscribe text selected.
    void open(const QJsonArray& menu, const QString& present);

signals:
    /// An entry was chosen and the pop-up is closed; empty for "not bound".
    void chosen(QString subscribeName);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    bool handleKey(QEvent* event);
    QRect ownerPlace() const { return {parentWidget()->mapToGlobal(QPoint()), parentWidget()->size()}; }
    void showEntries();
    void choose(const QModelIndex& index);

    SubscribeMenuModel m_model;
    QLineEdit* m_ediFilter;
    QTreeView* m_tree;
    QLabel* m_labEmpty;
    QString m_present;
};
