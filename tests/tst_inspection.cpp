#include "PanelFixture.h"
#include "QIfModuleMainView.h"
#include "inspector/ModuleInspection.h"
#include "inspector/ShownConditions.h"

using namespace ZelCore;

namespace {

ModuleConfiguration storing(const QByteArray& ifText)
{
    ModuleConfiguration configuration;
    configuration.binaryData["IFText"] = ifText;
    return configuration;
}

// The name and the remark of each row.
QStringList remarksOf(const ModuleInspection::Rows& rows)
{
    QStringList remarks;
    for (const ModuleInspection::Row& row : rows) {
        remarks << row.cells.first() + QLatin1Char(' ') + row.remark;
    }
    return remarks;
}

} // namespace

class tst_inspection : public QObject
{
    Q_OBJECT

private slots:
    void conditions();
    void whatAPanelShows();
    void bindingsAndValues();
};

void tst_inspection::conditions()
{
    const QList<ConditionRecord> shown = {{"int0", 1.0, 5.9, "a"}, {"float0", 0.5, 2.25, "b"}};
    const std::pair<const char*, QStringList> cases[] = {
        {"%int0%:1:5:a;%float0%:0.500:2.250:b;", {"int0 ", "float0 "}},
        {"0", {"int0 shown, but not stored", "float0 shown, but not stored"}},
        {"%int0%:1:6:a;%float0%:0.500:2.250:b;", {"int0 shown otherwise: %int0%:1:5:a;", "float0 "}},
        {"%int0%:1:5:a;%float0%:0.500:2.250:c;",
         {"int0 ", "float0 shown otherwise: %float0%:0.500:2.250:b;"}},
        {"%int0%:1:5:a;%float0%:0.500:2.250:b;%int1%:1:2:;", {"int0 ", "float0 ", "int1 not shown"}},
        {"%int0%:1:5:a;%float0%:0.500:2.250:", {"int0 ", "float0 cut by the length rule"}},
        {"%int0%:1:5:a;%float0%:0.500:2.", {"int0 ", "float0 shown, but not stored"}}};
    for (const auto& [stored, remarks] : cases) {
        QCOMPARE(remarksOf(ModuleInspection::conditions(storing(stored), &shown)), remarks);
        for (const QString& remark : remarksOf(ModuleInspection::conditions(storing(stored), nullptr))) {
            QVERIFY2(remark.endsWith(' ') || remark.contains("cut by"), qPrintable(remark));
        }
    }
}

void tst_inspection::whatAPanelShows()
{
    PanelFixture<QIfModuleMainView> f;
    const QByteArray stored = "%int0%:1:5:a;%other%:0:0:x;%float0%:0.500:2.250:b;%int1%:3:4:;";
    f.show(stored);
    f.at<QPushButton>("m_btnDelete")->click();
    f.add("int");
    QCOMPARE(ConditionRecord::toText(ShownConditions::read(*f.panel)),
             "%other%:0:0:x;%float0%:0.500:2.250:b;%int1%:3:4:;%int0%:1:1000:;");
}

void tst_inspection::bindingsAndValues()
{
    ModuleConfiguration configuration = storing("0");
    ModuleBinding gone;
    gone.target = {7, SUBSCRIBE_TYPE_IO, "%int0%"};
    gone.source = "5.Gone";
    gone.missing = "the flow has no value 5.Gone";
    configuration.bindings << gone;
    configuration.uiData["@%int0%End"] = QByteArray("True\0\x01", 6);
    QCOMPARE(remarksOf(ModuleInspection::bindings(configuration)),
             QStringList("%int0% the flow has no value 5.Gone"));
    QCOMPARE(ModuleInspection::values(configuration).first().cells.last(), "True\\0\\u0001");
}

QTEST_MAIN(tst_inspection)
#include "tst_inspection.moc"
