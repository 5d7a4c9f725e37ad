#include "FakeCore.h"

#include <QLabel>
#include <QPointer>
#include <QtTest>

#include <dlfcn.h>

#include <memory>

/// The built library as a host sees it: a file with two symbols.
class tst_plugin : public QObject
{
    Q_OBJECT

private slots:
    void loadedAndUnloaded();
};

// Nothing of the process refers to the library once it is gone.
void tst_plugin::loadedAndUnloaded()
{
    FakeCore core;
    core.binaryData["IFText"] = "%int0%:1:2:a;";
    core.runParams["LogicalMode"] = "1";
    for (int i = 0; i < 20; ++i) {
        QVERIFY(!dlopen(QIFMODULE_FILE, RTLD_NOW | RTLD_NOLOAD));
        void* const library = dlopen(QIFMODULE_FILE, RTLD_NOW);
        QVERIFY2(library, dlerror());
        auto* const create = reinterpret_cast<bool (*)(unsigned int, QWidget*, QWidget**)>(
            dlsym(library, "CreateModuParamConfigInstance"));
        auto* const langChanged = reinterpret_cast<bool (*)(QWidget*)>(dlsym(library, "LangChanged"));
        QVERIFY(create && langChanged);

        auto host = std::make_unique<QWidget>();
        QVERIFY(!create(7, host.get(), nullptr) && !langChanged(nullptr) && !langChanged(host.get()));
        QWidget* made = nullptr;
        QVERIFY(create(7, host.get(), &made));
        const QPointer<QWidget> panel = made;
        QVERIFY(panel->inherits("QIfModuleMainView") && panel->parentWidget() == host.get());
        QCOMPARE(core.takeCommands(), QStringList());
        host->show();
        QCOMPARE(core.takeCommands().first(), QString("QueryBinaryData 7 IFText"));
        QVERIFY(panel->findChild<QLabel*>("m_labName"));
        auto* const help = panel->findChild<QLabel*>("lab_help");
        help->clear();
        QVERIFY(langChanged(panel));
        QCOMPARE(help->text(), QString("条件符合，判断结果为OK"));
        host.reset();
        QVERIFY(!panel);

        QVERIFY(create(7, nullptr, &made)); // without a parent it is the caller's
        delete made;
        QApplication::processEvents();
        QCOMPARE(dlclose(library), 0);
    }
    QApplication::processEvents();
}

QTEST_MAIN(tst_plugin)
#include "tst_plugin.moc"
