#include "PanelTour.h"

#include <QZelCommonControl/QmlRangeSliderView.h>

#include <QLabel>
#include <QScrollArea>
#include <QToolButton>
#include <QTreeView>

using namespace ZelCore;

namespace {

SUBSCRIBE_TREE__ treeOf(const QStringList& sources)
{
    SUBSCRIBE_TREE__ tree;
    tree.CreateList(1);
    SUBSCRIBE_NODE__& module = tree.At(0);
    module.ModuleID = 5;
    FillText(module.NodeName, "Blob");
    module.CreateList(static_cast<UInt>(sources.size()));
    for (int i = 0; i < sources.size(); ++i) {
        FillText(module.At(i).NodeName, qUtf8Printable(sources[i].mid(2)));
        FillText(module.At(i).SubscribeName, qUtf8Printable(sources[i]));
    }
    return tree;
}

QWidget* openSlider()
{
    const auto windows = QApplication::topLevelWidgets();
    for (QWidget* const window : windows) {
        if (window->isVisible() && qobject_cast<QmlRangeSliderView*>(window)) {
            return window;
        }
    }
    return nullptr;
}

} // namespace

const QString PanelTour::refusedSource = QStringLiteral("5.Refused");

PanelTour::PanelTour()
{
    core.subscribeTree = treeOf({QStringLiteral("5.Count"), QStringLiteral("5.Mean"), refusedSource});
    core.fault = [this](int, const QString& line) -> std::optional<CommandResult> {
        if (answer) {
            if (const auto result = answer(commands++, line)) {
                return result;
            }
        } else {
            ++commands;
        }
        return line.endsWith(QLatin1Char('=') + refusedSource)
                   ? std::optional(CommandResult(Failed, "no such value"))
                   : std::nullopt;
    };
    QObject::connect(&m_warningWatch, &QTimer::timeout, [this] { closeWarning(); });
    m_warningWatch.start(1);
}

PanelTour::~PanelTour()
{
    // The window still goes, with a last save where an edit is unfinished.
    core.fault = nullptr;
}

void PanelTour::closeWarning()
{
    const QPointer<QMessageBox> box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    if (!box) {
        return;
    }
    ++warnings;
    // An event like others, but the tour must not be left from within the box.
    ++events;
    if (afterEvent) {
        afterEvent(events);
    }
    if (box) {
        box->accept();
    }
}

void PanelTour::happened()
{
    QApplication::processEvents();
    if (!QApplication::activeWindow()) {
        // What a window manager does when a pop-up or a box is gone.
        QApplication::setActiveWindow(&window);
    }
    ++events;
    if (panel && afterEvent) {
        afterEvent(events);
    }
    if (!panel) {
        throw PanelGone();
    }
}

void PanelTour::press(QWidget* widget)
{
    if (widget) {
        auto* const area = at<QScrollArea>("scrollArea");
        if (area->widget()->isAncestorOf(widget)) {
            area->ensureWidgetVisible(widget);
        }
        QTest::mousePress(widget, Qt::LeftButton);
        happened();
    }
}

void PanelTour::click(QWidget* widget)
{
    const QPointer<QWidget> clicked = widget;
    press(widget);
    if (clicked) {
        QTest::mouseRelease(clicked, Qt::LeftButton);
        happened();
    }
}

void PanelTour::key(QWidget* widget, Qt::Key key, Qt::KeyboardModifiers modifiers)
{
    if (widget) {
        QTest::keyClick(widget, key, modifiers);
        happened();
    }
}

void PanelTour::type(QWidget* field, const QString& text)
{
    if (field) {
        typeInto(field, text);
        happened();
    }
}

void PanelTour::choose(ButtonSelecterView* selecter, const QString& subscribeName)
{
    if (!selecter || !selecter->isVisible()) {
        return;
    }
    click(selecter->findChild<QToolButton*>());
    auto* const tree = selecter->findChild<QTreeView*>();
    if (!tree || !tree->window()->isVisible()) {
        return;
    }
    const QModelIndexList found = tree->model()->match(
        tree->model()->index(0, 0), Qt::UserRole, subscribeName, 1, Qt::MatchExactly | Qt::MatchRecursive);
    if (!found.isEmpty()) {
        tree->scrollTo(found.first());
        QTest::mouseClick(tree->viewport(), Qt::LeftButton, {}, tree->visualRect(found.first()).center());
        happened();
    } else {
        key(tree->window()->findChild<QLineEdit*>(), Qt::Key_Escape);
    }
}

void PanelTour::setVisible(bool visible)
{
    panel->setVisible(visible);
    happened();
}

QByteArray PanelTour::shown() const
{
    QString text;
    const auto names = all<QLabel>("m_labName");
    for (int row = 0; row < names.size(); ++row) {
        const QString name = names[row]->text();
        const auto bound = [this, row, isFloat = name.contains(QLatin1String("float"))](const char* box) {
            const QString shownText = at<QDoubleSpinBox>(box, row)->text();
            return isFloat ? shownText : shownText.section(QLatin1Char('.'), 0, 0);
        };
        text += QStringLiteral("%%1%:%2:%3:%4;")
                    .arg(name, bound("m_spbMinPullBar"), bound("m_spbMaxPullBar"),
                         at<QLineEdit>("m_ediNote", row)->text());
    }
    return text.isEmpty() ? QByteArray("0") : text.toUtf8();
}

QByteArray PanelTour::shownMode() const
{
    return QByteArray::number(at<QComboBox>("cbox_determineType")->currentIndex() + 1);
}

QList<ButtonSelecterView*> PanelTour::inputs() const
{
    auto selecters = panel->findChildren<ButtonSelecterView*>();
    const auto isOfBound = [](const ButtonSelecterView* selecter) {
        return !selecter->objectName().isEmpty();
    };
    selecters.erase(std::remove_if(selecters.begin(), selecters.end(), isOfBound), selecters.end());
    return selecters;
}

void PanelTour::run()
{
    core.binaryData[QStringLiteral("IFText")] =
        "%int0%:0:100:first;%float0%:0.500:2.250:;%int1%:-5:5:a b;%float1%:-1.000:1.000:%;%int2%:7:7:;";
    core.bindings = {{QStringLiteral("1/%int0%"), QStringLiteral("5.Count")},
                     {QStringLiteral("0/%float0%Start"), QStringLiteral("5.Mean")}};
    core.uiData = {{QStringLiteral("@%float0%Start"), "True"}, {QStringLiteral("@%float0%End"), "False"}};
    window.show();
    happened();

    auto* const types = at<QComboBox>("cbox_typeSelect");
    auto* const add = at<QPushButton>("btn_add");
    click(add);
    key(types, Qt::Key_Down);
    click(add);
    key(types, Qt::Key_Up);

    type(at<QLineEdit>("m_ediNote", 1), QStringLiteral("hole"));
    key(at<QLineEdit>("m_ediNote", 1), Qt::Key_Return);
    type(at<QDoubleSpinBox>("m_spbMaxPullBar"), QStringLiteral("250"));
    key(at<QDoubleSpinBox>("m_spbMaxPullBar"), Qt::Key_Return);
    type(at<QDoubleSpinBox>("m_spbMinPullBar", 2), QStringLiteral("60"));
    key(at<QDoubleSpinBox>("m_spbMinPullBar", 2), Qt::Key_Return);
    key(at<QDoubleSpinBox>("m_spbMaxPullBar", 3), Qt::Key_Up);
    if (auto* const lower = at<QDoubleSpinBox>("m_spbMinPullBar")) {
        click(lower->findChild<QLineEdit*>());
        key(openSlider(), Qt::Key_Right, Qt::ShiftModifier);
        key(openSlider(), Qt::Key_Tab);
        key(openSlider(), Qt::Key_Left);
        click(panel);
    }

    auto* const mode = at<QComboBox>("cbox_determineType");
    key(mode, Qt::Key_Down);
    key(mode, Qt::Key_Up);
    key(mode, Qt::Key_Down);

    choose(inputs().value(1), QStringLiteral("5.Mean"));
    choose(inputs().value(0), refusedSource);
    choose(inputs().value(0), QString());
    for (const char* const bound : {"Min", "Max"}) {
        const QByteArray switchButton = QByteArray("m_btn") + bound + "Switch";
        const QByteArray selecter = QByteArray("m_bsv") + bound + "NumSubscribe";
        click(at<QPushButton>(switchButton, 2));
        choose(at<ButtonSelecterView>(selecter, 2), QStringLiteral("5.Count"));
        choose(at<ButtonSelecterView>(selecter, 2), refusedSource);
        click(at<QPushButton>(switchButton, 2));
        click(at<QPushButton>(switchButton, 1));
    }

    type(at<QLineEdit>("m_ediNote", 3), QStringLiteral("left unfinished"));
    click(at<QPushButton>("m_btnDelete", 1));
    key(at<QPushButton>("m_btnDelete", 3), Qt::Key_Space);
    type(at<QLineEdit>("m_ediNote", 0), QStringLiteral("hidden"));
    setVisible(false);
    setVisible(true);
    type(at<QLineEdit>("m_ediNote", 0), QStringLiteral("shown"));
    click(at<QPushButton>("m_btnMinSwitch", 2));
}

void PanelTour::edit()
{
    if (!at<QLineEdit>("m_ediNote")) {
        click(at<QPushButton>("btn_add"));
    }
    type(at<QLineEdit>("m_ediNote"), QStringLiteral("last"));
    key(at<QLineEdit>("m_ediNote"), Qt::Key_Return);
    auto* const mode = at<QComboBox>("cbox_determineType");
    key(mode, mode->currentIndex() == 0 ? Qt::Key_Down : Qt::Key_Up);
}
