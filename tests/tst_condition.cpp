#include "ConditionName.h"
#include "ConditionRecord.h"

#include <QElapsedTimer>
#include <QtTest>

#include <cmath>
#include <limits>

using namespace ConditionName;

class tst_condition : public QObject
{
    Q_OBJECT

private slots:
    void typesByTheName();
    void lowestFreeName();
    void sortingKeepsInconsistentNames();
    void writing();
    void storedBytesAreCut();
    void reading();
    void longTexts();
};

void tst_condition::typesByTheName()
{
    QStringList types;
    for (const char* const name : {"int0", "float12", "intfloat", "Int0", ""}) {
        types << typeWord(typeOf(name)) + ' ' + subscribedType(name, "asked");
    }
    QCOMPARE(types, QStringList({"int int", "float float", "int float", " asked", " asked"}));
}

void tst_condition::lowestFreeName()
{
    const auto freeAmong = [](Type type, const QStringList& names) {
        return lowestFree(type, sorted(names));
    };
    QCOMPARE(freeAmong(Type::Int, {}), QString("int0"));
    QCOMPARE(freeAmong(Type::Int, {"int0", "int1", "int2"}), QString("int3"));
    QCOMPARE(freeAmong(Type::Int, {"int0", "int2"}), QString("int1"));
    QCOMPARE(freeAmong(Type::Int, {"int1", "int2"}), QString("int0"));
    QCOMPARE(freeAmong(Type::Int, {"int10", "int2", "int0", "int1"}), QString("int3"));
    QCOMPARE(freeAmong(Type::Float, {"float1", "float0", "float11", "float3"}), QString("float2"));
    QCOMPARE(freeAmong(Type::Int, {"int0", "int01"}), QString("int1"));
}

void tst_condition::sortingKeepsInconsistentNames()
{
    // For these the order is no order: each pair alone compares, all together contradict each other.
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
    const auto text = [](const char* name, double minimum, double maximum, const char* note = "") {
        return ConditionRecord::toText({{name, minimum, maximum, note}});
    };
    QCOMPARE(text("int0", 0, 100, "a"), QString("%int0%:0:100:a;"));
    QCOMPARE(text("float0", 0.5, 2.2504), QString("%float0%:0.500:2.250:;"));
    QCOMPARE(text("int3", -2.9, 2.9), QString("%int3%:-2:2:;"));
    QCOMPARE(text("intfloat", -1, 2), QString("%intfloat%:-1.000:2.000:;"));
    QCOMPARE(text("int0", -1e20, 1e20), QString("%int0%:-2147483648:2147483647:;"));
    QCOMPARE(text("int0", std::nan(""), 1), QString("%int0%:0:1:;"));
    QCOMPARE(text("int0", 1, 2, "x:y;z%"), QString("%int0%:1:2:x:y;z%;"));
    QCOMPARE(ConditionRecord::toText({{"int0", 1, 2, {}}, {"int1", 3, 4, {}}}),
             QString("%int0%:1:2:;%int1%:3:4:;"));
    QCOMPARE(ConditionRecord::toText({}), QString("0"));
}

// As many bytes as the text has UTF-16 units: a pair counts twice, and a character may be cut.
void tst_condition::storedBytesAreCut()
{
    QCOMPARE(ConditionRecord::toStored("%int0%:1:2:note;"), QByteArray("%int0%:1:2:note;"));
    QCOMPARE(ConditionRecord::toStored("ä1孔2;").toHex(), QByteArray("c3a431e5ad"));
    QCOMPARE(ConditionRecord::toStored("😀12;"), QByteArray("\xf0\x9f\x98\x80\x31"));
}

void tst_condition::reading()
{
    // Name, type by the text, bounds, whether the maximum is a number, note.
    const auto read = [](const char* text) {
        QStringList conditions;
        for (const StoredCondition& c : StoredCondition::fromText(text)) {
            conditions << QString("%1 %2 %3 %4 %5 %6")
                              .arg(c.name, c.isFloat ? "float" : "int")
                              .arg(c.minimum)
                              .arg(c.maximum)
                              .arg(int(c.hasValidMaximum))
                              .arg(c.note);
        }
        return conditions.join(',');
    };
    QCOMPARE(read("0"), QString());
    QCOMPARE(read("%int0%:0:100:a;%float0%:0.500:2.250:;"),
             QString("int0 int 0 100 1 a,float0 float 0.5 2.25 1 "));
    QCOMPARE(read(";;%int0%:0:100:a;;"), QString("int0 int 0 100 1 a"));
    QCOMPARE(read("%int0%:0:100;%int1%:1:2:b;"), QString("int1 int 1 2 1 b"));
    QCOMPARE(read("%int0%:0:100:x:y;"), QString("int0 int 0 100 1 x"));
    QCOMPARE(read("%int0%:1.0:2:;%float0%:1:2:;"), QString("int0 float 1 2 1 ,float0 int 1 2 1 "));
    QCOMPARE(read("%float0%:1:2.5:;"), QString("float0 int 1 0 0 "));
    QCOMPARE(read("%int0%:x:7:;%int1%:7:x:;"), QString("int0 int 0 7 1 ,int1 int 7 0 0 "));
    QCOMPARE(read("%int0%:1:99999999999:;"), QString("int0 int 1 0 0 "));
    QCOMPARE(read("%%in%t0:1:2:%;"), QString("int0 int 1 2 1 %"));
    QCOMPARE(read(":::;"), QString(" int 0 0 0 "));
}

// Eight times the text takes eight times as long; squared, it would be sixty-four.
void tst_condition::longTexts()
{
    const auto timeOf = [](int bytes) {
        const QString text = QString("%int0%:1:2:note;").repeated(bytes / 16);
        qint64 best = std::numeric_limits<qint64>::max();
        for (int i = 0; i < 5; ++i) {
            QElapsedTimer timer;
            timer.start();
            if (StoredCondition::fromText(text).size() != bytes / 16) {
                return qint64(-1);
            }
            best = qMin(best, timer.nsecsElapsed());
        }
        return best;
    };
    const qint64 small = timeOf(1 << 17);
    const qint64 large = timeOf(1 << 20);
    QVERIFY(small > 0 && large > 0);
    QVERIFY2(large < 24 * small, qPrintable(QString("%1 ns, %2 ns").arg(small).arg(large)));
}

QTEST_APPLESS_MAIN(tst_condition)
#include "tst_condition.moc"
