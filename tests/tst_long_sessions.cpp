#include "PanelTour.h"

#include <QAbstractEventDispatcher>
#include <QDir>

#include <malloc.h>

namespace {

constexpr int fullPanel = 32;

/// What the process holds.
struct Holdings
{
    static Holdings present();

    qint64 heap = 0; // bytes
    int widgets = 0;
    int windows = 0;
    int timers = 0;
    int files = 0;
};

Holdings Holdings::present()
{
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCoreApplication::processEvents();
    Holdings holdings;
    const auto widgets = QApplication::allWidgets();
    holdings.widgets = widgets.size();
    for (QWidget* const widget : widgets) {
        holdings.timers += QAbstractEventDispatcher::instance()->registeredTimers(widget).size();
    }
    holdings.windows = QGuiApplication::allWindows().size();
    holdings.files =
        QDir(QStringLiteral("/proc/self/fd")).entryList(QDir::NoDotAndDotDot | QDir::Files).size();
    holdings.heap = static_cast<qint64>(mallinfo2().uordblks);
    return holdings;
}

int cyclesOf(const char* variable, int count)
{
    return qEnvironmentVariableIsSet(variable) ? qEnvironmentVariableIntValue(variable) : count;
}

} // namespace

class tst_long_sessions : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void showsAndHides();
    void addsAndDeletes();

private:
    // Runs the cycle, first to warm up, then as often as asked, and compares what is held.
    void verifyFlat(int cycles, PanelTour& tour, const std::function<void(int)>& cycle);
};

void tst_long_sessions::initTestCase()
{
    qInstallMessageHandler([](QtMsgType type, const QMessageLogContext&, const QString& text) {
        if (type != QtDebugMsg && type != QtWarningMsg) {
            std::fprintf(stderr, "%s\n", qUtf8Printable(text));
        }
    });
}

void tst_long_sessions::verifyFlat(int cycles, PanelTour& tour, const std::function<void(int)>& cycle)
{
    const auto run = [&](int count) {
        for (int i = 0; i < count; ++i) {
            cycle(i);
            tour.core.takeCommands();
        }
        return Holdings::present();
    };
    const Holdings warm = run(cycles / 10);
    const Holdings after = run(cycles);
    QCOMPARE(after.widgets, warm.widgets);
    QCOMPARE(after.windows, warm.windows);
    QCOMPARE(after.timers, warm.timers);
    QCOMPARE(after.files, warm.files);
    // Caches still fill; a widget, a connection or a text that each cycle left behind would be more.
    QVERIFY2(after.heap - warm.heap < 64 * cycles,
             QByteArray::number(after.heap - warm.heap) + " bytes more");
}

void tst_long_sessions::showsAndHides()
{
    PanelTour tour;
    QByteArray list;
    for (int i = 0; i < fullPanel; ++i) {
        list += "%int" + QByteArray::number(i) + "%:1:2:note;";
    }
    tour.show(list);
    verifyFlat(cyclesOf("SHOW_CYCLES", 2000), tour, [&tour](int) {
        tour.setVisible(false);
        tour.setVisible(true);
    });
    QCOMPARE(tour.shown(), list);
}

void tst_long_sessions::addsAndDeletes()
{
    PanelTour tour;
    tour.show("%float0%:1.000:2.000:;");
    verifyFlat(cyclesOf("ADD_CYCLES", 5000), tour, [&tour](int i) {
        tour.add(i % 2 == 0 ? "int" : "float");
        tour.at<QPushButton>("m_btnDelete", 1)->click();
    });
    QCOMPARE(tour.stored(), QByteArray("%float0%:1.000:2.000:;"));
}

QTEST_MAIN(tst_long_sessions)
#include "tst_long_sessions.moc"
