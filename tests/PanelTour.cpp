#include "PanelTour.h"

#include <QZelCommonControl/ButtonSelecterView.h>

#include <QComboBox>
#include <QFile>
#include <QLabel>
#include <QScrollArea>

using namespace ZelCore;

PanelTour::PanelTour()
{
    auto* const ok = new QPushButton("OK", &host);
    ok->setObjectName("ok");
    ok->setFocusPolicy(Qt::NoFocus);
    ok->setDefault(true);
    QObject::connect(ok, &QPushButton::clicked, &host, &QDialog::accept);
    host.setLayout(new QVBoxLayout);
    host.layout()->addWidget(container);
    host.layout()->addWidget(ok);
    host.resize(700, 600);

    core.binaryData["IFText"] = "%int0%:0:100:first;short:1;%float0%:0.500:2.250:;%int1%:-5:5x:a b:c;";
    core.uiData = {{"@%float0%Start", "True"}, {"@%float0%End", "False"}, {"@%int1%End", "True"}};
    core.bindings = {{"1/%int0%", "5.Count"}, {"0/%float0%Start", "5.Mean"}};
    core.subscribeTree.CreateList(1);
    SUBSCRIBE_NODE__& module = core.subscribeTree.At(0);
    module.ModuleID = 5;
    FillText(module.NodeName, "Blob");
    const std::array<std::string, 3> values = {"Count", "Mean", "Refused"};
    module.CreateList(values.size());
    for (int i = 0; i < 3; ++i) {
        FillText(module.At(i).NodeName, values[i].c_str());
        FillText(module.At(i).SubscribeName, ("5." + values[i]).c_str());
    }
    core.fault = [this](int, const QString& command) {
        const auto result = answer(command);
        return result || !command.endsWith("=5.Refused") ? result : CommandResult(Failed, "no such value");
    };
    QObject::connect(&m_warningWatch, &QTimer::timeout, [this] { closeWarning(); });
    m_warningWatch.start(1);
}

void PanelTour::keepItemTexts() const
{
    static auto& kept = *new QStringList; // the leak check runs after the destructors of statics
    const auto combos = host.findChildren<QComboBox*>();
    for (const QComboBox* const combo : combos) {
        kept << combo->itemText(0) << combo->itemText(1);
    }
}

QStringList PanelTour::linesOf(const QString& name)
{
    QFile file(TOUR_FOLDER "/" + name);
    return file.open(QIODevice::ReadOnly)
               ? QString::fromUtf8(file.readAll()).split('\n').filter(QRegularExpression("^[^#]"))
               : QStringList();
}

QWidget* PanelTour::find(const QString& target) const
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
    return host.findChildren<QWidget*>(name).value(row);
}

bool PanelTour::perform(const QString& action)
{
    const QString verb = action.section(' ', 0, 0);
    const QString text = action.section(' ', 2);
    if (verb == "show" || verb == "hide") {
        panel->setVisible(verb == "show");
        host.show();
        happened();
        return true;
    }
    QPointer<QWidget> widget = find(action.section(' ', 1, 1));
    if (!widget || !widget->isVisible()) {
        return false;
    }
    if (panel->isAncestorOf(widget)) {
        at<QScrollArea>("scrollArea")->ensureWidgetVisible(widget);
    }
    if (verb == "click") {
        QWidget* const part = widget->childAt(widget->rect().center());
        widget = part ? part : widget.data();
        QTest::mousePress(widget, Qt::LeftButton);
        happened();
        if (widget) {
            QTest::mouseRelease(widget, Qt::LeftButton);
        }
    } else {
        QApplication::setActiveWindow(widget->window());
        widget->setFocus();
        if (verb == "type") {
            typeInto(widget, text);
        } else {
            const int key = QKeySequence(text)[0];
            QTest::keyClick(widget, Qt::Key(key & ~Qt::KeyboardModifierMask),
                            Qt::KeyboardModifiers(key & Qt::KeyboardModifierMask));
        }
    }
    happened();
    return true;
}

void PanelTour::performAll()
{
    const QStringList steps = linesOf("tour.txt").filter(QRegularExpression("^> "));
    for (const QString& step : steps) {
        perform(step.mid(2));
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
    if (panel) {
        afterEvent();
    }
    if (!panel) {
        throw PanelGone();
    }
}

void PanelTour::closeWarning()
{
    if (const QPointer<QMessageBox> box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) {
        warnings << box->text();
        // An event like others, but the tour must not be left from within the box.
        afterEvent();
        if (box) {
            box->accept();
        }
    }
}

QStringList PanelTour::shownRows() const
{
    const auto names = all<QLabel>("m_labName");
    const auto notes = all<QLineEdit>("m_ediNote");
    const auto lower = all<QDoubleSpinBox>("m_spbMinPullBar");
    const auto upper = all<QDoubleSpinBox>("m_spbMaxPullBar");
    QStringList rows;
    for (int row = 0; row < names.size(); ++row) {
        const bool isFloat = names[row]->text().contains("float");
        const auto bound = [isFloat](const QDoubleSpinBox* box) {
            return isFloat ? QString::number(box->value(), 'f', 3) : QString::number(int(box->value()));
        };
        rows << QString("%%1%:%2:%3:%4;")
                    .arg(names[row]->text(), bound(lower[row]), bound(upper[row]), notes[row]->text());
    }
    return rows;
}

QByteArray PanelTour::shown() const
{
    const QString text = shownRows().join(QString());
    return text.isEmpty() ? QByteArray("0") : text.toUtf8().left(text.size());
}

bool PanelTour::isModeStored() const
{
    const int index = at<QComboBox>("cbox_determineType")->currentIndex();
    return core.runParams["LogicalMode"] == QByteArray::number(index + 1);
}
