#include "HostApplication.h"
#include "LogCapture.h"
#include "PanelTour.h"
#include "QIfModuleExports.h"

#include <QZelCommonControl/QmlRangeSliderView.h>

#include <QScopeGuard>

#include <new>

using namespace ZelCore;

namespace {
bool s_isOutOfMemory = false;
}

void* operator new(std::size_t size, const std::nothrow_t&) noexcept
{
    return s_isOutOfMemory ? nullptr : ::operator new(size);
}

namespace {

// Which commands and events have their turn: every one, or every n-th for a sample.
int faultStep()
{
    return qMax(1, qEnvironmentVariableIntValue("FAULT_STEP"));
}

// The log line that tells of a failed command; empty where the panel says nothing.
QString logOf(const QString& command)
{
    const auto begins = [&command](const char* beginning) {
        return command.startsWith(QLatin1String(beginning));
    };
    const QString bound = command.contains("%End") ? "End" : "Start";
    const QString word = bound == "End" ? "Max" : "Min";
    if (begins("QueryBinaryData")) {
        return "[QIfModuleMainView]: QueryIfModuleInfo IFText id[7] failed. errmeg=no";
    }
    if (begins("QueryRunParam")) {
        return "[QIfModuleMainView]: QueryIfModuleInfo LogicalMode id[7] failed. errmeg=no";
    }
    if (begins("QueryUIData")) {
        return "[QueryIfModuUIParamScribeInfo]: " + bound + " UI_OBJECT_PARAM_INFO_CONDITION falied.no";
    }
    if (begins("GetFilterSource 7 0")) {
        return "[RangeSelectControlIM]: m_bsv" + word +
               "NumSubscribe GetFilterSourceOperation4IO falied. msg =  \n";
    }
    if (begins("SetFilterSource 7 0")) {
        return "[RangeSelectControlIM]: onBtnMaxSwitch SetFilterSourceOperation4IO failed. ";
    }
    if (begins("AddIO")) {
        return QString("[QIfModuleMainView]: on_btn_add_clicked AddIOCommand %1 failed. errmeg=no")
            .arg(command.contains("class=1") ? "input" : "output");
    }
    if (begins("SetBinaryData")) {
        return "[QIfModuleMainView]: onLogicValueChanged2SetParam failed. errmeg=no";
    }
    if (begins("SetRunParam")) {
        return "[QIfModuleMainView]: on_cbox_determineType_currentIndexChanged failed. errmeg=no";
    }
    if (begins("SetUIData")) {
        return "[RangeSelectControlIM]: onBtn" + word + "Switch SetUIDataCommand failed. errmeg=no";
    }
    if (begins("DeleteUIData")) {
        return "[HorizontalControlIM]: DelIO uiparam failed. errmeg=no";
    }
    return {};
}

} // namespace

class tst_faults : public QObject
{
    Q_OBJECT

private slots:
    void factory();
    void tour();
    void everyCommandInTurn_data();
    void everyCommandInTurn();
    void destroyedAfterEveryEvent_data();
    void destroyedAfterEveryEvent();
};

void tst_faults::factory()
{
    QWidget host;
    QWidget* panel = &host;
    s_isOutOfMemory = true;
    const bool isMade = CreateModuParamConfigInstance(7, &host, &panel);
    s_isOutOfMemory = false;
    QVERIFY(!isMade);
    QVERIFY(!panel);
    {
        const auto restore = qScopeGuard(
            [handler = qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {
                 throw ZelCommon::ZelException("the log is full");
             })] { qInstallMessageHandler(handler); });
        QVERIFY_EXCEPTION_THROWN(CreateModuParamConfigInstance(7, &host, &panel), ZelCommon::ZelException);
    }
    QVERIFY(host.children().isEmpty());
    QVERIFY(CreateModuParamConfigInstance(7, &host, &panel));
    QCOMPARE(panel->parentWidget(), &host);
}

// Without a fault: every kind of command occurs, and all that is shown is stored.
void tst_faults::tour()
{
    PanelTour tour;
    QStringList kinds;
    tour.answer = [&kinds](int, const QString& line) {
        kinds << line.section(' ', 0, line.contains("FilterSource") ? 2 : 0).section('/', 0, 0);
        return std::nullopt;
    };
    tour.run();
    kinds.removeDuplicates();
    kinds.sort();
    QCOMPARE(kinds, QStringList({"AddIO", "DelFilterSource 7 0", "DelFilterSource 7 1", "DeleteUIData",
                                 "GetFilterSource 7 0", "GetFilterSource 7 1", "QueryBinaryData",
                                 "QueryRunParam", "QuerySubscribeTree", "QueryUIData", "SetBinaryData",
                                 "SetFilterSource 7 0", "SetFilterSource 7 1", "SetRunParam", "SetUIData"}));
    QCOMPARE(tour.warnings, 1);
    QCOMPARE(tour.stored(), tour.shown());
    QCOMPARE(tour.storedMode(), tour.shownMode());
    QCOMPARE(tour.stored(), QByteArray("%int0%:-1:260:shown;%int1%:-5:5:a b;%float1%:-1.000:2.000:left "
                                       "unfinished;%int3%:1:1000:;%float2%:1.000:1000.000:;"));
}

void tst_faults::everyCommandInTurn_data()
{
    QTest::addColumn<int>("status");
    QTest::newRow("Failed") << int(Failed);
    QTest::newRow("NothingChanged") << int(NothingChanged);
    QTest::newRow("exception") << -1;
}

void tst_faults::everyCommandInTurn()
{
    QFETCH(int, status);
    bool isReached = true;
    for (int faulty = 0; isReached; faulty += faultStep()) {
        isReached = false;
        QString command;
        PanelTour tour;
        tour.answer = [&](int number, const QString& line) -> std::optional<CommandResult> {
            if (number != faulty) {
                return std::nullopt;
            }
            isReached = true;
            command = line;
            if (status == -1) {
                throw ZelCommon::ZelException("gone");
            }
            return CommandResult(static_cast<CommandStatus>(status), "no");
        };
        const int exceptions = HostApplication::instance()->exceptions;
        LogCapture log;
        tour.run();
        if (!isReached) {
            break;
        }
        const QByteArray context = QByteArray::number(faulty) + ": " + command.toUtf8();
        if (status == -1) {
            QCOMPARE(HostApplication::instance()->exceptions - exceptions, 1);
        } else if (!logOf(command).isEmpty()) {
            QVERIFY2(log.lines().contains(logOf(command)), context);
        }
        tour.edit();
        QVERIFY2(tour.stored() == tour.shown(), context + '\n' + tour.stored() + '\n' + tour.shown());
        QVERIFY2(tour.storedMode() == tour.shownMode(), context);
        QVERIFY2(log.warnings().isEmpty(), context + log.warnings().join('\n').toUtf8());
    }
}

void tst_faults::destroyedAfterEveryEvent_data()
{
    QTest::addColumn<bool>("byHost");
    QTest::newRow("panel") << false;
    QTest::newRow("its parent") << true;
}

void tst_faults::destroyedAfterEveryEvent()
{
    QFETCH(bool, byHost);
    bool isReached = true;
    for (int last = 1; isReached; last += faultStep()) {
        isReached = false;
        PanelTour tour;
        tour.afterEvent = [&](int number) {
            if (number != last) {
                return;
            }
            isReached = true;
            tour.core.takeCommands();
            delete (byHost ? tour.container : tour.panel.data());
            QCOMPARE(tour.core.takeCommands(), QStringList());
        };
        try {
            tour.run();
        } catch (const PanelTour::PanelGone&) {
        }
        QApplication::processEvents();
        QCOMPARE(tour.core.takeCommands().isEmpty(), isReached);
        const auto windows = QApplication::topLevelWidgets();
        for (const QWidget* const window : windows) {
            QVERIFY2(!isReached || !qobject_cast<const QmlRangeSliderView*>(window),
                     QByteArray::number(last));
        }
    }
}

HOST_TEST_MAIN(tst_faults)
#include "tst_faults.moc"
