#include "PanelTour.h"

#include <QAbstractEventDispatcher>
#include <QDir>
#include <QLoggingCategory>

#include <malloc.h>

namespace {

// Widgets, windows, timers and files that the process holds.
QVector<int> holdings()
{
    const auto widgets = QApplication::allWidgets();
    int timers = 0;
    for (QWidget* const widget : widgets) {
        timers += QAbstractEventDispatcher::instance()->registeredTimers(widget).size();
    }
    const int files = QDir("/proc/self/fd").entryList(QDir::NoDotAndDotDot | QDir::Files).size();
    return {widgets.size(), QGuiApplication::allWindows().size(), timers, files};
}

// Runs the cycle, first to warm up, then as often as asked, and compares what is held.
void verifyFlat(const char* variable, int standard, PanelTour& tour, const std::function<void(int)>& cycle)
{
    QLoggingCategory::setFilterRules("*.debug=false\n*.warning=false");
    const int cycles =
        qEnvironmentVariableIsSet(variable) ? qEnvironmentVariableIntValue(variable) : standard;
    QVector<int> warm;
    std::size_t heap = 0;
    for (int i = 0; i <= cycles + cycles / 10; ++i) {
        if (i == cycles / 10) {
            warm = holdings();
            heap = mallinfo2().uordblks;
        }
        cycle(i);
        tour.core.takeCommands();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCoreApplication::processEvents();
    }
    QCOMPARE(holdings(), warm);
    // Qt's style sheet caches still fill; an object that each cycle left behind would be more.
    const auto more = static_cast<qint64>(mallinfo2().uordblks - heap);
    QVERIFY2(more < (1 << 17) + 64 * cycles, QByteArray::number(more) + " bytes more");
}

} // namespace

class tst_long_sessions : public QObject
{
    Q_OBJECT

private slots:
    void showsAndHides();
    void addsAndDeletes();
};

void tst_long_sessions::showsAndHides()
{
    PanelTour tour;
    QByteArray list;
    for (int i = 0; i < 32; ++i) {
        list += "%int" + QByteArray::number(i) + "%:1:2:note;";
    }
    tour.show(list);
    verifyFlat("SHOW_CYCLES", 2000, tour, [&tour](int) {
        tour.setVisible(false);
        tour.setVisible(true);
    });
    QCOMPARE(tour.shown(), list);
}

void tst_long_sessions::addsAndDeletes()
{
    PanelTour tour;
    tour.show("%float0%:1.000:2.000:;");
    verifyFlat("ADD_CYCLES", 5000, tour, [&tour](int i) {
        tour.add(i % 2 == 0 ? "int" : "float");
        tour.at<QPushButton>("m_btnDelete", 1)->click();
    });
    QCOMPARE(tour.stored(), QByteArray("%float0%:1.000:2.000:;"));
}

QTEST_MAIN(tst_long_sessions)
#include "tst_long_sessions.moc"
