#include "condition/ConditionName.h"
#include "condition/ConditionRecord.h"

#include <QElapsedTimer>
#include <QtTest>

#include <cmath>

using namespace ConditionName;

class tst_condition : public QObject
{
    Q_OBJECT

private slots:
    void names();
    void sortingKeepsInconsistentNames();
    void writing();
    void reading();
    void longTexts();
};

void tst_condition::names()
{
    QStringList types;
    for (const char* const name : {"int0", "float12", "intfloat", "Int0", ""}) {
        types << typeWord(typeOf(name)) + ' ' + subscribedType(name, "asked");
    }
    QCOMPARE(types, QStringList({"int int", "float float", "int float", " asked", " asked"}));

    QCOMPARE(lowestFree(Type::Int, {}), QString("int0"));
    QCOMPARE(lowestFree(Type::Int, sorted({"int1", "int2"})), QString("int0"));
    QCOMPARE(lowestFree(Type::Int, sorted({"int10", "int2", "int0", "int1"})), QString("int3"));
    QCOMPARE(lowestFree(Type::Float, sorted({"float1", "float0", "float11", "float3"})), QString("float2"));
    QCOMPARE(lowestFree(Type::Int, sorted({"int0", "int01"})), QString("int1"));
}

// For these the order is no order: each pair alone compares, all together contradict each other.
void tst_condition::sortingKeepsInconsistentNames()
{
    QStringList names;
    for (int i = 0; i < 400; ++i) {
        names << QString("int1t%1").arg(i % 7) << QString("int01t%1").arg(i % 5) << "int1";
    }
    QStringList ordered = sorted(names);
    ordered.sort();
    names.sort();
    QCOMPARE(ordered, names);
}

void tst_condition::writing()
{
    const QString text = ConditionRecord::toText({{"int0", 1, 2, "x:y;z%"},
                                                  {"float0", 0.5, 2.2504, {}},
                                                  {"int3", -2.9, 2.9, {}},
                                                  {"intfloat", -1, 2, {}},
                                                  {"int0", -1e20, 1e20, {}},
                                                  {"int0", std::nan(""), 1, {}}});
    QCOMPARE(text, QString("%int0%:1:2:x:y;z%;%float0%:0.500:2.250:;%int3%:-2:2:;%intfloat%:-1.000:2.000:;"
                           "%int0%:-2147483648:2147483647:;%int0%:0:1:;"));
    QCOMPARE(ConditionRecord::toText({}), QString("0"));

    // As many bytes as the text has UTF-16 units: a pair counts twice, and a character may be cut.
    QCOMPARE(ConditionRecord::toStored("ä1孔2;").toHex(), QByteArray("c3a431e5ad"));
    QCOMPARE(ConditionRecord::toStored("😀12;"), QByteArray("\xf0\x9f\x98\x80\x31"));
}

// Name, type by the text, bounds, whether the maximum is a number, note.
void tst_condition::reading()
{
    QStringList read;
    for (const StoredCondition& c : StoredCondition::fromText(
             "0;;%int0%:0:100:a;;%float0%:0.500:2.250:;%int1%:0:100;%int0%:0:100:x:y;%int0%:1.0:2:;"
             "%float0%:1:2:;%float0%:1:2.5:;%int0%:x:7:;%int1%:7:x:;%int0%:1:99999999999:;%%in%t0:1:2:%;:::"
             ";")) {
        const QString bounds = QString("%1 %2 %3").arg(c.minimum).arg(c.maximum).arg(c.hasValidMaximum);
        read << QString("%1 %2 %3 %4").arg(c.name, c.isFloat ? "float" : "int", bounds, c.note);
    }
    QCOMPARE(read.join(','), QString("int0 int 0 100 1 a,float0 float 0.5 2.25 1 ,int0 int 0 100 1 x,"
                                     "int0 float 1 2 1 ,float0 int 1 2 1 ,float0 int 1 0 0 ,int0 int 0 7 1 ,"
                                     "int1 int 7 0 0 ,int0 int 1 0 0 ,int0 int 1 2 1 %, int 0 0 0 "));
}

// Eight times the text takes eight times as long; squared, it would be sixty-four.
void tst_condition::longTexts()
{
    const auto timeOf = [](int conditions) {
        const QString text = QString("%int0%:1:2:note;").repeated(conditions);
        QElapsedTimer timer;
        timer.start();
        for (int i = 0; i < 5; ++i) {
            StoredCondition::fromText(text);
        }
        return timer.nsecsElapsed();
    };
    const qint64 small = timeOf(1 << 13);
    const qint64 large = timeOf(1 << 16);
    QVERIFY2(large < 24 * small, qPrintable(QString("%1 ns, %2 ns").arg(small).arg(large)));
}

QTEST_APPLESS_MAIN(tst_condition)
#include "tst_condition.moc"
