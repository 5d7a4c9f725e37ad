#pragma once

#include "SubscribeMenuModel.h"

#include <QFrame>

class QLabel;
class QLineEdit;
class QTreeView;

/// The open menu of a subscription selector: a field to filter by, and the tree under it.
///
/// A click beside it closes it and still reaches what was clicked, except on the owner, where it only
/// closes. For that it grabs nothing: it is a tool window that watches the application's events while open.
class SubscribeMenuPopup : public QFrame
{
    Q_OBJECT

public:
    explicit SubscribeMenuPopup(QWidget* owner);

    void setMenu(const QJsonArray& menu);
    /// Opens below the owner, or above where there is more room, on the owner's screen, with the entry of
    /// this subscribe text selected.
    void open(const QString& present);

signals:
    /// An entry was chosen and the pop-up is closed; empty for "not bound".
    void chosen(QString subscribeName);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    /// Whether the press ends here.
    bool closeAt(const QPoint& press);
    bool handleKey(int key);
    QRect placeBy(const QRect& owner, const QRect& screen) const;
    void showEntries();
    void select(const QModelIndex& index);
    /// To the next leaf in a direction, past groups.
    void selectBeside(bool below, int count);
    void choose(const QModelIndex& index);

    QWidget* m_owner;
    SubscribeMenuModel m_model;
    QLineEdit* m_filter;
    QTreeView* m_tree;
    QLabel* m_empty;
    QString m_present;
};
