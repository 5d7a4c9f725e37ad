#include <QLocalSocket>
#include <QProcess>
#include <QRect>
#include <QSqlDatabase>
#include <QSqlError>
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

void type(const QString& text)
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
    void init();
    void cleanup();
    void conditionsAreStoredAndComeBack();
    void boundConditionsComeBackAndAreDeleted();

private:
    void start();
    void quit();
    QVector<Place> find(const char* name);
    /// The n-th widget of a name from the top, once it is there.
    Place wait(const char* name, int index = 0);
    void clickOn(const char* name, int index = 0)
    {
        xdotool(at(wait(name, index).rect.center()) + QStringList({"click", "1"}));
    }
    void add(const char* type);
    void choose(const char* selecter, int index, const char* filter);
    /// The first column of a statement's rows.
    static QStringList stored(const char* statement);
    static QString list()
    {
        return stored("SELECT value FROM binary_parameter WHERE name = 'IFText'").join("");
    }
    static QStringList bindings()
    {
        return stored("SELECT target_key || ' ' || source FROM binding ORDER BY target_key");
    }

    QProcess m_windowManager;
    QProcess m_workbench;
    QLocalSocket m_probe;
    std::unique_ptr<QTemporaryDir> m_directory;
    QString m_store;
};

void tst_end_to_end::init()
{
    m_windowManager.start("openbox", QStringList());
    QVERIFY(m_windowManager.waitForStarted());
    m_directory = std::make_unique<QTemporaryDir>();
    m_store = m_directory->filePath("store.sqlite");
    start();
    auto database = QSqlDatabase::addDatabase("QSQLITE");
    database.setDatabaseName(m_store);
    QVERIFY2(database.open(), qPrintable(database.lastError().text()));
}

void tst_end_to_end::cleanup()
{
    QSqlDatabase::removeDatabase(QSqlDatabase::defaultConnection);
    if (QTest::currentTestFailed()) {
        qDebug().noquote() << m_workbench.readAllStandardError();
    }
    for (QProcess* const process : {&m_workbench, &m_windowManager}) {
        process->kill();
        process->waitForFinished();
    }
}

void tst_end_to_end::start()
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    const QString serverName = m_directory->filePath("probe");
    environment.insert("QT_PLUGIN_PATH", QStringLiteral(WIDGET_PROBE_DIR));
    environment.insert("QT_QPA_GENERIC_PLUGINS", "widgetprobe:" + serverName);
    environment.insert("XDG_CONFIG_HOME", m_directory->path());
    environment.insert("QT_QUICK_BACKEND", "software");
    m_workbench.setProcessEnvironment(environment);
    m_workbench.start(QStringLiteral(IF_WORKBENCH_FILE), {"--store", m_store});
    QVERIFY(m_workbench.waitForStarted());
    m_probe.abort();
    const bool isProbed = QTest::qWaitFor(
        [&] {
            m_probe.connectToServer(serverName);
            return m_probe.waitForConnected(100);
        },
        20000);
    QVERIFY2(isProbed, m_workbench.readAllStandardError());
    wait("btn_add");
}

void tst_end_to_end::quit()
{
    keys({"alt+F4"});
    QVERIFY(m_workbench.waitForFinished(10000));
    QCOMPARE(m_workbench.exitStatus(), QProcess::NormalExit);
    QCOMPARE(m_workbench.exitCode(), 0);
}

QVector<Place> tst_end_to_end::find(const char* name)
{
    m_probe.write(QByteArray(name) + '\n');
    QVector<Place> places;
    QByteArray line;
    while (line != "end\n") {
        if (m_probe.canReadLine()) {
            line = m_probe.readLine();
            const QString text = QString::fromUtf8(line).chopped(1);
            places << Place{QRect(text.section(' ', 0, 0).toInt(), text.section(' ', 1, 1).toInt(),
                                  text.section(' ', 2, 2).toInt(), text.section(' ', 3, 3).toInt()),
                            text.section(' ', 4)};
        } else if (!m_probe.waitForReadyRead(5000)) {
            qWarning("the workbench does not answer");
            return {};
        }
    }
    places.removeLast();
    return places;
}

Place tst_end_to_end::wait(const char* name, int index)
{
    QVector<Place> places;
    // A row that is still being laid out moves.
    const bool isThere = QTest::qWaitFor(
        [&] {
            const QVector<Place> before = std::exchange(places, find(name));
            return places.size() > index && before.size() == places.size() &&
                   before[index].rect == places[index].rect;
        },
        10000);
    if (!isThere) {
        QTest::qFail(qPrintable(QString("%1 %2 is not there").arg(name).arg(index)), __FILE__, __LINE__);
        return {};
    }
    return places[index];
}

void tst_end_to_end::add(const char* type)
{
    const int rows = find("m_labName").size();
    clickOn("cbox_typeSelect");
    keys({qstrcmp(type, "int") == 0 ? "Home" : "End", "Return"});
    clickOn("btn_add");
    wait("m_labName", rows);
}

void tst_end_to_end::choose(const char* selecter, int index, const char* filter)
{
    clickOn(selecter, index);
    wait("SubscribeMenuPopup");
    type(QString::fromLatin1(filter));
    keys({"Return"});
    QTRY_VERIFY(find("SubscribeMenuPopup").isEmpty());
}

QStringList tst_end_to_end::stored(const char* statement)
{
    QStringList rows;
    QSqlQuery query;
    if (!query.exec(statement)) {
        qWarning() << query.lastError();
    }
    while (query.next()) {
        rows << query.value(0).toString();
    }
    return rows;
}

void tst_end_to_end::conditionsAreStoredAndComeBack()
{
    add("int");
    QTRY_COMPARE(list(), "%int0%:1:1000:;");
    add("float");

    clickOn("m_ediNote");
    type("objects");
    keys({"Tab"});
    QTRY_COMPARE(list(), "%int0%:1:1000:objects;%float0%:1.000:1000.000:;");

    // The slider opens and the typing goes on.
    clickOn("m_spbMinPullBar", 1);
    QCOMPARE(wait("QmlRangeSliderView").rect.size(), QSize(230, 25));
    keys({"ctrl+a"});
    type("6.981");
    keys({"Return"});
    clickOn("m_spbMaxPullBar", 1);
    keys({"ctrl+a"});
    type("28.11");
    clickOn("lab_help");
    QTRY_VERIFY(find("QmlRangeSliderView").isEmpty());
    QTRY_COMPARE(list(), "%int0%:1:1000:objects;%float0%:6.981:28.110:;");

    // The upper handle of 1..1000, by the mouse, then by the keys, until a click beside closes the slider.
    clickOn("m_spbMaxPullBar");
    const QRect slider = wait("QmlRangeSliderView").rect;
    const QPoint upper = slider.center() + QPoint(26, 0); // the slider shows -1000 to 2000
    xdotool(at(upper) + QStringList({"mousedown", "1"}) + at(upper - QPoint(7, 0)) +
            at(upper - QPoint(15, 0)) + QStringList({"mouseup", "1"}));
    keys({"Right", "shift+Right"});
    const auto shownUpper = [this] { return wait("m_spbMaxPullBar").text.toDouble(); };
    QTRY_VERIFY(shownUpper() > 500 && shownUpper() < 900);
    const QString dragged = QString::number(int(shownUpper()));
    clickOn("lab_help");
    QTRY_COMPARE(list(), QString("%int0%:1:%1:objects;%float0%:6.981:28.110:;").arg(dragged));

    // All objects that come with the flow are judged by what was just stored.
    keys({"F9"});
    QTRY_VERIFY(wait("runTotals").text.contains("569"));

    clickOn("cbox_determineType");
    keys({"Down", "Return"});
    QTRY_COMPARE(stored("SELECT value FROM run_parameter WHERE name = 'LogicalMode'"), QStringList("2"));

    quit();
    start();
    QCOMPARE(wait("m_labName", 1).text, "float0");
    QCOMPARE(wait("m_ediNote").text, "objects");
    QCOMPARE(wait("m_spbMaxPullBar").text, dragged + ".000");
    QCOMPARE(wait("m_spbMinPullBar", 1).text, "6.981");
    clickOn("m_btnDelete");
    QTRY_COMPARE(list(), "%float0%:6.981:28.110:;");
}

void tst_end_to_end::boundConditionsComeBackAndAreDeleted()
{
    add("int");
    choose("ButtonSelecterView", 0, "objectcount");
    QTRY_COMPARE(bindings(), QStringList("%int0% 5.ObjectCount"));

    clickOn("m_btnMaxSwitch");
    wait("m_bsvMaxNumSubscribe");
    choose("m_bsvMaxNumSubscribe", 0, "objectnumber");
    clickOn("m_btnMinSwitch");
    choose("m_bsvMinNumSubscribe", 0, "objectcount");
    const QStringList all = {"%int0% 5.ObjectCount", "%int0%End 5.ObjectNumber", "%int0%Start 5.ObjectCount"};
    QTRY_COMPARE(bindings(), all);

    // Another language, at once, for the workbench and the panel.
    keys({"alt+l", "Up", "Return"});
    QTRY_COMPARE(wait("lab_help").text, "The result is OK when the conditions are met");
    QVERIFY(wait("flowLabel").text.startsWith("Flow"));

    // The input is gone by the time that a value is chosen for it.
    stored("DELETE FROM module_io WHERE name = '%int0%'");
    choose("ButtonSelecterView", 0, "objectnumber");
    QCOMPARE(wait("QMessageBox").text, "No bound data found");
    keys({"Return"});
    QTRY_COMPARE(wait("ButtonSelecterView").text, "5.ObjectCount");
    QCOMPARE(bindings(), all);

    quit();
    start();
    QCOMPARE(wait("ButtonSelecterView").text, "5.ObjectCount");
    QCOMPARE(wait("m_bsvMinNumSubscribe").text, "5.ObjectCount");
    QCOMPARE(wait("m_bsvMaxNumSubscribe").text, "5.ObjectNumber");
    const QString yes = QString::fromLatin1(QByteArray("True", 5).toHex());
    QCOMPARE(stored("SELECT name || ' ' || hex(value) FROM ui_data ORDER BY name"),
             QStringList({"@%int0%End " + yes, "@%int0%Start " + yes}));

    clickOn("m_btnDelete");
    QTRY_COMPARE(list(), "0");
    QCOMPARE(bindings(), QStringList());
    QCOMPARE(stored("SELECT name FROM ui_data"), QStringList());
    add("int");
    QTRY_COMPARE(list(), "%int0%:1:1000:;");
    QCOMPARE(wait("ButtonSelecterView").text, QString());
    QCOMPARE(wait("m_spbMinPullBar").text, "1.000");
}

QTEST_GUILESS_MAIN(tst_end_to_end)
#include "tst_end_to_end.moc"
