#include "FakeCore.h"
#include "QIfModuleExports.h"

#include <QLabel>
#include <QtTest>

#include <dlfcn.h>

/// The built library as a host sees it: a file with two symbols.
class tst_plugin : public QObject
{
    Q_OBJECT

private slots:
    // Nothing of the process refers to the library once it is gone.
    void loadedAndUnloaded()
    {
        FakeCore core;
        core.parameters["IFText"] = "%int0%:1:2:a;";
        for (int i = 0; i < 20; ++i) {
            QVERIFY(!dlopen(QIFMODULE_FILE, RTLD_NOW | RTLD_NOLOAD));
            void* const library = dlopen(QIFMODULE_FILE, RTLD_NOW);
            QVERIFY2(library, dlerror());
            auto* const create = reinterpret_cast<decltype(&CreateModuParamConfigInstance)>(
                dlsym(library, "CreateModuParamConfigInstance"));
            auto* const langChanged = reinterpret_cast<decltype(&LangChanged)>(dlsym(library, "LangChanged"));
            {
                QWidget host;
                QVERIFY(!create(7, &host, nullptr) && !langChanged(nullptr) && !langChanged(&host));
                QWidget* panel = nullptr;
                QVERIFY(create(7, &host, &panel) && panel->parentWidget() == &host);
                QCOMPARE(core.takeCommands(), QStringList());
                for (const char* const slot :
                     {"on_btn_close_clicked()", "on_btn_add_clicked()", "on_btn_continueRun_clicked()",
                      "on_btn_onceRun_clicked()", "on_btn_OK_clicked()", "onBtnDeleteOpt(QString)",
                      "onLogicValueChanged2SetParam()", "onSubscribeValueChanged2SetParam(QString)",
                      "on_cbox_determineType_currentIndexChanged(int)"}) {
                    QVERIFY2(panel->metaObject()->indexOfSlot(slot) >= 0, slot);
                }
                host.show();
                QCOMPARE(core.takeCommands().value(0), QString("QueryBinaryData 7 IFText"));
                QVERIFY(panel->findChild<QLabel*>("m_labName"));
                auto* const help = panel->findChild<QLabel*>("lab_help");
                help->clear();
                QVERIFY(langChanged(panel));
                QCOMPARE(help->text(), QString("条件符合，判断结果为OK"));
                QVERIFY(create(7, nullptr, &panel)); // without a parent it is the caller's
                delete panel;
            }
            QApplication::processEvents();
            QCOMPARE(dlclose(library), 0);
        }
    }
};

QTEST_MAIN(tst_plugin)
#include "tst_plugin.moc"
