#include <QGenericPlugin>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <QtTest>

#include <cstdlib>

/// The workbench as its user meets it: a window, a mouse and keys, and what it stores. Runs as a plug-in in
/// the workbench's process, which knows nothing of it.
class tst_end_to_end : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        auto database = QSqlDatabase::addDatabase("QSQLITE", "end to end");
        database.setDatabaseName(m_store);
        QVERIFY(database.open());
        QVERIFY(QTest::qWaitForWindowActive(wait("MainWindow"), 20000)); // by the window manager
    }
    void conditionsAreStored()
    {
        clickOn("btn_add");
        QTRY_COMPARE(list(), "%int0%:1:1000:;");
        clickOn("cbox_typeSelect");
        xdotool("key End Return");
        clickOn("btn_add");
        clickOn("m_ediNote", 1);
        xdotool("type --delay 20 radius");
        xdotool("key Tab");
        QTRY_COMPARE(list(), "%int0%:1:1000:;%float0%:1.000:1000.000:radius;");

        // The slider opens and the typing goes on, until a click outside closes it.
        clickOn("m_spbMinPullBar", 1);
        QCOMPARE(wait("QmlRangeSliderView")->size(), QSize(230, 25));
        xdotool("key ctrl+a type --delay 20 6.981");
        clickOn("lab_help");
        QTRY_COMPARE(list(), "%int0%:1:1000:;%float0%:6.981:1000.000:radius;");

        // The handle that is nearest, by the mouse, then by the keys.
        clickOn("m_spbMaxPullBar");
        const QRect slider = placeOf(wait("QmlRangeSliderView"));
        xdotool(QString("mousemove %1 %2 mousedown 1 mousemove_relative 9 0 mouseup 1")
                    .arg(slider.left() + slider.width() * 3 / 5)
                    .arg(slider.center().y()));
        xdotool("key Right");
        const auto shownMaximum = [] { return textOf("m_spbMaxPullBar").toDouble(); };
        QTRY_VERIFY(shownMaximum() != 1000.0);
        clickOn("lab_help");
        QTRY_COMPARE(list().section(';', 0, 0), QString("%int0%:1:%1:").arg(shownMaximum()));

        choose("ButtonSelecterView", "objectcount");
        clickOn("m_btnMaxSwitch");
        choose("m_bsvMaxNumSubscribe", "objectnumber");
        QTRY_COMPARE(bindings(), m_bindings);
        clickOn("cbox_determineType");
        xdotool("key Down Return");
        QTRY_COMPARE(stored("SELECT value FROM run_parameter WHERE name = 'LogicalMode'"), "2");

        // All objects that come with the flow are judged by what was just stored; a later change is marked.
        xdotool("key F9");
        QTRY_VERIFY(textOf("runTotals").startsWith("569 rows"));
        clickOn("m_btnDelete", 1);
        QTRY_VERIFY(textOf("runTotals").contains("outdated"));
        clickOn("m_ediNote"); // where there is nothing to undo
        xdotool("key ctrl+z");
        QTRY_VERIFY(list().endsWith("%float0%:6.981:1000.000:radius;"));

        // A store that can't be read leaves what is open.
        QString message;
        QTimer closeBox;
        closeBox.callOnTimeout([&message] {
            QWidget* const box = QApplication::activeModalWidget();
            if (box && box->isActiveWindow()) {
                message = box->property("text").toString();
                box->close();
            }
        });
        closeBox.start(100);
        QVERIFY(QFile::rename(m_store, m_store + ".away"));
        xdotool("key F5");
        QTRY_VERIFY(message.contains(m_store));
        QVERIFY(QFile::rename(m_store + ".away", m_store));
        QCOMPARE(textOf("m_ediNote", 1), "radius");

        // Another language, at once, for the workbench and the panel.
        QVERIFY(QTest::qWaitForWindowActive(wait("MainWindow")));
        xdotool("key alt+l Return");
        QTRY_COMPARE(textOf("lab_help"), "条件符合，判断结果为OK");
        QTRY_VERIFY(!textOf("flowLabel").startsWith("Flow"));
    }
    // In the next process.
    void conditionsComeBack()
    {
        QCOMPARE(textOf("m_ediNote", 1), "radius");
        QCOMPARE(textOf("m_spbMinPullBar", 1), "6.981");
        QVERIFY(list().startsWith("%int0%:1:") && !list().startsWith("%int0%:1:1000:"));
        QCOMPARE(bindings(), m_bindings);
        wait("m_bsvMaxNumSubscribe");
        clickOn("m_btnDelete");
        QTRY_COMPARE(list(), "%float0%:6.981:1000.000:radius;");
        QCOMPARE(bindings() + stored("SELECT name FROM ui_data"), "");
    }
    void cleanup()
    {
        xdotool("key alt+F4");
        QTRY_VERIFY(all("MainWindow").isEmpty());
    }

private:
    static void xdotool(const QString& command)
    {
        QProcess process;
        process.start("xdotool", command.split(' '));
        QTRY_VERIFY(process.state() == QProcess::NotRunning);
        QVERIFY2(process.exitCode() == 0, process.readAllStandardError());
    }
    // The visible widgets of an object or class name from the top.
    static QList<QWidget*> all(const char* name)
    {
        QMultiMap<int, QWidget*> widgets;
        for (QWidget* const widget : QApplication::allWidgets()) {
            if (widget->isVisible() && (widget->objectName() == name || widget->inherits(name))) {
                widgets.insert(placeOf(widget).y(), widget);
            }
        }
        return widgets.values();
    }
    static QRect placeOf(const QWidget* widget)
    {
        return widget ? QRect(widget->mapToGlobal(QPoint()), widget->size()) : QRect();
    }
    // The n-th of them, once it is there and no longer moves.
    static QWidget* wait(const char* name, int index = 0)
    {
        QRect before;
        const auto isThere = [&] {
            const QRect now = placeOf(all(name).value(index));
            return now == std::exchange(before, now) && !now.isNull();
        };
        if (!QTest::qWaitFor(isThere, 10000)) {
            qFatal("%s %d is not there", name, index);
        }
        return all(name).at(index);
    }
    static QString textOf(const char* name, int index = 0)
    {
        return wait(name, index)->property("text").toString();
    }
    static void clickOn(const char* name, int index = 0)
    {
        const QPoint place = placeOf(wait(name, index)).center();
        xdotool(QString("mousemove %1 %2 click 1").arg(place.x()).arg(place.y()));
    }
    static void choose(const char* selecter, const char* filter)
    {
        clickOn(selecter);
        wait("SubscribeMenuPopup");
        xdotool(QString("type --delay 20 ") + filter);
        xdotool("key Return");
        QTRY_VERIFY(all("SubscribeMenuPopup").isEmpty());
    }
    // The first column of a statement's rows, joined.
    static QString stored(const char* statement)
    {
        QStringList rows;
        for (QSqlQuery query(statement, QSqlDatabase::database("end to end")); query.next();) {
            rows << query.value(0).toString();
        }
        return rows.join(' ');
    }
    static QString list() { return stored("SELECT value FROM binary_parameter WHERE name = 'IFText'"); }
    static QString bindings()
    {
        return stored("SELECT target_key || ' ' || source FROM binding ORDER BY target_key");
    }

    const QString m_store = QCoreApplication::arguments().last();
    const QString m_bindings = "%int0% 5.ObjectCount %int0%End 5.ObjectNumber";
};

/// Runs one of the tests once the workbench runs, which ends with its window.
class EndToEndPlugin : public QGenericPlugin
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID QGenericPluginFactoryInterface_iid FILE "EndToEnd.json")

public:
    QObject* create(const QString&, const QString& test) override
    {
        QTimer::singleShot(0, this, [test] {
            tst_end_to_end tests;
            if (QTest::qExec(&tests, {"tst_end_to_end", test}) != 0) {
                std::_Exit(EXIT_FAILURE);
            }
        });
        return new QObject(this);
    }
};

#include "tst_end_to_end.moc"
