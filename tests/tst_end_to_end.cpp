#include <QJsonArray>
#include <QJsonDocument>
#include <QLocalSocket>
#include <QProcess>
#include <QRect>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <QTemporaryDir>
#include <QtTest>

namespace {

struct Place
{
    QRect rect;
    QString text;
};

void xdotool(const QStringList& arguments)
{
    QProcess process;
    process.start("xdotool", arguments);
    QVERIFY2(process.waitForFinished() && process.exitCode() == 0, process.readAllStandardError());
}

void keys(const QStringList& keys)
{
    xdotool(QStringList("key") + keys);
}

void type(const char* text)
{
    xdotool({"type", "--delay", "20", text});
}

QStringList at(const QPoint& place)
{
    return {"mousemove", QString::number(place.x()), QString::number(place.y())};
}

} // namespace

/// The workbench as its user meets it: a process with a window, a mouse and keys, and what it stores.
class tst_end_to_end : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        m_windowManager.start("openbox", QStringList());
        QVERIFY(m_windowManager.waitForStarted());
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert("QT_PLUGIN_PATH", QStringLiteral(WIDGET_PROBE_DIR));
        environment.insert("QT_QPA_GENERIC_PLUGINS", "widgetprobe:" + m_folder.filePath("probe"));
        environment.insert("XDG_CONFIG_HOME", m_folder.path());
        environment.insert("QT_QUICK_BACKEND", "software");
        m_workbench.setProcessEnvironment(environment);
        start();
        auto database = QSqlDatabase::addDatabase("QSQLITE");
        database.setDatabaseName(m_store);
        QVERIFY(database.open());
    }
    void cleanupTestCase()
    {
        if (QTest::currentTestFailed()) {
            qDebug().noquote() << m_workbench.readAllStandardError();
        }
        for (QProcess* const process : {&m_workbench, &m_windowManager}) {
            process->kill();
            process->waitForFinished();
        }
    }
    void conditionsAreStoredComeBackAndAreDeleted();

private:
    void start()
    {
        m_workbench.start(QStringLiteral(IF_WORKBENCH_FILE), {"--store", m_store});
        QVERIFY(m_workbench.waitForStarted());
        m_probe.abort();
        const bool isProbed = QTest::qWaitFor(
            [this] {
                m_probe.connectToServer(m_folder.filePath("probe"));
                return m_probe.waitForConnected(100);
            },
            20000);
        QVERIFY2(isProbed, m_workbench.readAllStandardError());
        wait("btn_add");
    }
    void quit()
    {
        keys({"alt+F4"});
        QVERIFY(m_workbench.waitForFinished(10000));
        QVERIFY(m_workbench.exitStatus() == QProcess::NormalExit && m_workbench.exitCode() == 0);
    }
    QVector<Place> find(const char* name)
    {
        m_probe.write(QByteArray(name) + '\n');
        while (!m_probe.canReadLine() && m_probe.waitForReadyRead(5000)) {
        }
        QVector<Place> places;
        const QJsonArray answer = QJsonDocument::fromJson(m_probe.readLine()).array();
        for (const QJsonValue& value : answer) {
            places << Place{QRect(value[0].toInt(), value[1].toInt(), value[2].toInt(), value[3].toInt()),
                            value[4].toString()};
        }
        return places;
    }
    /// The n-th widget of a name from the top, once it is there.
    Place wait(const char* name, int index = 0)
    {
        QVector<Place> places;
        // A row that is still being laid out moves.
        const bool isThere = QTest::qWaitFor(
            [&] {
                const QVector<Place> before = std::exchange(places, find(name));
                return before.size() > index && places.size() == before.size() &&
                       places[index].rect == before[index].rect;
            },
            10000);
        if (!isThere) {
            QTest::qFail(qPrintable(QString("%1 %2 is not there").arg(name).arg(index)), __FILE__, __LINE__);
        }
        return places.value(index);
    }
    void clickOn(const char* name, int index = 0)
    {
        xdotool(at(wait(name, index).rect.center()) + QStringList({"click", "1"}));
    }
    void choose(const char* selecter, int index, const char* filter)
    {
        clickOn(selecter, index);
        wait("SubscribeMenuPopup");
        type(filter);
        keys({"Return"});
        QTRY_VERIFY(find("SubscribeMenuPopup").isEmpty());
    }
    /// The first column of a statement's rows, joined.
    QString stored(const char* statement) const
    {
        QStringList rows;
        for (QSqlQuery query(statement); query.next();) {
            rows << query.value(0).toString();
        }
        return rows.join(' ');
    }
    QString list() const { return stored("SELECT value FROM binary_parameter WHERE name = 'IFText'"); }
    QString bindings() const
    {
        return stored("SELECT target_key || ' ' || source FROM binding ORDER BY target_key");
    }

    QTemporaryDir m_folder;
    const QString m_store = m_folder.filePath("store.sqlite");
    QProcess m_windowManager;
    QProcess m_workbench;
    QLocalSocket m_probe;
};

void tst_end_to_end::conditionsAreStoredComeBackAndAreDeleted()
{
    clickOn("btn_add");
    QTRY_COMPARE(list(), "%int0%:1:1000:;");
    clickOn("cbox_typeSelect");
    keys({"End", "Return"});
    clickOn("btn_add");
    clickOn("m_ediNote", 1);
    type("radius");
    keys({"Tab"});
    QTRY_COMPARE(list(), "%int0%:1:1000:;%float0%:1.000:1000.000:radius;");

    // The slider opens and the typing goes on, until a click beside closes it.
    clickOn("m_spbMinPullBar", 1);
    QCOMPARE(wait("QmlRangeSliderView").rect.size(), QSize(230, 25));
    keys({"ctrl+a"});
    type("6.981");
    clickOn("lab_help");
    QTRY_VERIFY(find("QmlRangeSliderView").isEmpty());
    QTRY_COMPARE(list(), "%int0%:1:1000:;%float0%:6.981:1000.000:radius;");

    // The handle that is nearest, by the mouse, then by the keys.
    clickOn("m_spbMaxPullBar");
    const QRect slider = wait("QmlRangeSliderView").rect;
    const QPoint press(slider.left() + slider.width() * 3 / 5, slider.center().y());
    xdotool(at(press) + QStringList({"mousedown", "1"}) + at(press + QPoint(9, 0)) +
            QStringList({"mouseup", "1"}));
    keys({"Right"});
    const auto shownMaximum = [this] { return wait("m_spbMaxPullBar").text.toDouble(); };
    QTRY_VERIFY(shownMaximum() != 1000.0);
    clickOn("lab_help");
    QTRY_VERIFY(find("QmlRangeSliderView").isEmpty());
    QTRY_COMPARE(list().section(';', 0, 0), QString("%int0%:1:%1:").arg(shownMaximum()));

    choose("ButtonSelecterView", 0, "objectcount");
    clickOn("m_btnMaxSwitch");
    choose("m_bsvMaxNumSubscribe", 0, "objectnumber");
    const QString both = "%int0% 5.ObjectCount %int0%End 5.ObjectNumber";
    QTRY_COMPARE(bindings(), both);
    clickOn("cbox_determineType");
    keys({"Down", "Return"});
    QTRY_COMPARE(stored("SELECT value FROM run_parameter WHERE name = 'LogicalMode'"), "2");

    // All objects that come with the flow are judged by what was just stored; a later change is marked.
    keys({"F9"});
    QTRY_VERIFY(wait("runTotals").text.startsWith("569 rows"));
    clickOn("m_btnDelete", 1);
    QTRY_VERIFY(wait("runTotals").text.contains("outdated"));
    keys({"ctrl+z"});
    QTRY_VERIFY(list().endsWith("%float0%:6.981:1000.000:radius;"));

    // A store that can't be read leaves what is open.
    QVERIFY(QFile::rename(m_store, m_store + ".away"));
    keys({"F5"});
    QVERIFY(wait("QMessageBox").text.contains(m_store));
    keys({"Return"});
    QVERIFY(QFile::rename(m_store + ".away", m_store));
    QCOMPARE(wait("m_ediNote", 1).text, "radius");

    // Another language, at once, for the workbench and the panel.
    keys({"alt+l", "Return"});
    QTRY_COMPARE(wait("lab_help").text, "条件符合，判断结果为OK");
    QTRY_VERIFY(!wait("flowLabel").text.startsWith("Flow"));

    const QString before = list();
    quit();
    start();
    QCOMPARE(list(), before);
    QCOMPARE(bindings(), both);
    QCOMPARE(wait("m_ediNote", 1).text, "radius");
    QCOMPARE(wait("m_spbMinPullBar", 1).text, "6.981");
    wait("m_bsvMaxNumSubscribe");
    clickOn("m_btnDelete");
    QTRY_COMPARE(list(), "%float0%:6.981:1000.000:radius;");
    QCOMPARE(bindings() + stored("SELECT name FROM ui_data"), "");
    quit();
}

QTEST_GUILESS_MAIN(tst_end_to_end)
#include "tst_end_to_end.moc"
