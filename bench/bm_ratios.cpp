#include "EmbeddedCore/EmbeddedCore.h"
#include "QIfModuleMainView.h"
#include "SubscribeMenu.h"
#include "ZelCommon/ServiceRegistration.h"
#include "ZelCommon/SynchronousService.h"
#include "condition/ConditionRecord.h"
#include "condition/ModuleParameter.h"
#include "ui_QIfModuleMainView.h"

#include <QZelCommonControl/ButtonSelecterView.h>
#include <QZelCommonControl/QmlRangeSliderView.h>

#include <QApplication>
#include <QDeadlineTimer>
#include <QDoubleSpinBox>
#include <QLineEdit>
#include <QProcess>
#include <QQuickWidget>
#include <QQuickWindow>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <QStringListModel>
#include <QTemporaryDir>
#include <QToolButton>
#include <QTreeView>
#include <QVBoxLayout>

#include <algorithm>
#include <cmath>
#include <ctime>
#include <functional>
#include <memory>

using namespace ZelCore;

namespace {

/// A measurement: prepares, measures, clears up, and returns the seconds that it measured.
using Round = std::function<double()>;
/// Makes what all rounds of one side share; the round owns it.
using Side = std::function<Round()>;

struct PaintFilter : QObject
{
    bool eventFilter(QObject*, QEvent* event) override
    {
        hasPainted |= event->type() == QEvent::Paint;
        return false;
    }
    bool hasPainted = false;
};

/// Seconds that the action takes. The process's own time is not disturbed by other programs; waiting for a
/// disk is CLOCK_MONOTONIC.
double timed(const std::function<void()>& action, clockid_t clock = CLOCK_PROCESS_CPUTIME_ID)
{
    const auto now = [clock] {
        timespec time{};
        ::clock_gettime(clock, &time);
        return static_cast<double>(time.tv_sec) + 1e-9 * static_cast<double>(time.tv_nsec);
    };
    const double start = now();
    action();
    return now() - start;
}

double timedUntilPainted(const std::function<void()>& action)
{
    PaintFilter filter;
    qApp->installEventFilter(&filter);
    return timed([&] {
        action();
        for (const QDeadlineTimer limit(10000); !filter.hasPainted && !limit.hasExpired();) {
            QApplication::processEvents();
        }
        QApplication::processEvents();
    });
}

QByteArray textOf(int rows)
{
    QList<ConditionRecord> list;
    for (int i = 0; i < rows; ++i) {
        const QString number = QString::number(i / 2);
        list << ConditionRecord{(i % 2 ? "float" : "int") + number, i + 0.125, i + 999.5, "size " + number};
    }
    return ConditionRecord::toText(list).toUtf8();
}

/// The panel on the core of the workbench, with a store of its own.
struct Real
{
    explicit Real(int rows)
    {
        added = QString("int%1").arg((rows + 1) / 2);
        const QByteArray text = textOf(rows);
        SetBinaryDataCommand command(7, ModuleParameter::conditionList, text.constData(),
                                     static_cast<UInt>(text.size()), 0);
        core->Execute(command);
    }
    void open()
    {
        panel = std::make_unique<QIfModuleMainView>(7, nullptr);
        panel->resize(700, 2000); // room for every row
        show();
    }
    void show() { panel->show(); }
    void add() { panel->on_btn_add_clicked(); }
    void removeAdded() { panel->onBtnDeleteOpt(added); }

    QString added;
    QString error;
    QTemporaryDir folder;
    std::unique_ptr<EmbeddedCore> core =
        EmbeddedCore::open(*Flow::load(SAMPLE_FLOW, &error), folder.filePath("store.sqlite"), &error);
    ServiceRegistration registration{*core};
    std::unique_ptr<QIfModuleMainView> panel;
};

template <typename Panel>
std::shared_ptr<Panel> opened(int rows)
{
    auto side = std::make_shared<Panel>(rows);
    side->open();
    QApplication::processEvents();
    return side;
}

// Of the first of the classes that the original is an object of.
template <typename... Classes>
QWidget* plain(const QWidget& original, QWidget* parent)
{
    QWidget* made = nullptr;
    ((made = made || !qobject_cast<const Classes*>(&original) ? made : new Classes(parent)), ...);
    return made;
}

/// A widget of the same Qt class, text, sheet and size, with copies of what is in a strip; nothing behind it.
QWidget* copyOf(const QWidget& original, QWidget* parent)
{
    QWidget* const copy =
        plain<QDoubleSpinBox, QPushButton, QLineEdit, QLabel, ButtonSelecterView, QWidget>(original, parent);
    for (const char* const name : {"objectName", "geometry", "minimumSize", "maximumSize", "styleSheet",
                                   "text", "decimals", "minimum", "maximum", "value"}) {
        copy->setProperty(name, original.property(name));
    }
    if (copy->metaObject() == &QWidget::staticMetaObject) {
        for (const QWidget* const child :
             original.findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly)) {
            copyOf(*child, copy);
        }
    }
    copy->setHidden(original.isHidden());
    return copy;
}

/// The form with its sheets, and copies of the rows of a panel.
struct Bare
{
    explicit Bare(int rows)
        : original(opened<Real>(rows))
        , originals(original->panel->findChild<QVBoxLayout*>("verL_infoList"))
    {}
    void open()
    {
        panel = std::make_unique<QWidget>();
        form.setupUi(panel.get());
        panel->resize(700, 2000);
        panel->setStyleSheet(original->panel->styleSheet());
        for (QWidget* const widget : panel->findChildren<QWidget*>()) {
            const auto* const styled = original->panel->findChild<QWidget*>(widget->objectName());
            if (styled && !styled->styleSheet().isEmpty()) {
                widget->setStyleSheet(styled->styleSheet());
            }
        }
        show();
    }
    void show()
    {
        while (form.verL_infoList->count() != 0) {
            removeAdded();
        }
        for (int i = 0; i < originals->count(); ++i) {
            copyRow(i);
        }
        panel->show();
    }
    void copyRow(int i)
    {
        const auto& row = static_cast<const QHBoxLayout&>(*originals->itemAt(i)->layout());
        auto* const copy = new QHBoxLayout;
        form.verL_infoList->addLayout(copy);
        copy->setContentsMargins(row.contentsMargins());
        copy->setSpacing(row.spacing());
        for (int j = 0; j < row.count() - 1; ++j) {
            copy->addWidget(copyOf(*row.itemAt(j)->widget(), form.widget_2), row.stretch(j));
        }
        copy->addItem(new QSpacerItem(10, 20, QSizePolicy::Expanding));
    }
    void removeAdded()
    {
        const std::unique_ptr<QLayoutItem> row(form.verL_infoList->takeAt(form.verL_infoList->count() - 1));
        while (const std::unique_ptr<QLayoutItem> item{row->layout()->takeAt(0)}) {
            delete item->widget();
        }
    }
    void add() { copyRow(originals->count() - 1); }
    std::shared_ptr<Real> original;
    const QVBoxLayout* originals;
    std::unique_ptr<QWidget> panel;
    Ui_QIfModuleMainView form;
};

template <typename Panel>
Round open(int rows)
{
    return [rows] {
        Panel side(rows);
        return timedUntilPainted([&side] { side.open(); });
    };
}

template <typename Panel>
Round showAgain(int rows)
{
    return [side = opened<Panel>(rows)] {
        side->panel->hide();
        QApplication::processEvents();
        return timedUntilPainted([&side] { side->show(); });
    };
}

template <typename Panel>
Round add(int rows)
{
    return [side = opened<Panel>(rows)] {
        const double seconds = timedUntilPainted([&side] { side->add(); });
        side->removeAdded();
        QApplication::processEvents();
        return seconds;
    };
}

Round buildText(int rows)
{
    return [rows] { return timed([rows] { textOf(rows); }); };
}

struct MemoryCore : SynchronousService
{
    using SynchronousService::Execute;
    CommandResult Execute(ICommand&) override { return Success; }
};

Round finishEdit(int rows)
{
    return [side = opened<Real>(rows)] {
        MemoryCore core;
        const ServiceRegistration registration(core);
        return timed([&side] { side->panel->onLogicValueChanged2SetParam(); });
    };
}

Round transaction(int rows)
{
    const auto folder = std::make_shared<QTemporaryDir>();
    auto database = QSqlDatabase::addDatabase("QSQLITE", folder->path());
    database.setDatabaseName(folder->filePath("floor.sqlite"));
    database.open();
    database.exec("PRAGMA synchronous = EXTRA");
    database.exec("PRAGMA journal_mode = WAL");
    database.exec("CREATE TABLE p (name TEXT PRIMARY KEY, value BLOB) WITHOUT ROWID");
    const auto query = std::make_shared<QSqlQuery>(database);
    query->prepare("INSERT OR REPLACE INTO p VALUES ('IFText', ?)");
    return [folder, query, text = textOf(rows), number = 0]() mutable {
        query->bindValue(0, text + QByteArray::number(++number)); // the same bytes would not be written
        return timed([&query] { query->exec(); }, CLOCK_MONOTONIC);
    };
}

Round finishStoredEdit(int rows)
{
    const auto side = opened<Real>(rows);
    auto* const note = side->panel->findChild<QLineEdit*>("m_ediNote");
    return [side, note, number = 0]() mutable {
        note->setText(QString::number(++number));
        return timed([&side] { side->panel->onLogicValueChanged2SetParam(); }, CLOCK_MONOTONIC);
    };
}

/// A flat list of the values in a bare view.
Round openList(int values)
{
    return [values] {
        QTreeView view;
        return timedUntilPainted([&] {
            const QStringList labels = QString("Value\n").repeated(values).split('\n');
            view.setWindowFlags(Qt::Tool | Qt::FramelessWindowHint);
            view.setModel(new QStringListModel(labels, &view));
            view.setHeaderHidden(true);
            view.resize(320, 330);
            view.show();
        });
    };
}

/// From the click to the menu, the core's tree included.
Round openSelecter(int values)
{
    SUBSCRIBE_NODE__ tree;
    tree.CreateList(static_cast<UInt>(values));
    for (int i = 0; i < values; ++i) {
        std::snprintf(tree.At(i).NodeName, sizeof tree.NodeName, "Value%d", i);
        std::snprintf(tree.At(i).SubscribeName, sizeof tree.SubscribeName, "5.Value%d", i);
    }
    return [tree = std::move(tree)] {
        ButtonSelecterView selecter;
        QObject::connect(&selecter, &ButtonSelecterView::sigQuerySubscribeMenuInfo, &selecter, [&] {
            QJsonObject module;
            SubscribeMenu::ParseTreeNode(tree, module, 1);
            QJsonArray menu{module};
            selecter.UpdateSubscribeMenuData(menu, 0);
        });
        selecter.SetFixedSize(100, 30);
        selecter.show();
        QApplication::processEvents();
        selecter.setUpdatesEnabled(false); // only the menu paints
        return timedUntilPainted([&selecter] { selecter.findChild<QToolButton*>()->click(); });
    };
}

std::unique_ptr<QWidget> bareSlider()
{
    QQuickWindow::setSceneGraphBackend(QSGRendererInterface::Software);
    auto view = std::make_unique<QQuickWidget>();
    view->setWindowFlags(Qt::Tool | Qt::FramelessWindowHint);
    view->setAttribute(Qt::WA_ShowWithoutActivating);
    view->setResizeMode(QQuickWidget::SizeRootObjectToView);
    view->setClearColor(Qt::white);
    view->setSource(QUrl("qrc:/QZelCommonControl/QmlRangeSliderView.qml"));
    return view;
}

Round firstOpening(std::unique_ptr<QWidget> (*make)())
{
    return [make] {
        std::unique_ptr<QWidget> widget;
        return timedUntilPainted([&] {
            widget = make();
            widget->resize(230, 25);
            widget->show();
        });
    };
}

// What the command line asks for.
std::string wanted;
std::string onlySide;
bool allHold = true;

/// Prints a figure and its floor: the same work done by plain Qt code. The bound is the
/// highest ratio of the two, infinite where only the growth is of interest. The sides run in turn.
void compare(const std::string& name, double bound, int rounds, const Side& floor, const Side& subject)
{
    if (!onlySide.empty() && name == wanted) {
        std::printf("%.9f\n", (onlySide == "floor" ? floor : subject)()());
    }
    if (!onlySide.empty() || name.find(wanted) == std::string::npos) {
        return;
    }
    double least = HUGE_VAL;
    double measured = HUGE_VAL;
    for (int i = 0; i < 5; ++i) {
        for (const auto& [side, best] : {std::pair(&floor, &least), {&subject, &measured}}) {
            const Round round = (*side)();
            for (int j = 0; j < rounds; ++j) {
                *best = std::min(*best, round()); // other programs and the disk can only add to a round
            }
        }
    }
    const bool holds = measured <= least * bound;
    std::printf("%-26s %10.4f ms %10.4f ms %7.2f", name.c_str(), least * 1e3, measured * 1e3,
                measured / least);
    if (!std::isinf(bound)) {
        std::printf("  at most %.2f%s", bound, holds ? "" : "  EXCEEDED");
    }
    std::puts("");
    allHold = allHold && holds;
}

// In a process of its own, for what can be the first only once.
Side fresh(const std::string& name, const char* side, const Side& here)
{
    return !onlySide.empty() ? here : [name, side] {
        return [name, side] {
            QProcess process;
            process.start(QCoreApplication::applicationFilePath(),
                          {"--once", QString::fromStdString(name), side});
            process.waitForFinished();
            return process.readAllStandardOutput().toDouble();
        };
    };
}

} // namespace

/// bm_ratios [NAME]: prints the comparisons whose name contains NAME, and fails when a bound is exceeded.
/// bm_ratios --once NAME floor|subject: prints the seconds of one round of one side.
int main(int argc, char** argv)
{
    const QApplication application(argc, argv);
    // As in a host that discards debug lines: composing them still costs.
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
    onlySide = argc == 4 ? argv[3] : "";
    wanted = argc > 1 ? argv[argc == 4 ? 2 : 1] : "";
    const auto atSize = [](int size, int largest, const char* name, double bound, int rounds,
                           Round (*floor)(int), Round (*subject)(int)) {
        compare(
            name + std::to_string(size), size == largest ? bound : HUGE_VAL, rounds,
            [=] { return floor(size); }, [=] { return subject(size); });
    };
    for (const int rows : {1, 8, 31}) {
        atSize(rows, 31, "open a panel/", 1.6, 8, open<Bare>, open<Real>);
        atSize(rows, 31, "show it again/", 1.6, 8, showAgain<Bare>, showAgain<Real>);
        atSize(rows, 31, "add a row to/", 1.3, 8, add<Bare>, add<Real>);
        atSize(rows, 31, "a finished edit/", 1.5, 400, buildText, finishEdit);
        atSize(rows, 31, "a stored edit/", 2.5, 60, transaction, finishStoredEdit);
    }
    for (const int values : {100, 1000, 10000}) {
        atSize(values, 10000, "open a menu/", 30.0, 4, openList, openSelecter);
    }
    const std::string name = "first slider of a process";
    const auto slider = []() -> std::unique_ptr<QWidget> { return std::make_unique<QmlRangeSliderView>(); };
    compare(name, 1.2, 2, fresh(name, "floor", [] { return firstOpening(bareSlider); }),
            fresh(name, "subject", [=] { return firstOpening(slider); }));
    return allHold ? 0 : 1;
}
