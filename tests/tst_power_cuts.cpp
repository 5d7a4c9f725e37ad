#include "EmbeddedCore/EmbeddedCore.h"
#include "FlowFile.h"

#include <QProcess>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <QTemporaryDir>
#include <QtTest>

#include <unistd.h>

#include <cstdlib>
#include <random>

using namespace ZelCore;

namespace {

Flow flow()
{
    return *flowOf(R"({"name": "f", "modules": [{"id": 7, "name": "Check", "kind": "If"}]})");
}

// The list of the n-th edit: from a line to several pages of the store.
QByteArray listOf(int edit)
{
    return "%int0%:" + QByteArray::number(edit) + ":1000:" + QByteArray(edit * 997 % 9000, 'n') + ';';
}

/// The process that loses its power: edits, and acknowledges each on standard output, without end.
int write(const QString& store, int edit)
{
    QString error;
    const auto core = EmbeddedCore::open(flow(), store, &error);
    if (!core) {
        std::fprintf(stderr, "%s\n", qUtf8Printable(error));
        return EXIT_FAILURE;
    }
    for (;; ++edit) {
        const QByteArray list = listOf(edit);
        SetBinaryDataCommand setList(7, "IFText", list.constData(), static_cast<UInt>(list.size()), 5000);
        const QByteArray number = QByteArray::number(edit);
        SetRunParamCommand setMode(7, "LogicalMode", number.constData());
        for (const auto& [command, word] : {std::pair<ICommand*, char>(&setList, 'l'), {&setMode, 'm'}}) {
            const QByteArray acknowledgement = word + number + '\n';
            if (!IsSuccess(core->Execute(*command)) ||
                ::write(STDOUT_FILENO, acknowledgement.constData(), acknowledgement.size()) < 0) {
                return EXIT_FAILURE;
            }
        }
    }
}

} // namespace

class tst_power_cuts : public QObject
{
    Q_OBJECT

private slots:
    void acknowledgedEditsStay();
};

void tst_power_cuts::acknowledgedEditsStay()
{
    const int cuts =
        qEnvironmentVariableIsSet("POWER_CUTS") ? qEnvironmentVariableIntValue("POWER_CUTS") : 200;
    const QTemporaryDir folder;
    const QString store = folder.filePath("store.db");
    std::mt19937 random(7);
    int storedMode = 1;
    int edit = 2;
    int edits = 0;
    for (int cut = 0; cut < cuts; ++cut) {
        QProcess writer;
        writer.start(WRITER_FILE, {"write", store, QString::number(edit)});
        QVERIFY(writer.waitForStarted());
        QVERIFY2(writer.waitForReadyRead(), writer.readAllStandardError());
        QTest::qWait(std::uniform_int_distribution<int>(0, 40)(random));
        writer.kill();
        QVERIFY(writer.waitForFinished());
        QCOMPARE(writer.exitStatus(), QProcess::CrashExit);

        int list = 0;
        int mode = storedMode;
        auto lines = writer.readAllStandardOutput().split('\n');
        lines.removeLast();
        for (const QByteArray& line : lines) {
            (line[0] == 'l' ? list : mode) = line.mid(1).toInt();
        }
        edits += lines.size();
        {
            auto database = QSqlDatabase::addDatabase("QSQLITE", "reader");
            database.setDatabaseName(store);
            QVERIFY(database.open());
            const auto read = [&database](const char* statement) {
                QSqlQuery query(QString::fromLatin1(statement), database);
                return query.next() ? query.value(0).toByteArray() : QByteArray();
            };
            const QByteArray context = "cut " + QByteArray::number(cut);
            QVERIFY2(read("PRAGMA integrity_check") == "ok", context);
            // The last one acknowledged, or the one after it, whole.
            const QByteArray stored = read("SELECT value FROM binary_parameter WHERE name = 'IFText'");
            QVERIFY2(stored == listOf(list) || stored == listOf(list + 1), context + ": " + stored.left(40));
            storedMode = read("SELECT value FROM run_parameter WHERE name = 'LogicalMode'").toInt();
            QVERIFY2(storedMode == mode || storedMode == qMax(mode + 1, edit), context);
        }
        QSqlDatabase::removeDatabase("reader");
        edit = list + 2;
    }
    qInfo("%d cuts, %d acknowledged edits", cuts, edits);
}

int main(int argc, char** argv)
try {
    QCoreApplication application(argc, argv);
    if (argc == 4 && qstrcmp(argv[1], "write") == 0) {
        return write(QString::fromLocal8Bit(argv[2]), std::atoi(argv[3]));
    }
    tst_power_cuts test;
    return QTest::qExec(&test, argc, argv);
} catch (...) {
    return EXIT_FAILURE;
}
#include "tst_power_cuts.moc"
