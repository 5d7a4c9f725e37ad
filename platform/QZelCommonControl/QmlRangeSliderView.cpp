#include "QmlRangeSliderView.h"

#include <QAbstractSpinBox>
#include <QApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QMouseEvent>
#include <QOpenGLContext>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickWidget>
#include <QQuickWindow>
#include <QScopeGuard>
#include <QVBoxLayout>
#include <QWheelEvent>
#include <QWindow>

#include <utility>

using Grip = RangeSliderState::Grip;

namespace {

constexpr int largeStep = 10;
// On a wide range a pixel is a large step: a finger that trembles must not move a bound.
constexpr int dragThreshold = 3; // px
// As in the scene.
constexpr int trackMargin = 12;
constexpr int handleWidth = 12;
constexpr int wheelNotch = 120; // eighths of a degree

// Kept until the application ends: making one costs far more than keeping it.
QQmlEngine* sharedEngine()
{
    static QPointer<QQmlEngine> engine;
    if (!engine) {
        engine = new QQmlEngine(QCoreApplication::instance());
    }
    return engine;
}

// Where the host has chosen no way to draw and OpenGL is missing, the software scene graph draws.
void chooseSceneGraph()
{
    if (!QQuickWindow::sceneGraphBackend().isEmpty() || qEnvironmentVariableIsSet("QT_QUICK_BACKEND")) {
        return;
    }
    static const bool hasOpenGl = QOpenGLContext().create();
    if (!hasOpenGl) {
        QQuickWindow::setSceneGraphBackend(QSGRendererInterface::Software);
    }
}

// A limit, for the little room at either end of the section.
QString shortNumber(int value)
{
    return std::abs(value) < 10000 ? QString::number(value)
                                   : QString::number(value, 'g', 3).remove(QLatin1String("+0"));
}

int stepOf(Qt::KeyboardModifiers modifiers)
{
    return modifiers & Qt::ShiftModifier ? largeStep : 1;
}

} // namespace

QmlRangeSliderView::QmlRangeSliderView(QWidget* parent)
    : QWidget(parent, Qt::Tool | Qt::FramelessWindowHint)
{
    setAttribute(Qt::WA_ShowWithoutActivating);
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
}

void QmlRangeSliderView::SetRange(int min, int max)
{
    m_state.setRange(min, max);
    showState();
}

void QmlRangeSliderView::SetCurrentMinD(double value)
{
    m_state.setLower(value);
    showState();
}

void QmlRangeSliderView::SetCurrentMaxD(double value)
{
    m_state.setUpper(value);
    showState();
}

void QmlRangeSliderView::createView()
{
    chooseSceneGraph();
    m_view = new QQuickWidget(sharedEngine(), this);
    // Mouse and keys are this widget's; the scene only shows.
    m_view->setAttribute(Qt::WA_TransparentForMouseEvents);
    m_view->setFocusPolicy(Qt::NoFocus);
    m_view->setResizeMode(QQuickWidget::SizeRootObjectToView);
    // Loaded here, since the view would log the errors each time.
    auto* const component = new QQmlComponent(
        sharedEngine(), QUrl(QStringLiteral("qrc:/QZelCommonControl/QmlRangeSliderView.qml")), m_view);
    if (component->isReady()) {
        m_view->setContent(component->url(), component, component->create());
    }
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_view);
    if (!scene()) {
        static bool isLogged = false;
        if (!std::exchange(isLogged, true)) {
            qWarning() << "range slider: not available" << component->errors();
        }
        m_view->hide();
        auto* const label = new QLabel(tr("slider not available"));
        label->setStyleSheet(QStringLiteral("color: #3d3d3d")); // not as pale as what is disabled
        layout->addWidget(label, 0, Qt::AlignCenter);
        setEnabled(false); // takes no input
    }
    showState();
}

QQuickItem* QmlRangeSliderView::scene() const
{
    return m_view ? m_view->rootObject() : nullptr;
}

void QmlRangeSliderView::showEvent(QShowEvent* event)
{
    if (!m_view) {
        createView();
    }
    if (m_state.fitScale()) {
        showState();
    }
    highlight(Grip::None);
    if (const auto* const field = qobject_cast<QAbstractSpinBox*>(QApplication::focusWidget())) {
        m_fields = field->parentWidget();
        qApp->installEventFilter(this);
    }
    // A tool window of its own, but above the window that it opens over.
    const QWidget* const host = QApplication::activeWindow();
    if (host && host != this && windowHandle()) {
        windowHandle()->setTransientParent(host->windowHandle());
    }
    QWidget::showEvent(event);
}

void QmlRangeSliderView::hideEvent(QHideEvent* event)
{
    qApp->removeEventFilter(this);
    m_fields = nullptr;
    QWidget::hideEvent(event);
}

void QmlRangeSliderView::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::ActivationChange && isActiveWindow()) {
        // The press that activates arrives after the field has finished its edit and set other bounds.
        m_state.keepHandles();
    }
    QWidget::changeEvent(event);
}

bool QmlRangeSliderView::eventFilter(QObject* watched, QEvent* event)
{
    const QEvent::Type type = event->type();
    if (watched == m_leftField) {
        return type == QEvent::FocusAboutToChange || type == QEvent::FocusOut || type == QEvent::FocusIn;
    }
    const auto* const widget = qobject_cast<QWidget*>(watched);
    if (!widget || !m_fields) {
        return false;
    }
    const bool isBeside = widget->window() != this && !m_fields->isAncestorOf(widget);
    const bool isMoved = type == QEvent::Move && !widget->isWindow() && widget->isAncestorOf(m_fields);
    const bool isEscape = type == QEvent::KeyPress && m_fields->isAncestorOf(widget) &&
                          static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape;
    if (isMoved || isEscape || (isBeside && (type == QEvent::FocusIn || type == QEvent::Wheel))) {
        leave();
    }
    return isEscape;
}

void QmlRangeSliderView::leave()
{
    const QPointer<QmlRangeSliderView> self = this;
    if (!isActiveWindow()) {
        // No field has the focus during this event. Its focus events are filtered: FocusOut finishes an edit.
        QWidget* const focus = QApplication::focusWidget();
        if (focus && m_fields && m_fields->isAncestorOf(focus)) {
            m_leftField = focus;
            focus->installEventFilter(this);
            focus->clearFocus();
        }
        const auto giveBack = qScopeGuard([&self] {
            if (self && self->m_leftField) {
                self->m_leftField->setFocus();
                self->m_leftField->removeEventFilter(self);
                self->m_leftField = nullptr;
            }
        });
        QEvent deactivate(QEvent::WindowDeactivate);
        QCoreApplication::sendEvent(this, &deactivate);
    }
    if (self) {
        hide(); // deactivates it where it is active
    }
}

void QmlRangeSliderView::showState()
{
    if (QQuickItem* const slider = scene()) {
        const RangeScale& scale = m_state.scale();
        const bool hasLowZone = scale.sectionBegin() > 0.0;
        const bool hasHighZone = scale.sectionEnd() < 1.0;
        slider->setProperty("sectionBegin", scale.sectionBegin());
        slider->setProperty("sectionEnd", scale.sectionEnd());
        slider->setProperty("minimumText", hasLowZone ? shortNumber(scale.minimum()) : QString());
        slider->setProperty("sectionMinimumText", QString::number(scale.sectionMinimum()));
        slider->setProperty("sectionMaximumText", QString::number(scale.sectionMaximum()));
        slider->setProperty("maximumText", hasHighZone ? shortNumber(scale.maximum()) : QString());
        slider->setProperty("lower", m_state.lowerPosition());
        slider->setProperty("upper", m_state.upperPosition());
    }
}

double QmlRangeSliderView::positionAt(int x) const
{
    return double(x - trackMargin) / qMax(1, width() - 2 * trackMargin);
}

double QmlRangeSliderView::handleReach() const
{
    return positionAt(trackMargin + handleWidth / 2);
}

void QmlRangeSliderView::highlight(Grip grip)
{
    QQuickItem* const slider = scene();
    if (slider && grip != m_lit) {
        m_lit = grip;
        slider->setProperty("isLowerLit", grip != Grip::None && grip != Grip::Upper);
        slider->setProperty("isUpperLit", grip != Grip::None && grip != Grip::Lower);
    }
}

void QmlRangeSliderView::report(bool isChanged)
{
    highlight(m_state.active());
    if (isChanged) {
        showState();
        emit sigRangeSliderChange(m_state.lower(), m_state.upper());
    }
}

void QmlRangeSliderView::mousePressEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton) {
        return;
    }
    activateWindow();
    setFocus(Qt::MouseFocusReason);
    m_pressX = event->x();
    m_isDragging = false;
    report(m_state.press(positionAt(event->x()), handleReach()));
}

void QmlRangeSliderView::mouseMoveEvent(QMouseEvent* event)
{
    const double position = positionAt(event->x());
    if (!(event->buttons() & Qt::LeftButton)) {
        m_state.release();
        highlight(m_state.gripAt(position, handleReach()));
        return;
    }
    m_isDragging = m_isDragging || std::abs(event->x() - m_pressX) >= dragThreshold;
    if (m_isDragging) {
        report(m_state.drag(position));
    }
}

void QmlRangeSliderView::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton) {
        m_state.release();
    }
}

void QmlRangeSliderView::leaveEvent(QEvent* event)
{
    highlight(hasFocus() ? m_state.active() : Grip::None);
    QWidget::leaveEvent(event);
}

void QmlRangeSliderView::wheelEvent(QWheelEvent* event)
{
    // Shift turns a wheel sideways on some systems.
    const QPoint angle = event->angleDelta();
    m_wheelAngle += angle.y() != 0 ? angle.y() : angle.x();
    const int notches = m_wheelAngle / wheelNotch;
    m_wheelAngle %= wheelNotch;
    if (notches != 0) {
        m_state.setActive(m_state.gripAt(positionAt(event->position().toPoint().x()), handleReach()));
        report(m_state.step(notches * stepOf(event->modifiers())));
    }
}

void QmlRangeSliderView::keyPressEvent(QKeyEvent* event)
{
    const int step = stepOf(event->modifiers());
    switch (event->key()) {
    case Qt::Key_Left:
    case Qt::Key_Down:
        return report(m_state.step(-step));
    case Qt::Key_Right:
    case Qt::Key_Up:
        return report(m_state.step(step));
    case Qt::Key_Escape:
        return hide();
    default:
        QWidget::keyPressEvent(event);
    }
}

bool QmlRangeSliderView::focusNextPrevChild(bool)
{
    m_state.setActive(m_state.active() == Grip::Lower ? Grip::Upper : Grip::Lower);
    report(false);
    return true;
}
