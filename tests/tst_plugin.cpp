#include "FakeCore.h"

#include <QLabel>
#include <QLibrary>
#include <QPointer>
#include <QProcess>
#include <QtTest>

#include <dlfcn.h>

#include <memory>

/// The built library as a host meets it: a file with two symbols.
class tst_plugin : public QObject
{
    Q_OBJECT

private slots:
    // First: the others keep the library.
    void loadedAndUnloaded();
    void namesItsBundles();
    void makesAPanel();
    void refusesWhatIsNoPanel();

private:
    template <typename Function>
    static Function* resolve(const char* symbol)
    {
        return reinterpret_cast<Function*>(QLibrary::resolve(QStringLiteral(QIFMODULE_FILE), symbol));
    }
    using Create = bool(unsigned int, QWidget*, QWidget**);
    using LangChanged = bool(QWidget*);
};

void tst_plugin::namesItsBundles()
{
    QProcess nm;
    nm.start(QStringLiteral("nm"), {QStringLiteral(QIFMODULE_FILE)});
    QVERIFY(nm.waitForFinished() && nm.exitCode() == 0);
    const QString all = QString::fromLocal8Bit(nm.readAllStandardOutput());
    for (const char* const bundle : {"QSS_IM", "IMG_IM"}) {
        for (const char* const function : {"qInitResources_", "qCleanupResources_"}) {
            QVERIFY2(all.contains(QLatin1String(function) + QLatin1String(bundle)), bundle);
        }
    }
}

void tst_plugin::makesAPanel()
{
    auto* const create = resolve<Create>("CreateModuParamConfigInstance");
    auto* const langChanged = resolve<LangChanged>("LangChanged");
    QVERIFY(create && langChanged);
    FakeCore core;
    core.binaryData[QStringLiteral("IFText")] = "%int0%:1:2:a;";
    core.runParams[QStringLiteral("LogicalMode")] = "1";

    for (int i = 0; i < 2; ++i) {
        auto host = std::make_unique<QWidget>();
        QWidget* made = nullptr;
        QVERIFY(create(7, host.get(), &made));
        const QPointer<QWidget> panel = made;
        QCOMPARE(panel->parentWidget(), host.get());
        QVERIFY(panel->inherits("QIfModuleMainView"));
        QCOMPARE(core.takeCommands(), QStringList());
        host->show();
        QCOMPARE(core.takeCommands().first(), QStringLiteral("QueryBinaryData 7 IFText"));
        panel->findChild<QLabel*>(QStringLiteral("lab_help"))->clear();
        QVERIFY(langChanged(panel));
        QCOMPARE(panel->findChild<QLabel*>(QStringLiteral("lab_help"))->text(),
                 QStringLiteral("条件符合，判断结果为OK"));
        host.reset();
        QVERIFY(!panel);
    }

    QWidget* orphan = nullptr;
    QVERIFY(create(7, nullptr, &orphan));
    delete orphan;
}

void tst_plugin::refusesWhatIsNoPanel()
{
    QWidget other;
    QVERIFY(!resolve<LangChanged>("LangChanged")(&other));
    QVERIFY(!resolve<LangChanged>("LangChanged")(nullptr));
    QVERIFY(!resolve<Create>("CreateModuParamConfigInstance")(7, nullptr, nullptr));
}

// Nothing of the process refers to the library once it is gone.
void tst_plugin::loadedAndUnloaded()
{
    FakeCore core;
    core.binaryData[QStringLiteral("IFText")] = "%int0%:1:2:a;";
    core.runParams[QStringLiteral("LogicalMode")] = "1";
    for (int i = 0; i < 100; ++i) {
        QVERIFY(!dlopen(QIFMODULE_FILE, RTLD_NOW | RTLD_NOLOAD));
        void* const library = dlopen(QIFMODULE_FILE, RTLD_NOW);
        QVERIFY2(library, dlerror());
        auto* const create = reinterpret_cast<Create*>(dlsym(library, "CreateModuParamConfigInstance"));
        QWidget host;
        QWidget* panel = nullptr;
        QVERIFY(create && create(7, &host, &panel));
        host.show();
        QVERIFY(panel->findChild<QLabel*>(QStringLiteral("m_labName")));
        delete panel;
        QApplication::processEvents();
        QCOMPARE(dlclose(library), 0);
    }
    QApplication::processEvents();
}

QTEST_MAIN(tst_plugin)
#include "tst_plugin.moc"
