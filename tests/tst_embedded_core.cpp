#include "EmbeddedCore/EmbeddedCore.h"
#include "EmbeddedCore/FileName.h"
#include "FlowFile.h"

#include <QElapsedTimer>
#include <QProcess>
#include <QScopeGuard>
#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QTemporaryDir>
#include <QtTest>

#include <sys/resource.h>
#include <unistd.h>

#include <csignal>
#include <iostream>

using namespace ZelCore;

namespace {

using Step = std::function<CommandResult(EmbeddedCore&)>;

Flow flowWithBlob(const QByteArray& id = "5")
{
    QByteArray json = R"({"name": "f", "modules": [
        {"id": 5, "name": "Blob", "kind": "Blob", "outputs": [{"name": "Count", "type": "int"},
            {"name": "Mean", "outputs": [{"name": "Radius", "type": "float"}]}]},
        {"id": 7, "name": "Check", "kind": "If", "outputs": [{"name": "Own", "type": "int"}]},
        {"id": 8, "name": "Late", "kind": "Blob", "outputs": [{"name": "Count", "type": "int"}]}]})";
    return flowOf(json.replace("5", id)).value();
}

// A step that executes one command.
template <typename TheCommand, typename... Arguments>
Step step(Arguments... arguments)
{
    return [=](EmbeddedCore& core) mutable {
        TheCommand command(arguments...);
        return core.Execute(command);
    };
}

Step addIo(const char* name, const char* type, IOClass ioClass, UInt subItems = 0)
{
    IO_INFO info(name, type);
    info.CreateList(subItems);
    return [=](EmbeddedCore& core) mutable { return step<AddIOCommand>(7u, &info, ioClass)(core); };
}

Step bind(const QString& key, const QString& source, int type = SUBSCRIBE_TYPE_IO)
{
    const FilterSourceTarget target = {7, static_cast<ENUM_IO_SUBSCRIBE_TYPE_>(type), key};
    return step<SetFilterSourceCommand>(target, source);
}

template <typename Record>
Record ignored;

template <typename Condition, typename Record>
Step query(const Condition& condition, Record* record = &ignored<Record>)
{
    return step<QueryCommand<Condition, Record>>(condition, record);
}

QByteArray bytesIn(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

constexpr int mebibyte = 1 << 20;

Step setList(const QByteArray& list)
{
    return step<SetBinaryDataCommand>(7u, "IFText", list, static_cast<UInt>(list.size()));
}

/// Another program: edits the store, shows each acknowledged edit in the trace of its system calls, and has
/// the store open until its input ends.
int edit(const char* store)
{
    QString error;
    const auto core = EmbeddedCore::open(flowWithBlob(), store, &error);
    for (char c = 'a'; core && c <= 'e'; ++c) {
        if (setList(QByteArray(mebibyte, c))(*core).Status == Success) {
            static_cast<void>(::access("acknowledged", F_OK));
        }
    }
    std::cout << qPrintable(error) << std::endl;
    return std::cin.get();
}

/// The superuser may write everywhere; another user may not.
struct OtherUser
{
    OtherUser() { become(getuid() == 0 ? 65534 : getuid()); }
    ~OtherUser() { become(getuid()); }
    static void become(uid_t user)
    {
        if (seteuid(user) != 0) {
            qFatal("can't become user %u", user);
        }
    }
};

} // namespace

class tst_embedded_core : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void values();
    void refusals();
    void bindings();
    void storeFaults();
    void fileNames();
    void tooLarge();
    void oneOwner();
    void otherPrograms();
    void readOnly();
    void mended();
    void synced();

private:
    // Closes the core and opens one on the same file; what went wrong, if anything.
    QString open(const QByteArray& blobId = "5")
    {
        QString error;
        m_core.reset();
        m_core = EmbeddedCore::open(flowWithBlob(blobId), m_file, &error);
        return error;
    }
    CommandStatus status(const Step& step) { return step(*m_core).Status; }
    void refused(const QByteArray& message, const Step& step)
    {
        const CommandResult result = step(*m_core);
        QCOMPARE(result.Status, Failed);
        QVERIFY2(QByteArray(result.Message).contains(message), message + ": " + result.Message);
    }
    QByteArray ifText()
    {
        BINARY_DATA__ record;
        status(query(BINARY_DATA_CONDITION__(7, "IFText"), &record));
        return {record.Items(), static_cast<int>(record.Num())};
    }

    // What another connection says to statements, if anything.
    QString sql(const QString& statements)
    {
        const auto remove = qScopeGuard([] { QSqlDatabase::removeDatabase("other"); });
        auto database = QSqlDatabase::addDatabase("QSQLITE", "other");
        database.setDatabaseName(m_file);
        QString errors = database.open() ? "" : "can't open";
        for (const QString& statement : statements.split(" && ")) {
            errors += QSqlQuery(statement, database).lastError().text();
        }
        return errors;
    }
    // What a shell beside the store's folder, $0, prints.
    QString shell(const QString& commands)
    {
        QProcess process;
        process.setWorkingDirectory(m_folder.path());
        process.start("sh", {"-c", commands, QString::number(m_count)});
        return process.waitForFinished() && process.exitCode() == 0 ? process.readAll()
                                                                    : commands + " failed";
    }

    QTemporaryDir m_folder;
    int m_count = 0;
    QString m_file;
    std::unique_ptr<EmbeddedCore> m_core;
};

// A store of its own for each row, with an input, its binding and an output.
void tst_embedded_core::init()
{
    const QDir folder(m_folder.filePath(QString::number(++m_count)));
    QVERIFY(folder.mkpath("."));
    m_file = folder.filePath("store.db");
    QCOMPARE(open(), QString());
    QCOMPARE(ifText(), QByteArray("0\0", 2));
    QCOMPARE(status(addIo("%int0%", "int", Input)), Success);
    QCOMPARE(status(addIo("%int0Out%", "int", Output)), Success);
    QCOMPARE(status(bind("%int0%", "5.Count")), Success);
}

void tst_embedded_core::values()
{
    KADO_MODULE_PARAM__ text;
    UI_OBJECT_PARAM_INFO__ ui;
    const auto queryText = query(RUN_PARAM_CONDITION__(7, "LogicalMode"), &text);
    QCOMPARE(status(queryText), Success);
    QCOMPARE(text.strParamValue, "1");
    for (const QByteArray& bytes : {QByteArray("%int0%:0:1:孔;"), QByteArray("a\0\xff", 3), QByteArray("")}) {
        const UInt length = static_cast<UInt>(bytes.size());
        QCOMPARE(status(step<SetBinaryDataCommand>(7u, "IFText", bytes, length, 5000u)), Success);
        QCOMPARE(status(step<SetUIDataCommand>(7u, "@%int0%Start", bytes, length)), Success);
        QCOMPARE(status(step<SetRunParamCommand>(7u, "LogicalMode", bytes)), Success);
        QCOMPARE(open(), QString());
        QCOMPARE(ifText(), bytes + '\0');
        QCOMPARE(status(query(UI_OBJECT_PARAM_INFO_CONDITION__(7, "@%int0%Start"), &ui)), Success);
        QCOMPARE(QByteArray(ui.Items(), static_cast<int>(ui.Num())), bytes + '\0');
        QCOMPARE(status(queryText), Success);
        QCOMPARE(text.strParamValue, bytes.constData());
    }
    for (const CommandStatus expected : {Success, NothingChanged}) {
        QCOMPARE(status(step<DeleteUIDataCommand>(7u, "@%int0%Start")), expected);
    }
}

// Says why, and leaves the store as it was.
void tst_embedded_core::refusals()
{
    struct AskCommand : Command
    {
        const char* Key() override { return "Ask"; }
    };
    SUBSCRIBE_CONDITION__ fourTypes(7, "int");
    fourTypes.VarTypeNum = 4;
    const QByteArray before = bytesIn(m_file + "-wal");
    refused("unknown command Ask", step<AskCommand>());
    refused("no module 6", step<SetRunParamCommand>(6u, "LogicalMode", "2"));
    refused("name is empty", step<SetRunParamCommand>(7u, "", "2"));
    refused("at most 126", step<SetRunParamCommand>(7u, QByteArray(127, 'n'), "2"));
    refused("at most 510", step<SetRunParamCommand>(7u, "LogicalMode", QByteArray(511, '2')));
    refused("or too much", [](EmbeddedCore& core) {
        SetBinaryDataCommand command(7, "IFText", "2", 1);
        command.DataLen = 0xffffffff;
        return core.Execute(command);
    });
    refused("no parameter N", query<BINARY_DATA_CONDITION__, BINARY_DATA__>({7, "N"}));
    refused("no record", query<RUN_PARAM_CONDITION__, KADO_MODULE_PARAM__>({7, "LogicalMode"}, nullptr));
    refused("the range",
            query<SUBSCRIBE_CONDITION__, SUBSCRIBE_TREE__>({7, static_cast<SUBSCRIBE_RANGE>(5)}));
    refused("number of types", query<SUBSCRIBE_CONDITION__, SUBSCRIBE_TREE__>(fourTypes));
    refused("another class or type", addIo("%int0%", "float", Input));
    refused("another class or type", addIo("%int0%", "int", Output));
    refused("neither an input", addIo("%int1%", "int", IOClass::Unknown));
    refused("sub-items", addIo("%int1%", "int", Input, 1));
    refused("no value 5.Mean", bind("%int0%", "5.Mean"));
    refused("has type float, not int", bind("%int0%", "5.Mean.Radius"));
    refused("does not come before module 7", bind("%int0%", "7.Own"));
    refused("does not come before module 7", bind("%int0%", "8.Count"));
    refused("no input %int1%", bind("%int1%", "5.Count"));
    refused("no input %int0Out%", bind("%int0Out%", "5.Count"));
    refused("has type int, not float", bind("%float0%End", "5.Count", SUBSCRIBE_TYPE_RUNPARAM));
    refused("neither an IO nor", bind("%int0%", "5.Count", 2));
    refused("name is empty", bind("", "5.Count"));
    refused("1048577 bytes of at most 1048576", setList(QByteArray(mebibyte + 1, 'x')));
    QCOMPARE(bytesIn(m_file + "-wal"), before);
}

void tst_embedded_core::bindings()
{
    const auto shown = [this](const QString& key, ENUM_IO_SUBSCRIBE_TYPE_ type = SUBSCRIBE_TYPE_IO) {
        GetFilterSourceCommand command({7, type, key});
        const CommandStatus status = m_core->Execute(command).Status;
        return QString::number(status) + command.SubscribeName + (command.SourceIsMissing ? "?" : "");
    };
    QCOMPARE(shown("%int0%", SUBSCRIBE_TYPE_RUNPARAM), QString("2"));
    QCOMPARE(status(bind("%float0%End", "5.Mean.Radius", SUBSCRIBE_TYPE_RUNPARAM)), Success);
    QCOMPARE(open("6"), QString());
    QCOMPARE(shown("%int0%"), QString("15.Count?"));
    QCOMPARE(open(), QString());
    QCOMPARE(shown("%int0%"), QString("15.Count"));
    QCOMPARE(shown("%float0%End", SUBSCRIBE_TYPE_RUNPARAM), QString("15.Mean.Radius"));

    const auto remove = [](const QString& key) {
        return step<DelFilterSourceCommand>(FilterSourceTarget{7, SUBSCRIBE_TYPE_IO, key});
    };
    QCOMPARE(status(remove("%int0%:input")), Success);
    QCOMPARE(shown("%int0%"), QString("2"));
    QCOMPARE(status(remove("%int0Out%:output")), NothingChanged);
    QCOMPARE(status(bind("%float0%End", "", SUBSCRIBE_TYPE_RUNPARAM)), Success);
    QCOMPARE(shown("%float0%End", SUBSCRIBE_TYPE_RUNPARAM), QString("2"));

    // A condition's name may be used again; an input without a type takes any value.
    QCOMPARE(status(addIo("%%", "", Input)), Success);
    QCOMPARE(open(), QString());
    QCOMPARE(status(addIo("%%", "", Input)), Success);
    QCOMPARE(status(bind("%%", "5.Mean.Radius")), Success);
}

// A store that can't be used is told by name and left as it is.
void tst_embedded_core::storeFaults()
{
    const QString put = " | dd of=store.db conv=notrunc bs=";
    const std::pair<QString, QString> faults[] = {
        {"echo no store at all > store.db", "not a database"},
        {"head -c 4096 /dev/zero" + put + "4096 seek=6", "is damaged: .*Page 7"},
        {"truncate -s 9000 store.db", "malformed"},
        {"printf '\\2'" + put + "1 seek=63", "has version 2"},
        {"printf '\\2'" + put + "1 seek=71", "no store"},
        {"rm store.db && mkfifo store.db", "is not a file"},
        {"chmod 0444 store.db", "Permission denied"},
        {"chmod 0555 .", "folder .*Permission denied"},
        {"CREATE TRIGGER t AFTER UPDATE ON ui_data BEGIN SELECT 1; END", "another .*TRIGGER t"},
        {"ALTER TABLE binding ADD COLUMN other", "another .*TABLE binding"},
        {"DROP TABLE ui_data", "lacks a table: .*ui_data"},
    };
    for (const auto& [fault, message] : faults) {
        init();
        m_core.reset();
        QCOMPARE(shell("chmod a+rwx . $0 $0/store.db"), QString());
        QCOMPARE(fault[1].isUpper() ? sql(fault) : shell("cd $0 && " + fault + " 2>/dev/null"), QString());
        const QByteArray before = QFileInfo(m_file).isFile() ? bytesIn(m_file) : QByteArray();
        const OtherUser user;
        const QString error = open();
        QVERIFY2(error.contains(m_file) && error.contains(QRegularExpression(message)),
                 qPrintable(fault + ": " + error));
        QVERIFY(!QFileInfo(m_file).isFile() || bytesIn(m_file) == before);
    }
    QCOMPARE(shell("chmod -R u+w ."), QString());
}

void tst_embedded_core::fileNames()
{
    const QByteArray folder = QFile::encodeName(QFileInfo(m_file).path()) + '/';
    for (const char* name : {"\xff.db", "\xc3(.db", "\xed\xb3\xbf.db", "孔 %41?x=1&#.db"}) {
        m_file = FileName::decoded(folder + name);
        QCOMPARE(open(), QString());
        QVERIFY2(::access((folder + name).constData(), F_OK) == 0, name);
    }
    for (const char* name : {"", ":memory:", "file:other.db", "file:other.db?mode=memory"}) {
        m_file = name;
        QVERIFY2(open().contains("path to a file, not \"" + m_file + '"'), name);
    }
    QCOMPARE(shell("rm -r $0"), QString()); // QTemporaryDir can't remove such names
}

void tst_embedded_core::tooLarge()
{
    const QString value = "UPDATE binary_parameter SET value = zeroblob(%1)";
    const QString bindings = "WITH RECURSIVE n(i) AS (SELECT 2 UNION ALL SELECT i + 1 FROM n WHERE i < %1) "
                             "INSERT INTO binding SELECT 7, 'io', i, '5.Count' FROM n";
    for (const auto& [statement, message] : {std::pair(value.arg(mebibyte), ""),
                                             {value.arg(mebibyte + 1), "IFText of module 7 is too large"},
                                             {bindings.arg(100000), ""},
                                             {bindings.arg(100001), "more than 100000 entries"}}) {
        init();
        QCOMPARE(sql(statement), QString());
        QString error;
        QCOMPARE(m_core->configuration(7, &error).has_value(), !*message);
        QVERIFY2(error.contains(message), qPrintable(error));
    }
    QCOMPARE(sql(value.arg(mebibyte + 1)), QString());
    refused("too large", query<BINARY_DATA_CONDITION__, BINARY_DATA__>({7, "IFText"}));
}

// By any of its names, for as long as its process lives.
void tst_embedded_core::oneOwner()
{
    const QString store = m_file;
    const QString hardLink = store + ".hard";
    QCOMPARE(shell("cd $0; ln store.db store.db.hard; ln -s store.db store.db.soft"), QString());
    const auto expectInUse = [&] {
        for (const QString& name : {store, hardLink, store + ".soft"}) {
            QString error;
            QVERIFY(!EmbeddedCore::open(flowWithBlob(), name, &error));
            QVERIFY2(error.contains(name + " is in use"), qPrintable(error));
        }
    };
    // To open the file in passing would drop the locks of SQLite in this process.
    const QString locks = "grep -o \"POSIX.*:$(stat -c %i $0/store.db) .*\" /proc/locks; true";
    const QString before = shell(locks);
    expectInUse();
    QCOMPARE(shell(locks), before);

    m_core.reset();
    QProcess other;
    other.start(QCoreApplication::applicationFilePath(), {"edit", store});
    if (!other.waitForStarted()) {
        QSKIP("This program can't start itself here.");
    }
    QVERIFY(other.waitForReadyRead());
    expectInUse();
    other.kill();
    QVERIFY(other.waitForFinished());
    m_file = hardLink;
    QVERIFY(open().contains("store.db.hard has another name"));
    m_file = store;
    QCOMPARE(open(), QString());
    QCOMPARE(ifText(), QByteArray(mebibyte, 'e') + '\0');
}

void tst_embedded_core::otherPrograms()
{
    {
        auto database = QSqlDatabase::addDatabase("QSQLITE", "other");
        database.setDatabaseName(m_file);
        QVERIFY(database.open());
        QSqlQuery other("SELECT id FROM module", database);
        QVERIFY(other.next());
        QCOMPARE(other.value(0).toInt(), 5);
        QCOMPARE(status(setList("edited")), Success);

        QVERIFY(other.exec("BEGIN EXCLUSIVE"));
        QElapsedTimer timer;
        timer.start();
        for (int i = 0; i < 60; ++i) {
            refused("locked", setList("locked"));
        }
        QVERIFY(timer.elapsed() < 1000);
        QVERIFY(other.exec("COMMIT"));
        QCOMPARE(status(setList("edited")), Success);

        m_core.reset();
        QVERIFY(other.exec("BEGIN EXCLUSIVE"));
        QVERIFY(open().contains("locked"));
    }
    QSqlDatabase::removeDatabase("other");
    QCOMPARE(open(), QString());
}

// Leaves nothing behind, also where nothing can be written.
void tst_embedded_core::readOnly()
{
    QCOMPARE(open(), QString());
    QCOMPARE(status(setList("latest")), Success);
    const std::pair<QString, QByteArray> copies[] = {{"true", "no such store: "},
                                                     {"ln -s ../$0/store.db kept", "latest"}, // in use
                                                     {"cp $0/store.db kept", "0"},
                                                     {"cp $0/store.db* kept", "latest"}, // as if killed
                                                     {"cp $0/store.db kept", "latest"}}; // closed
    for (const auto& [copy, expected] : copies) {
        QCOMPARE(shell("chmod -R a+rX .; mkdir kept; " + copy + "; chmod a-w kept kept/*.db; true"),
                 QString());
        const QString before = shell("ls kept");
        {
            const OtherUser user;
            QString error;
            const auto core =
                EmbeddedCore::openReadOnly(flowWithBlob(), m_folder.filePath("kept/store.db"), &error);
            const auto found = core ? core->configuration(7, &error) : std::nullopt;
            const QByteArray list = found ? found->binaryData["IFText"] : error.toUtf8();
            QVERIFY2(list.startsWith(expected), copy.toUtf8() + ": " + list);
        }
        QCOMPARE(shell("ls kept; chmod u+w kept; rm -r kept"), before);
        if (copy.contains('*')) {
            m_core.reset();
        }
    }
}

// What is refused is stored by the next edit once its cause has gone.
void tst_embedded_core::mended()
{
    const QByteArray message = "was moved, deleted or replaced";
    const std::pair<QString, QString> faults[] = {
        {"mv $0/store.db away", "mv away $0/store.db"},
        {"cp $0/store.db new; mv $0/store.db away; mv new $0/store.db", "mv away $0/store.db"},
        {"mv $0/store.db-wal away", "mv away $0/store.db-wal"},
    };
    for (const auto& [fault, mend] : faults) {
        QCOMPARE(shell(fault), QString());
        refused(message, setList("typed"));
        QCOMPARE(shell(mend), QString());
        QCOMPARE(status(setList(fault.toUtf8())), Success);
        QCOMPARE(open(), QString());
        QCOMPARE(ifText(), fault.toUtf8() + '\0');
    }
    QCOMPARE(shell("rm $0/store.db-wal"), QString());
    refused(message, setList("typed"));
    QCOMPARE(open(), QString());
    QCOMPARE(status(setList("kept")), Success);

    rlimit limit = {};
    QCOMPARE(getrlimit(RLIMIT_FSIZE, &limit), 0);
    const rlimit small = {1 << 18, limit.rlim_max};
    std::signal(SIGXFSZ, SIG_IGN);
    QCOMPARE(setrlimit(RLIMIT_FSIZE, &small), 0);
    refused("store.db failed: ", setList(QByteArray(mebibyte, 'x')));
    QCOMPARE(setrlimit(RLIMIT_FSIZE, &limit), 0);
    QCOMPARE(ifText(), QByteArray("kept\0", 5));
    QCOMPARE(status(setList(QByteArray(mebibyte, 'x'))), Success);

    // A store that took the place is left alone, by edits and by closing.
    QCOMPARE(shell("cp $0/store.db new; rm $0/store.db*; cp new $0/store.db"), QString());
    refused(message, setList("typed"));
    m_core.reset();
    QCOMPARE(shell("cmp new $0/store.db; ls $0"), QString("store.db\n"));
}

// When an edit is acknowledged, all files that were written are synced, and the folder of files that came or
// went.
void tst_embedded_core::synced()
{
    m_core.reset();
    QCOMPARE(shell("rm $0/*"), QString());
    const QString folder = QDir(QFileInfo(m_file).path()).canonicalPath();
    QProcess tracer;
    auto environment = QProcessEnvironment::systemEnvironment();
    environment.insert("ASAN_OPTIONS",
                       environment.value("ASAN_OPTIONS") + ":detect_leaks=0"); // wants to trace too
    tracer.setProcessEnvironment(environment);
    const QRegularExpression call(R"((\w+)\((?:AT_FDCWD[^,]*, |\d+)?[<"]([^">]*)[">])");
    for (const QString run : {"new store", "existing store"}) {
        tracer.start("strace", {"-f", "-y", "-o", folder + ".trace", QCoreApplication::applicationFilePath(),
                                "edit", m_file});
        tracer.closeWriteChannel();
        tracer.waitForFinished();
        const QByteArray trace = bytesIn(folder + ".trace");
        if (!trace.contains("execve(")) {
            QSKIP("strace is missing or can't trace this program here.");
        }
        QSet<QString> unsynced;
        int acknowledged = 0;
        for (const QString line : trace.split('\n')) {
            const auto match = call.match(line);
            const QString name = match.captured(1);
            const QString file = match.captured(2);
            if (file == "acknowledged") {
                QVERIFY2(unsynced.isEmpty(), qPrintable(run + ": " + unsynced.values().join(", ")));
                ++acknowledged;
            } else if (!file.startsWith(folder) || file.endsWith("-shm")) {
                continue; // the index of the log is made anew when it is missing
            } else if (name.endsWith("sync")) {
                unsynced.remove(file);
            } else if (name.startsWith("unlink") || line.contains("O_CREAT")) {
                unsynced << folder;
            } else if (name.contains("write") || name == "ftruncate") {
                unsynced << file;
            }
        }
        QCOMPARE(acknowledged, 5);
    }
}

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    if (argc == 3 && qstrcmp(argv[1], "edit") == 0) {
        return edit(argv[2]);
    }
    tst_embedded_core test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_embedded_core.moc"
