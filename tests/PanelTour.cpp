#include "PanelTour.h"

#include "condition/ConditionRecord.h"

#include <QZelCommonControl/ButtonSelecterView.h>

using namespace ZelCore;

PanelTour::PanelTour()
{
    (new QVBoxLayout(container))->addWidget(panel);
    auto* const ok = new QPushButton("OK", &host);
    ok->setObjectName("ok");
    ok->setFocusPolicy(Qt::TabFocus);
    ok->setDefault(true);
    QObject::connect(ok, &QPushButton::clicked, &host, &QDialog::accept);
    auto* const layout = new QVBoxLayout(&host);
    layout->addWidget(container);
    layout->addWidget(ok);
    host.resize(700, 600);

    core.parameters["IFText"] = "0";
    core.parameters["LogicalMode"] = "1";
    core.subscribeTree.CreateList(1);
    SUBSCRIBE_NODE__& module = fillNode(core.subscribeTree.At(0), "Blob", 3);
    fillNode(module.At(0), "Count", 0, "5.Count");
    fillNode(module.At(1), "Mean", 0, "5.Mean");
    fillNode(module.At(2), "Refused", 0, "5.Refused");
    m_warningWatch.callOnTimeout([this] { closeWarning(); });
    m_warningWatch.start(1);

    // A combo that an exception passes leaves a reference to its item's text behind, which is no leak while
    // the text is kept. The leak check runs after the destructors of statics.
    static auto& kept = *new QStringList;
    for (const auto* const combo : all<QComboBox>({})) {
        kept << combo->itemText(0) << combo->itemText(1);
    }
}

QStringList PanelTour::linesOf(const QString& name)
{
    QFile file(TOUR_FOLDER "/" + name);
    if (!file.open(QIODevice::ReadOnly)) {
        qFatal("There is no %s.", qPrintable(file.fileName()));
    }
    return QString::fromUtf8(file.readAll()).split('\n').filter(QRegularExpression("^[^#]"));
}

QWidget* PanelTour::findWidget(const QString& target) const
{
    const QString name = target.section(':', 0, 0);
    const int row = target.section(':', 1).toInt();
    if (name == "focus") {
        return QApplication::focusWidget();
    }
    if (name == "slider") {
        const auto windows = QApplication::topLevelWidgets();
        const auto found = std::find_if(windows.cbegin(), windows.cend(), [](const QWidget* shown) {
            return shown->isVisible() && shown->inherits("QmlRangeSliderView");
        });
        return found == windows.cend() ? nullptr : *found;
    }
    if (name == "input") {
        return panel->findChildren<ButtonSelecterView*>().value(3 * row); // before those of the bounds
    }
    return all(name).value(row);
}

void PanelTour::show(const QByteArray& ifText)
{
    core.parameters["IFText"] = ifText;
    perform("show");
    core.takeCommands();
}

bool PanelTour::perform(const QString& step)
{
    const QString verb = step.section(' ', 0, 0);
    const QString object = step.section(' ', 1);
    QWidget* const widget = findWidget(object.section(' ', 0, 0));
    if (verb == "store") {
        core.parameters[object.section('=', 0, 0)] = object.section('=', 1).toUtf8();
    } else if (verb == "bind") {
        core.bindings[object.section('=', 0, 0)] = object.section('=', 1);
    } else if (verb == "refuse") {
        core.refused = object;
    } else if (verb == "show" || verb == "hide") {
        panel->setVisible(verb == "show");
        host.show();
        happened();
    } else if (!widget || !widget->isVisible()) {
        reports << "nothing to be seen";
        return false;
    } else if (verb == "disable") {
        widget->setEnabled(false);
    } else if (verb == "see") {
        const QWidget* const field = widget->findChild<QLineEdit*>();
        const char* const text = widget->inherits("QComboBox") ? "currentText" : "text";
        reports << "= " + (field ? field : widget)->property(text).toString();
        for (const QAction* const sign : widget->actions()) {
            reports << "= (!) " + sign->toolTip().replace('\n', "\\n");
        }
    } else {
        work(widget, verb, object.section(' ', 1));
        happened();
    }
    return true;
}

void PanelTour::work(QWidget* widget, const QString& verb, const QString& text)
{
    if (panel->isAncestorOf(widget)) {
        find<QScrollArea>("scrollArea")->ensureWidgetVisible(widget);
    }
    if (verb == "click") {
        QWidget* const part = widget->childAt(widget->rect().center());
        const QPointer<QWidget> pressed = part ? part : widget;
        QTest::mousePress(pressed, Qt::LeftButton);
        happened();
        if (pressed) {
            QTest::mouseRelease(pressed, Qt::LeftButton);
        }
        return;
    }
    QApplication::setActiveWindow(widget->window());
    widget->setFocus();
    if (verb == "key") {
        QTest::keySequence(widget, QKeySequence(text));
        return;
    }
    QTest::keyClick(widget, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(widget, Qt::Key_Delete);
    if (verb == "paste") {
        QGuiApplication::clipboard()->setText(text);
        QTest::keyClick(widget, Qt::Key_V, Qt::ControlModifier);
    } else if (text.toLatin1() == text.toUtf8()) {
        QTest::keyClicks(widget, text);
    } else {
        // As an input method sends it.
        QInputMethodEvent event;
        event.setCommitString(text);
        QApplication::sendEvent(widget, &event);
    }
}

void PanelTour::performAll()
{
    for (const QString& step : linesOf("tour.txt").filter(QRegularExpression("^> "))) {
        if (panel) {
            perform(step.mid(2));
        }
    }
}

void PanelTour::happened()
{
    QApplication::processEvents();
    QApplication::processEvents(); // a layout can ask for another
    if (!QApplication::activeWindow() && host.isVisible()) {
        // What a window manager does when a pop-up or a box is gone.
        QApplication::setActiveWindow(&host);
    }
    afterEvent();
}

void PanelTour::closeWarning()
{
    if (const QPointer<QMessageBox> box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) {
        const bool isPlainWarning = box->icon() == QMessageBox::Warning && box->windowTitle().isEmpty() &&
                                    box->standardButtons() == QMessageBox::Ok;
        reports << (isPlainWarning ? "! " : "another box: ") + box->text() +
                       (box->parentWidget() ? " (over the panel)" : "");
        // Counts as an event.
        afterEvent();
        if (box) {
            box->accept();
        }
    }
}

QStringList PanelTour::shownRows() const
{
    QStringList rows;
    for (const auto* const name : all<QLabel>("m_labName")) {
        const int row = rows.size();
        const double lower = all<QDoubleSpinBox>("m_spbMinPullBar")[row]->value();
        const double upper = all<QDoubleSpinBox>("m_spbMaxPullBar")[row]->value();
        const QString note = all<QLineEdit>("m_ediNote")[row]->text();
        rows << ConditionRecord::toText({{name->text(), lower, upper, note}});
    }
    return rows;
}

QByteArray PanelTour::shown() const
{
    return all("m_labName").isEmpty() ? "0" : ConditionRecord::toStored(shownRows().join(QString()));
}

bool PanelTour::isModeStored() const
{
    const int index = find<QComboBox>("cbox_determineType")->currentIndex();
    return core.parameters["LogicalMode"] == QByteArray::number(index + 1);
}
