#include "ConditionName.h"
#include "ConditionRecord.h"

#include <QtTest>

#include <cmath>
#include <limits>

using ConditionName::Type;

class tst_condition : public QObject
{
    Q_OBJECT

private slots:
    void types_data();
    void types();
    void lowestFree_data();
    void lowestFree();
    void sortingKeepsInconsistentNames();
    void keys();
    void writing_data();
    void writing();
    void storing_data();
    void storing();
    void reading_data();
    void reading();
    void largeTextIsReadWhole();
};

void tst_condition::types_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("type");
    QTest::addColumn<QString>("subscribed");
    QTest::newRow("int") << "int0" << int(Type::Int) << "int";
    QTest::newRow("float") << "float12" << int(Type::Float) << "float";
    QTest::newRow("both words") << "intfloat" << int(Type::Int) << "float";
    QTest::newRow("case counts") << "Int0" << int(Type::None) << "asked";
    QTest::newRow("empty") << "" << int(Type::None) << "asked";
}

void tst_condition::types()
{
    QFETCH(QString, name);
    QTEST(int(ConditionName::typeOf(name)), "type");
    QTEST(ConditionName::subscribedType(name, QStringLiteral("asked")), "subscribed");
}

void tst_condition::lowestFree_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<QStringList>("names");
    QTest::addColumn<QString>("free");
    const auto add = [](const char* tag, Type type, const QStringList& names, const char* free) {
        QTest::newRow(tag) << int(type) << names << QString::fromLatin1(free);
    };
    add("none", Type::Int, {}, "int0");
    add("no gap", Type::Int, {"int0", "int1", "int2"}, "int3");
    add("gap", Type::Int, {"int0", "int2"}, "int1");
    add("first is free", Type::Int, {"int1", "int2"}, "int0");
    add("numeric order", Type::Int, {"int10", "int2", "int0", "int1"}, "int3");
    add("float", Type::Float, {"float1", "float0", "float11", "float3"}, "float2");
    add("digits written otherwise", Type::Int, {"int0", "int01"}, "int1");
    add("twelve", Type::Int,
        {"int11", "int10", "int9", "int8", "int7", "int6", "int5", "int4", "int3", "int2", "int1", "int0"},
        "int12");
}

void tst_condition::lowestFree()
{
    QFETCH(int, type);
    QFETCH(QStringList, names);
    QTEST(ConditionName::lowestFree(static_cast<Type>(type), ConditionName::sorted(names)), "free");
}

void tst_condition::sortingKeepsInconsistentNames()
{
    // For these the order is no order: each pair alone compares, all together contradict each other.
    QStringList names;
    for (int i = 0; i < 400; ++i) {
        names << QStringLiteral("int1t%1").arg(i % 7) << QStringLiteral("int01t%1").arg(i % 5)
              << QStringLiteral("int1");
    }
    QStringList sorted = ConditionName::sorted(names);
    sorted.sort();
    names.sort();
    QCOMPARE(sorted, names);

    QVERIFY(ConditionName::lessThan(QStringLiteral("int2"), QStringLiteral("int10")));
    QVERIFY(ConditionName::lessThan(QStringLiteral("int2"), QStringLiteral("int2t")));
    QVERIFY(!ConditionName::lessThan(QStringLiteral("intx"), QStringLiteral("int0")));
}

void tst_condition::keys()
{
    using namespace ConditionName;
    const QString name = QStringLiteral("int0");
    const QStringList keys = {inputIo(name),
                              valueOutputIo(name),
                              minimumOutputIo(name),
                              maximumOutputIo(name),
                              inputRemovalKey(inputIo(name)),
                              outputRemovalKey(minimumOutputIo(name)),
                              lowerBoundKey(name),
                              upperBoundKey(name),
                              lowerBoundSourceKey(name),
                              upperBoundSourceKey(name)};
    QCOMPARE(keys,
             QStringList({"%int0%", "%int0Out%", "%int0Min%", "%int0Max%", "%int0%:input", "%int0Min%:output",
                          "%int0%Start", "%int0%End", "@%int0%Start", "@%int0%End"}));
}

void tst_condition::writing_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<double>("minimum");
    QTest::addColumn<double>("maximum");
    QTest::addColumn<QString>("note");
    QTest::addColumn<QString>("text");
    QTest::newRow("int") << "int0" << 0.0 << 100.0 << "a"
                         << "%int0%:0:100:a;";
    QTest::newRow("float") << "float0" << 0.5 << 2.25 << ""
                           << "%float0%:0.500:2.250:;";
    QTest::newRow("whole float") << "float0" << -12.0 << 5.0 << ""
                                 << "%float0%:-12.000:5.000:;";
    QTest::newRow("int is truncated") << "int3" << -2.9 << 2.9 << ""
                                      << "%int3%:-2:2:;";
    QTest::newRow("both words") << "intfloat" << 1.0 << 2.0 << ""
                                << "%intfloat%:1.000:2.000:;";
    QTest::newRow("beyond 32 bits") << "int0" << -1e20 << 1e20 << ""
                                    << "%int0%:-2147483648:2147483647:;";
    QTest::newRow("not a number") << "int0" << std::nan("") << 1.0 << ""
                                  << "%int0%:0:1:;";
    QTest::newRow("note as it stands") << "int0" << 1.0 << 2.0 << "x:y;z%"
                                       << "%int0%:1:2:x:y;z%;";
}

void tst_condition::writing()
{
    QFETCH(QString, name);
    QFETCH(double, minimum);
    QFETCH(double, maximum);
    QFETCH(QString, note);
    QFETCH(QString, text);
    const ConditionRecord record{name, minimum, maximum, note};
    QCOMPARE(ConditionRecord::toText({record}), text);
    QCOMPARE(ConditionRecord::toText({record, record}), text + text);
    QCOMPARE(ConditionRecord::toText({}), QStringLiteral("0"));
}

void tst_condition::storing_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("ascii") << "%int0%:1:2:note;" << QByteArray("%int0%:1:2:note;");
    QTest::newRow("two bytes a character") << QStringLiteral("ä1;")
                                           << QByteArray("\xc3\xa4"
                                                         "1");
    QTest::newRow("three bytes a character") << QStringLiteral("孔:12;") << QByteArray("\xe5\xad\x94:1");
    QTest::newRow("a pair of units, four bytes") << QStringLiteral("😀12;")
                                                 << QByteArray("\xf0\x9f\x98\x80"
                                                               "1");
    QTest::newRow("cut within a character") << QStringLiteral("孔孔") << QByteArray("\xe5\xad");
}

void tst_condition::storing()
{
    QFETCH(QString, text);
    QFETCH(QByteArray, bytes);
    QCOMPARE(ConditionRecord::toStored(text), bytes);
}

void tst_condition::reading_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QStringList>("conditions"); // name, type by the text, bounds, maximum is a number, note
    QTest::newRow("none") << "0" << QStringList();
    QTest::newRow("empty") << "" << QStringList();
    QTest::newRow("two") << "%int0%:0:100:a;%float0%:0.500:2.250:;"
                         << QStringList({"int0 int 0 100 1 a", "float0 float 0.5 2.25 1 "});
    QTest::newRow("empty pieces") << ";;%int0%:0:100:a;;" << QStringList({"int0 int 0 100 1 a"});
    QTest::newRow("too few fields") << "%int0%:0:100;%int1%:1:2:b;" << QStringList({"int1 int 1 2 1 b"});
    QTest::newRow("fields beyond the fourth") << "%int0%:0:100:x:y;" << QStringList({"int0 int 0 100 1 x"});
    QTest::newRow("type by the minimum")
        << "%int0%:1.0:2:;%float0%:1:2:;" << QStringList({"int0 float 1 2 1 ", "float0 int 1 2 1 "});
    QTest::newRow("maximum of another type") << "%float0%:1:2.5:;" << QStringList({"float0 int 1 0 0 "});
    QTest::newRow("only the maximum is judged")
        << "%int0%:x:7:;%int1%:7:x:;" << QStringList({"int0 int 0 7 1 ", "int1 int 7 0 0 "});
    QTest::newRow("beyond 32 bits") << "%int0%:1:99999999999:;" << QStringList({"int0 int 1 0 0 "});
    QTest::newRow("percent signs") << "%%in%t0:1:2:%;" << QStringList({"int0 int 1 2 1 %"});
    QTest::newRow("no name") << ":::;" << QStringList({" int 0 0 0 "});
}

void tst_condition::reading()
{
    QFETCH(QString, text);
    QStringList conditions;
    for (const StoredCondition& c : StoredCondition::fromText(text)) {
        conditions << QStringLiteral("%1 %2 %3 %4 %5 %6")
                          .arg(c.name, c.isFloat ? "float" : "int")
                          .arg(c.minimum)
                          .arg(c.maximum)
                          .arg(int(c.hasValidMaximum))
                          .arg(c.note);
    }
    QTEST(conditions, "conditions");
}

void tst_condition::largeTextIsReadWhole()
{
    QList<ConditionRecord> written;
    for (int i = 0; i < 50000; ++i) {
        written << ConditionRecord{QStringLiteral("int%1").arg(i), double(i), i + 1.0,
                                   QStringLiteral("note")};
    }
    const QList<StoredCondition> read = StoredCondition::fromText(ConditionRecord::toText(written));
    QCOMPARE(read.size(), written.size());
    QCOMPARE(read.last().name, written.last().name);
    QCOMPARE(read.last().maximum, 50000.0);
}

QTEST_APPLESS_MAIN(tst_condition)
#include "tst_condition.moc"
