#include "HostApplication.h"
#include "LogCapture.h"
#include "PanelTour.h"
#include "QIfModuleExports.h"

#include <malloc.h>
#include <new>

using namespace ZelCore;

namespace {
bool s_isOutOfMemory = false;

// Every n-th command of a kind fails, and the panel is destroyed after every n-th event.
const int s_faultStep = qEnvironmentVariable("FAULT_STEP", "20").toInt();
} // namespace

void* operator new(std::size_t size, const std::nothrow_t&) noexcept
{
    return s_isOutOfMemory ? nullptr : ::operator new(size);
}

class tst_faults : public QObject
{
    Q_OBJECT

private slots:
    void factory();
    void everyCommandInTurn_data();
    void everyCommandInTurn();
    void destroyedAfterEveryEvent();
    void nothingIsLeftBehind();
};

void tst_faults::factory()
{
    QWidget host;
    QWidget* panel = &host;
    s_isOutOfMemory = true;
    const bool isMade = CreateModuParamConfigInstance(7, &host, &panel);
    s_isOutOfMemory = false;
    QVERIFY(!isMade && !panel);
    LogCapture log;
    log.failure = "";
    QVERIFY_EXCEPTION_THROWN(CreateModuParamConfigInstance(7, &host, &panel), ZelCommon::ZelException);
    QVERIFY(host.children().isEmpty());
}

void tst_faults::everyCommandInTurn_data()
{
    QTest::addColumn<QString>("line");
    for (const QString& line : PanelTour::linesOf("failures.txt")) {
        QTest::newRow(qPrintable(line.section(" -> ", 0, 0))) << line.section(" -> ", 1).replace("\\n", "\n");
    }
}

void tst_faults::everyCommandInTurn()
{
    QFETCH(QString, line);
    const QRegularExpression kind(QString("^(%1)").arg(QTest::currentDataTag()));
    const int total = PanelTour::linesOf("tour.txt").filter(kind).size();
    QVERIFY(total > 0);
    // Each fails in three ways; without a status, by an exception.
    const std::optional<CommandStatus> statuses[] = {Failed, NothingChanged, std::nullopt};
    for (int turn = 0; turn < 3 * total; turn += turn % 3 == 2 ? 3 * s_faultStep - 2 : 1) {
        const auto status = statuses[turn % 3];
        PanelTour tour;
        int count = 0;
        tour.core.fault = [&](const QString& command) -> std::optional<CommandResult> {
            if (!kind.match(command).hasMatch() || count++ != turn / 3) {
                return std::nullopt;
            }
            if (!status) {
                throw ZelCommon::ZelException("gone");
            }
            return CommandResult(*status, "NO");
        };
        const int exceptions = HostApplication::exceptions;
        LogCapture log;
        tour.performAll();
        QVERIFY(count > turn / 3);
        QCOMPARE(HostApplication::exceptions - exceptions, status ? 0 : 1);
        const QString lines = log.takeLines().join('\n');
        QVERIFY2(!status || line == "silent" || lines.contains(line), qPrintable(lines));
        QCOMPARE(lines.contains("NO"), status && line.contains("NO"));
        // The next edits store all that is shown.
        for (const char* const action : {"show", "click btn_add", "type m_ediNote last", "key m_ediNote Tab",
                                         "key cbox_determineType Up", "key cbox_determineType Down"}) {
            QVERIFY2(tour.perform(action), action);
        }
        QCOMPARE(tour.stored(), tour.shown());
        QVERIFY(tour.isModeStored());
        QCOMPARE(log.warnings(), QStringList());
    }
}

void tst_faults::destroyedAfterEveryEvent()
{
    bool isReached = true;
    for (int turn = 0; isReached; turn += turn % 2 == 0 ? 1 : 2 * s_faultStep - 1) {
        PanelTour tour;
        LogCapture log;
        int event = 0;
        isReached = false;
        tour.afterEvent = [&] {
            if (event++ == turn / 2) {
                isReached = true;
                tour.core.takeCommands();
                delete (turn % 2 == 0 ? tour.panel.data() : tour.container);
            }
        };
        tour.performAll();
        QApplication::processEvents();
        QCOMPARE(tour.core.takeCommands().isEmpty(), isReached);
        QVERIFY(!isReached || !tour.find("slider"));
        QCOMPARE(log.warnings(), QStringList());
    }
}

// However long a panel is used, what the process holds stays as it was after warming up.
void tst_faults::nothingIsLeftBehind()
{
    const int cycles = qEnvironmentVariable("CYCLES", "30").toInt();
    QLoggingCategory::setFilterRules("*.debug=false\n*.warning=false");
    PanelTour tour;
    tour.show("%int0%:0:100:a;%float0%:0.500:2.250:b;");
    QVector<int> warm;
    std::size_t heap = 0;
    for (int i = -10; i <= cycles; ++i) {
        const QVector<int> held = {QApplication::allWidgets().size(), QGuiApplication::allWindows().size(),
                                   int(QDir("/proc/self/fd").count())};
        if (i <= 0) {
            warm = held;
            heap = mallinfo2().uordblks;
        }
        QCOMPARE(held, warm);
        for (const char* const action : {"hide", "show", "click btn_add", "click m_btnDelete:2"}) {
            QVERIFY2(tour.perform(action), action);
        }
        tour.core.takeCommands();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    QLoggingCategory::setFilterRules({});
    // Qt's style sheet caches still fill; an object that each cycle left behind would be more.
    const auto more = static_cast<qint64>(mallinfo2().uordblks - heap);
    QVERIFY2(more < (1 << 17) + 64 * cycles, QByteArray::number(more) + " bytes more");
}

HOST_TEST_MAIN(tst_faults)
#include "tst_faults.moc"
