#include "QmlRangeSliderView.h"

#include <QAbstractSpinBox>
#include <QApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QMouseEvent>
#include <QOpenGLContext>
#include <QQmlEngine>
#include <QQmlError>
#include <QQuickItem>
#include <QQuickWidget>
#include <QQuickWindow>
#include <QWheelEvent>
#include <QWindow>

#include <memory>

using Grip = RangeSliderState::Grip;

namespace {

constexpr int largeStep = 10;
// On a wide range a pixel is a large step: a finger that trembles must not move a bound.
constexpr int dragThreshold = 3; // px
constexpr int wheelNotch = 120;  // eighths of a degree

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

// A limit in the little room beside the section.
QString shortNumber(int value)
{
    return std::abs(value) < 10000 ? QString::number(value)
                                   : QString::number(value, 'g', 3).remove(QLatin1String("+0"));
}

/// Takes the focus from a widget for a moment without its notice: a field would finish its edit.
class FocusTaken : public QObject
{
public:
    explicit FocusTaken(QWidget* widget)
        : m_widget(widget)
    {
        widget->installEventFilter(this);
        widget->clearFocus();
    }
    ~FocusTaken() override
    {
        if (m_widget) {
            m_widget->setFocus();
        }
    }
    Q_DISABLE_COPY(FocusTaken)

    bool eventFilter(QObject*, QEvent* event) override
    {
        const QEvent::Type type = event->type();
        return type == QEvent::FocusAboutToChange || type == QEvent::FocusOut || type == QEvent::FocusIn;
    }

private:
    QPointer<QWidget> m_widget;
};

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
    connect(qApp, &QApplication::focusChanged, this, [this](const QWidget*, const QWidget* now) {
        if (isVisible() && m_fields && now && now != this && isBesideFields(now)) {
            leave();
        }
    });
}

QmlRangeSliderView::~QmlRangeSliderView() = default;

void QmlRangeSliderView::SetRange(int min, int max)
{
    m_state.setRange(min, max);
    showScale();
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
    m_view->setClearColor(Qt::white);
    m_view->setSource(QUrl(QStringLiteral("qrc:/QZelCommonControl/QmlRangeSliderView.qml")));
    if (!scene()) {
        showUnavailable();
        return;
    }
    m_view->resize(size());
    m_view->show();
}

void QmlRangeSliderView::showUnavailable()
{
    QStringList errors;
    for (const QQmlError& error : m_view->errors()) {
        errors << error.toString();
    }
    static const bool isLogged = [&errors] {
        qWarning("range slider: not available: %s", qUtf8Printable(errors.join(QLatin1String("; "))));
        return true;
    }();
    Q_UNUSED(isLogged)
    delete m_view;
    m_view = nullptr;
    setEnabled(false);
    auto* const label = new QLabel(tr("slider not available"), this);
    label->setAlignment(Qt::AlignCenter);
    label->setGeometry(rect());
    label->show();
}

QQuickItem* QmlRangeSliderView::scene() const
{
    return m_view ? m_view->rootObject() : nullptr;
}

void QmlRangeSliderView::showEvent(QShowEvent* event)
{
    if (!m_view && isEnabled()) {
        createView();
    }
    m_state.fitScale();
    showScale();
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
        // The press that activates arrives after the field has finished its edit and told other bounds.
        m_state.keepHandles();
    }
    QWidget::changeEvent(event);
}

bool QmlRangeSliderView::isBesideFields(const QWidget* widget) const
{
    return !m_fields || !m_fields->isAncestorOf(widget);
}

bool QmlRangeSliderView::eventFilter(QObject* watched, QEvent* event)
{
    const auto* const widget = qobject_cast<QWidget*>(watched);
    if (!widget || !m_fields) {
        return false;
    }
    const QEvent::Type type = event->type();
    const bool isScroll = type == QEvent::Move && !widget->isWindow() && widget->isAncestorOf(m_fields);
    const bool isWheelElsewhere = type == QEvent::Wheel && widget->window() != this && isBesideFields(widget);
    const bool isEscape = type == QEvent::KeyPress && !isBesideFields(widget) &&
                          static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape;
    if (isScroll || isWheelElsewhere || isEscape) {
        leave();
    }
    return isEscape;
}

void QmlRangeSliderView::leave()
{
    const QPointer<QWidget> self = this;
    if (!isActiveWindow()) {
        QWidget* const focus = QApplication::focusWidget();
        const auto taken = focus && !isBesideFields(focus) ? std::make_unique<FocusTaken>(focus) : nullptr;
        QEvent deactivate(QEvent::WindowDeactivate);
        QCoreApplication::sendEvent(this, &deactivate);
    }
    if (self) {
        hide(); // an active window is deactivated by that
    }
}

void QmlRangeSliderView::resizeEvent(QResizeEvent* event)
{
    if (m_view) {
        m_view->resize(event->size());
    }
    QWidget::resizeEvent(event);
}

void QmlRangeSliderView::showScale()
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
    }
    showState();
}

void QmlRangeSliderView::showState()
{
    if (QQuickItem* const slider = scene()) {
        QMetaObject::invokeMethod(slider, "setValues", Q_ARG(qreal, m_state.lowerPosition()),
                                  Q_ARG(qreal, m_state.upperPosition()));
    }
}

double QmlRangeSliderView::positionAt(int x) const
{
    const QQuickItem* const slider = scene();
    if (!slider) {
        return 0.0;
    }
    const double handle = slider->property("handleWidth").toDouble();
    const double travel = slider->property("availableWidth").toDouble() - handle;
    const double offset = x - slider->property("leftPadding").toDouble() - handle / 2;
    return travel > 0 ? offset / travel : 0.0;
}

double QmlRangeSliderView::handleReach() const
{
    const int handle = scene() ? scene()->property("handleWidth").toInt() : 0;
    return positionAt(handle) - positionAt(handle / 2);
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
    const bool isChanged = m_state.press(positionAt(event->x()), handleReach());
    highlight(m_state.active());
    report(isChanged);
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
        const bool isChanged = m_state.drag(position);
        highlight(m_state.active());
        report(isChanged);
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
    event->accept();
    if (notches != 0) {
        m_state.setActive(m_state.gripAt(positionAt(event->position().toPoint().x()), handleReach()));
        highlight(m_state.active());
        report(m_state.step(notches * stepOf(event->modifiers())));
    }
}

void QmlRangeSliderView::keyPressEvent(QKeyEvent* event)
{
    switch (event->key()) {
    case Qt::Key_Left:
    case Qt::Key_Down:
        report(m_state.step(-stepOf(event->modifiers())));
        break;
    case Qt::Key_Right:
    case Qt::Key_Up:
        report(m_state.step(stepOf(event->modifiers())));
        break;
    case Qt::Key_Escape:
        hide();
        break;
    default:
        QWidget::keyPressEvent(event);
        return;
    }
}

bool QmlRangeSliderView::focusNextPrevChild(bool)
{
    m_state.setActive(m_state.active() == Grip::Lower ? Grip::Upper : Grip::Lower);
    highlight(m_state.active());
    return true;
}
