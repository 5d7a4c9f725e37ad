#include "SubscribeMenuPopup.h"

#include "DragScroll.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMouseEvent>
#include <QScreen>
#include <QStyledItemDelegate>
#include <QTreeView>
#include <QVBoxLayout>

namespace {

constexpr int rowHeight = 30; // px, for a finger
constexpr int indentation = 12;
constexpr int widestPopup = 320;
constexpr int highestPopup = 330;

class RowDelegate : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override
    {
        const QSize hint = QStyledItemDelegate::sizeHint(option, index);
        return {hint.width(), qMax(hint.height(), rowHeight)};
    }

    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override
    {
        QStyledItemDelegate::initStyleOption(option, index);
        option->font.setBold(!(index.flags() & Qt::ItemIsSelectable));
    }
};

} // namespace

SubscribeMenuPopup::SubscribeMenuPopup(QWidget* owner)
    : QFrame(owner, Qt::Tool | Qt::FramelessWindowHint)
    , m_owner(owner)
    , m_filter(new QLineEdit(this))
    , m_tree(new QTreeView(this))
    , m_empty(new QLabel(this))
{
    setFrameStyle(QFrame::Box | QFrame::Plain);
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(4, 4, 4, 4);
    layout->setSpacing(4);
    layout->addWidget(m_filter);
    layout->addWidget(m_tree);
    layout->addWidget(m_empty);

    m_filter->setClearButtonEnabled(true);
    m_filter->setMinimumHeight(rowHeight);
    connect(m_filter, &QLineEdit::textChanged, this, [this](const QString& text) {
        m_model.setFilter(text);
        showEntries();
    });

    m_empty->setAlignment(Qt::AlignCenter);
    m_empty->setMinimumHeight(rowHeight);

    m_tree->setModel(&m_model);
    m_tree->setItemDelegate(new RowDelegate(m_tree));
    m_tree->setHeaderHidden(true);
    m_tree->setUniformRowHeights(true);
    m_tree->setIndentation(indentation);
    m_tree->setFrameShape(QFrame::NoFrame);
    m_tree->setFocusPolicy(Qt::NoFocus); // keys go to the filter
    m_tree->setEditTriggers(QTreeView::NoEditTriggers);
    m_tree->setExpandsOnDoubleClick(false);
    m_tree->setVerticalScrollMode(QTreeView::ScrollPerPixel);
    m_tree->viewport()->setAttribute(Qt::WA_Hover);
    new DragScroll(m_tree);
    connect(m_tree, &QTreeView::clicked, this, &SubscribeMenuPopup::choose);
}

void SubscribeMenuPopup::setMenu(const QJsonArray& menu)
{
    m_model.setMenu(menu);
    const QSignalBlocker quiet(m_filter);
    m_filter->clear();
    if (isVisible()) {
        showEntries();
    }
}

void SubscribeMenuPopup::open(const QString& present)
{
    // The language may have changed since.
    m_filter->setPlaceholderText(tr("filter"));
    m_empty->setText(tr("no matching values"));
    m_present = present;
    const QRect owner(m_owner->mapToGlobal(QPoint()), m_owner->size());
    const QScreen* const screen = m_owner->screen();
    setGeometry(placeBy(owner, screen->availableGeometry()));
    show();
    activateWindow();
    m_filter->setFocus(Qt::PopupFocusReason);
    showEntries();
}

void SubscribeMenuPopup::showEvent(QShowEvent* event)
{
    qApp->installEventFilter(this);
    QFrame::showEvent(event);
}

void SubscribeMenuPopup::hideEvent(QHideEvent* event)
{
    qApp->removeEventFilter(this);
    if (isActiveWindow()) {
        m_owner->activateWindow();
    }
    QFrame::hideEvent(event);
}

void SubscribeMenuPopup::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::ActivationChange && !isActiveWindow()) {
        close();
    }
    QFrame::changeEvent(event);
}

QRect SubscribeMenuPopup::placeBy(const QRect& owner, const QRect& screen) const
{
    const QSize size(qMin(qMax(owner.width(), widestPopup), screen.width()),
                     qMin(highestPopup, screen.height()));
    const int roomBelow = screen.bottom() - owner.bottom();
    const int roomAbove = owner.top() - screen.top();
    int height = size.height();
    int top = owner.bottom() + 1;
    if (roomBelow < height && roomAbove > roomBelow) {
        height = qMin(height, roomAbove);
        top = owner.top() - height;
    } else {
        height = qMin(height, qMax(roomBelow, rowHeight));
    }
    const int left = qBound(screen.left(), owner.left(), screen.right() + 1 - size.width());
    return {left, top, size.width(), height};
}

void SubscribeMenuPopup::showEntries()
{
    m_tree->expandAll();
    m_tree->setVisible(m_model.rowCount() > 0);
    m_empty->setVisible(!m_model.hasLeaves());
    const QModelIndex present = m_model.find(m_present);
    select(present);
    if (!present.isValid()) {
        selectBeside(true, 1);
    }
}

void SubscribeMenuPopup::select(const QModelIndex& index)
{
    m_tree->setCurrentIndex(index);
    m_tree->scrollTo(index, QTreeView::PositionAtCenter);
}

void SubscribeMenuPopup::selectBeside(bool below, int count)
{
    QModelIndex found;
    const QModelIndex current = m_tree->currentIndex();
    QModelIndex index = current.isValid() ? current : m_model.index(0, 0);
    if (!current.isValid() && (index.flags() & Qt::ItemIsSelectable)) {
        found = index;
        --count;
    }
    while (count > 0 && index.isValid()) {
        index = below ? m_tree->indexBelow(index) : m_tree->indexAbove(index);
        if (index.flags() & Qt::ItemIsSelectable) {
            found = index;
            --count;
        }
    }
    if (found.isValid()) {
        m_tree->setCurrentIndex(found);
        m_tree->scrollTo(found);
    }
}

void SubscribeMenuPopup::choose(const QModelIndex& index)
{
    if (index.flags() & Qt::ItemIsSelectable) {
        const QString subscribeName = index.data(SubscribeMenuModel::SubscribeNameRole).toString();
        close();
        emit chosen(subscribeName);
    }
}

bool SubscribeMenuPopup::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::MouseButtonPress && watched->isWindowType()) {
        return closeAt(static_cast<QMouseEvent*>(event)->globalPos());
    }
    if (event->type() == QEvent::KeyPress && watched == m_filter) {
        return handleKey(static_cast<QKeyEvent*>(event)->key());
    }
    return false;
}

bool SubscribeMenuPopup::closeAt(const QPoint& press)
{
    if (geometry().contains(press)) {
        return false;
    }
    close();
    // There the press would open the menu again.
    return QRect(m_owner->mapToGlobal(QPoint()), m_owner->size()).contains(press);
}

bool SubscribeMenuPopup::handleKey(int key)
{
    const int page = qMax(1, m_tree->viewport()->height() / rowHeight);
    switch (key) {
    case Qt::Key_Down:
        selectBeside(true, 1);
        return true;
    case Qt::Key_Up:
        selectBeside(false, 1);
        return true;
    case Qt::Key_PageDown:
        selectBeside(true, page);
        return true;
    case Qt::Key_PageUp:
        selectBeside(false, page);
        return true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        choose(m_tree->currentIndex());
        return true;
    case Qt::Key_Escape:
        close();
        return true;
    default:
        return false;
    }
}
