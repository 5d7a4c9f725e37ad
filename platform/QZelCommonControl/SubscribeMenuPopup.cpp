#include "SubscribeMenuPopup.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMouseEvent>
#include <QScreen>
#include <QScroller>
#include <QTreeView>
#include <QVBoxLayout>

namespace {

constexpr int rowHeight = 30; // px, for a finger
constexpr int indentation = 12;
constexpr int widestPopup = 320;
constexpr int highestPopup = 330;

} // namespace

SubscribeMenuPopup::SubscribeMenuPopup(QWidget* owner)
    : QFrame(owner, Qt::Tool | Qt::FramelessWindowHint)
    , m_ediFilter(new QLineEdit(this))
    , m_tree(new QTreeView(this))
    , m_labEmpty(new QLabel(this))
{
    setFrameStyle(QFrame::Box | QFrame::Plain);
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(4, 4, 4, 4);
    layout->addWidget(m_ediFilter);
    layout->addWidget(m_tree);
    layout->addWidget(m_labEmpty);

    m_ediFilter->setClearButtonEnabled(true);
    m_ediFilter->setMinimumHeight(rowHeight);
    connect(m_ediFilter, &QLineEdit::textChanged, this, [this](const QString& text) {
        m_model.setFilter(text);
        showEntries();
    });

    m_labEmpty->setAlignment(Qt::AlignCenter);

    m_tree->setModel(&m_model);
    m_tree->setHeaderHidden(true);
    m_tree->setUniformRowHeights(true);
    m_tree->setIndentation(indentation);
    m_tree->setFrameShape(QFrame::NoFrame);
    m_tree->setFocusPolicy(Qt::NoFocus); // keys go to the filter
    m_tree->setExpandsOnDoubleClick(false);
    m_tree->setVerticalScrollMode(QTreeView::ScrollPerPixel);
    m_tree->viewport()->setAttribute(Qt::WA_Hover);
    // Groups are disabled, so that keys skip them, but look as the rest.
    QPalette colors = m_tree->palette();
    colors.setBrush(QPalette::Disabled, QPalette::Text, colors.brush(QPalette::Active, QPalette::Text));
    m_tree->setPalette(colors);
    QScroller::grabGesture(m_tree->viewport(), QScroller::LeftMouseButtonGesture);
    connect(m_tree, &QTreeView::clicked, this, &SubscribeMenuPopup::choose);
}

void SubscribeMenuPopup::open(const QJsonArray& menu, const QString& present)
{
    m_ediFilter->clear();
    // The language may have changed since.
    m_ediFilter->setPlaceholderText(tr("filter"));
    m_labEmpty->setText(tr("no matching values"));
    m_model.setMenu(menu);
    m_present = present;
    const QRect owner = ownerPlace();
    const QRect screen = parentWidget()->screen()->availableGeometry();
    const int width = qMin(qMax(owner.width(), widestPopup), screen.width());
    const int left = qBound(screen.left(), owner.left(), screen.right() + 1 - width);
    QRect place(left, owner.bottom() + 1, width, highestPopup);
    const bool isMoreAbove = owner.top() - screen.top() > screen.bottom() - owner.bottom();
    if (!screen.contains(place) && isMoreAbove) {
        place.moveBottom(owner.top() - 1);
    }
    setGeometry(place & screen);
    qApp->installEventFilter(this);
    show();
    activateWindow();
    m_ediFilter->setFocus(Qt::PopupFocusReason);
    showEntries();
}

void SubscribeMenuPopup::hideEvent(QHideEvent* event)
{
    qApp->removeEventFilter(this);
    m_model.setMenu({}); // a large one costs megabytes
    if (isActiveWindow()) {
        parentWidget()->activateWindow();
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

void SubscribeMenuPopup::showEntries()
{
    m_tree->expandAll();
    m_tree->setVisible(m_model.rowCount() > 0);
    m_labEmpty->setVisible(!m_model.hasValues());
    QModelIndex index = m_model.find(m_present);
    if (!index.isValid()) {
        index = m_model.index(0, 0);
        while (index.isValid() && !(index.flags() & Qt::ItemIsSelectable)) {
            index = m_tree->indexBelow(index);
        }
    }
    m_tree->setCurrentIndex(index);
    m_tree->scrollTo(index, QTreeView::PositionAtCenter);
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
    if (event->type() == QEvent::KeyPress && watched == m_ediFilter) {
        return handleKey(event);
    }
    if (event->type() != QEvent::MouseButtonPress || !watched->isWindowType()) {
        return false;
    }
    const QPoint press = static_cast<QMouseEvent*>(event)->globalPos();
    if (geometry().contains(press)) {
        return false;
    }
    close();
    // There the press would open the menu again.
    return ownerPlace().contains(press);
}

bool SubscribeMenuPopup::handleKey(QEvent* event)
{
    switch (static_cast<QKeyEvent*>(event)->key()) {
    case Qt::Key_Down:
    case Qt::Key_Up:
    case Qt::Key_PageDown:
    case Qt::Key_PageUp:
        QCoreApplication::sendEvent(m_tree, event);
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
