#include "EmbeddedCore/EmbeddedCore.h"
#include "EmbeddedCore/FileName.h"

#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QtTest>

#include <unistd.h>

#include <csignal>
#include <iostream>

using namespace ZelCore;

namespace {

constexpr int mebibyte = 1 << 20;

const QByteArray sample = R"({"name": "Seals", "modules": [
    {"id": 3, "name": "Camera", "kind": "Camera", "outputs": [{"name": "Gain", "type": "float", "value": 2}]},
    {"id": 9, "name": "斑点", "kind": "Blob", "outputs": [
        {"name": "Count", "type": "int", "value": -2147483648},
        {"name": "Mean", "outputs": [
            {"name": "Radius", "type": "float"},
            {"name": "Code", "type": "string", "value": "A.1"},
            {"name": "Pixels", "outputs": [{"name": "Area", "type": "int"}]}]},
        {"name": "Nothing", "outputs": []}]},
    {"id": 7, "name": "Check", "kind": "If", "outputs": [{"name": "Own", "type": "int"}]},
    {"id": 1, "name": "Late", "kind": "Blob", "outputs": [{"name": "Count", "type": "int"}]}]})";

// Module, name and subscribe text of each node, its children in braces.
QString shown(const ZEL_VALUE_CONTAINER__<SUBSCRIBE_NODE__>& list)
{
    QStringList nodes;
    for (UInt i = 0; i < list.Num(); ++i) {
        const SUBSCRIBE_NODE__& node = list.Items()[i];
        nodes << QString("%1 %2 %3").arg(node.ModuleID).arg(node.NodeName, node.SubscribeName);
        nodes.last() += node.Num() != 0 ? '{' + shown(node) + '}' : "";
    }
    return nodes.join(", ");
}

/// Another program: edits the store, shows each acknowledged edit in the trace of its system calls, and has
/// the store open until its input ends.
int edit(const char* flow, const char* store)
{
    QString error;
    const auto core = EmbeddedCore::open(Flow::load(flow, &error).value(), store, &error);
    for (char c = 'a'; core && c <= 'e'; ++c) {
        SetBinaryDataCommand command(7, "IFText", QByteArray(mebibyte, c), mebibyte);
        if (core->Execute(command).Status == Success) {
            static_cast<void>(::access("acknowledged", F_OK));
        }
    }
    std::cout << qPrintable(error) << std::endl;
    return std::cin.get();
}

// The superuser may write everywhere; another user may not.
void become(uid_t user)
{
    if (getuid() == 0 && seteuid(user) != 0) {
        qFatal("can't become user %u", user);
    }
}

constexpr uid_t otherUser = 65534;

} // namespace

class tst_embedded_core : public QObject
{
    Q_OBJECT

private slots:
    // A store of its own for each test, with an input, its binding and an output.
    void init()
    {
        const QDir folder(m_folder.filePath(QString::number(++m_count)));
        QVERIFY(folder.mkpath("."));
        m_file = folder.filePath("store.db");
        m_flow = flowOf(sample).value();
        m_otherConnection.close();
        m_otherConnection.setDatabaseName(m_file);
        QCOMPARE(open(), QString());
        QCOMPARE(addIo("%int0%", "int", Input).Status, Success);
        QCOMPARE(addIo("%int0Out%", "int", Output).Status, Success);
        QCOMPARE(bind("%int0%", "9.Count").Status, Success);
    }
    void flows();
    void values();
    void bindings();
    void refusals();
    void storeFaults();
    void fileNames();
    void oneOwner();
    void otherPrograms();
    void readOnly();
    void mended();
    void synced();

private:
    std::optional<Flow> flowOf(const QByteArray& json)
    {
        QFile file(m_flowFile);
        file.open(QIODevice::WriteOnly);
        file.write(json);
        file.close();
        return Flow::load(m_flowFile, &m_error);
    }
    // Closes the core and opens one on the same file; what went wrong, if anything.
    QString open()
    {
        m_error.clear();
        m_core.reset();
        m_core = EmbeddedCore::open(m_flow, m_file, &m_error);
        return m_error;
    }
    template <typename TheCommand, typename... Arguments>
    CommandResult execute(Arguments... arguments)
    {
        TheCommand command(arguments...);
        return m_core->Execute(command);
    }
    CommandResult setList(const QByteArray& list)
    {
        return execute<SetBinaryDataCommand>(7u, "IFText", list, static_cast<UInt>(list.size()));
    }
    CommandResult addIo(const char* name, const char* type, IOClass ioClass, UInt subItems = 0)
    {
        IO_INFO info(name, type);
        info.CreateList(subItems);
        return execute<AddIOCommand>(7u, &info, ioClass);
    }
    CommandResult bind(const QString& key, const QString& source, int type = SUBSCRIBE_TYPE_IO)
    {
        const FilterSourceTarget target = {7, static_cast<ENUM_IO_SUBSCRIBE_TYPE_>(type), key};
        return execute<SetFilterSourceCommand>(target, source);
    }
    static void refused(const QByteArray& message, const CommandResult& result)
    {
        QVERIFY2(result.Status == Failed && QByteArray(result.Message).contains(message),
                 message + ": " + result.Message);
    }
    QByteArray ifText()
    {
        BINARY_DATA__ record;
        m_core->Query(BINARY_DATA_CONDITION__(7, "IFText"), &record);
        return {record.Items(), static_cast<int>(record.Num())};
    }
    // What another connection to the store says to a statement, if anything.
    QString sql(const QString& statement)
    {
        return QSqlQuery(statement, QSqlDatabase::database()).lastError().text();
    }
    // What a shell prints that runs in the parent of the store's folder, $0.
    QString shell(const QString& commands)
    {
        QProcess process;
        process.setWorkingDirectory(m_folder.path());
        process.start("sh", {"-c", commands, QString::number(m_count)});
        return process.waitForFinished() && process.exitCode() == 0 ? process.readAll()
                                                                    : commands + " failed";
    }

    QTemporaryDir m_folder;
    const QString m_flowFile = m_folder.filePath("flow.json");
    QSqlDatabase m_otherConnection = QSqlDatabase::addDatabase("QSQLITE");
    Flow m_flow;
    int m_count = 0;
    QString m_file;
    QString m_error;
    std::unique_ptr<EmbeddedCore> m_core;
};

void tst_embedded_core::flows()
{
    UInt module = 0;
    const FlowOutput* const output = m_flow.output("9.Mean.Code", &module);
    QVERIFY(output && output->type == "string" && output->value == "A.1" && module == 9);
    for (const char* none : {"", "9", "9.", "9.Mean", "9.Nothing", "9.Count.x", "4.Count", "09.Count", "x"}) {
        QVERIFY2(!m_flow.output(none, &module), none);
    }
    const auto tree = [this](const SUBSCRIBE_CONDITION__& condition) {
        SUBSCRIBE_TREE__ found;
        m_core->Query(condition, &found);
        return shown(found);
    };
    const QString before = "9 斑点 {9 Count 9.Count, 9 Mean {9 Pixels {9 Area 9.Mean.Pixels.Area}}}";
    const QString own = "7 Check {7 Own 7.Own}";
    QCOMPARE(tree({7, "int"}), before);
    QCOMPARE(tree({7, "int", InternalAndCur}), own);
    QCOMPARE(tree({7, "int", PreAndCur}), before + ", " + own);
    QCOMPARE(tree({7, "float", ParentAndPreAndCur}),
             QString("3 Camera {3 Gain 3.Gain}, 9 斑点 {9 Mean {9 Radius 9.Mean.Radius}}"));
    QCOMPARE(tree({7, CurModule}), own);
    QCOMPARE(tree({7, InternalModules}) + tree({7, ParentModule}), QString());
    // What is wrong: a part of the sample, what replaces it, and the error.
    const QByteArray area = R"({"name": "Area", "type": "int"})";
    const auto nested = [&area](int levels, const QByteArray& name) {
        const QByteArray group = R"({"name": ")" + name + R"(", "outputs": [)";
        return group.repeated(levels) + area + QByteArray("]}").repeated(levels);
    };
    QVERIFY(flowOf(QByteArray(sample).replace(area, nested(61, "n"))));
    const std::tuple<QByteArray, QByteArray, QString> rows[] = {
        {sample, "", "line 1, column 1: expected JSON"},
        {R"("name": "Seals",)", "\n \"a\" 1", "line 2, column 6: expected JSON"},
        {R"("name": "Seals",)", "", "name: expected a text"},
        {"modules", "module", "the whole file: unknown key \"module\", expected name, modules"},
        {R"("kind": "If",)", "", "modules[2].kind: expected a text"},
        {R"("kind": "If",)", R"("type": "If",)", "modules[2]: unknown key \"type\", expected id,"},
        {"Check", QByteArray(128, 'm'), "modules[2].name: expected at most 127"},
        {R"("id": 1,)", R"("id": 0,)", "modules[3].id: expected a whole number from 1"},
        {R"("id": 1,)", R"("id": 7,)", "modules[3].id: expected a whole number from 1"},
        {"Gain", "Gain.1", "modules[0].outputs[0].name: expected a name without"},
        {R"("value": 2)", R"("colunm": "A")", "modules[0].outputs[0]: unknown key \"colunm\""},
        {R"(float", "value)", R"(long", "value)", "modules[0].outputs[0].type: expected \"int\""},
        {"-2147483648", "0.5", "modules[1].outputs[0].value: expected a value"},
        {"-2147483648", "2147483648", "modules[1].outputs[0].value: expected a value"},
        {"Nothing", "Mean", "modules[1].outputs[2].name: expected a name without"},
        {R"("outputs": [])", R"("outputs": 1)", "modules[1].outputs[2].outputs: expected a list"},
        {R"("outputs": [])", R"("outputs": [], "value": 2)", "outputs[2]: unknown key \"value\""},
        {area, nested(2, QByteArray(127, 'n')),
         "outputs[2].outputs[0].outputs[0].outputs[0]: expected names"},
        {area, nested(62, "n"), ".outputs[0].outputs: expected at most 64"}};
    for (const auto& [part, wrong, error] : rows) {
        QVERIFY2(!flowOf(QByteArray(sample).replace(part, wrong)), wrong);
        QVERIFY2(m_error.startsWith(m_flowFile + ": ") && m_error.contains(error), qPrintable(m_error));
    }
    for (const auto& [file, error] : {std::pair(m_folder.path(), "directory"),
                                      {m_folder.filePath("none.json"), "No such file or directory"}}) {
        QVERIFY(!Flow::load(file, &m_error));
        QVERIFY2(m_error.startsWith(file + ": ") && m_error.contains(error), qPrintable(m_error));
    }
}

void tst_embedded_core::values()
{
    const auto stored = [this] {
        UI_OBJECT_PARAM_INFO__ ui;
        KADO_MODULE_PARAM__ mode;
        m_core->Query(UI_OBJECT_PARAM_INFO_CONDITION__(7, "@%int0%Start"), &ui);
        m_core->Query(RUN_PARAM_CONDITION__(7, "LogicalMode"), &mode);
        return QByteArrayList{ifText(), {ui.Items(), static_cast<int>(ui.Num())}, mode.strParamValue};
    };
    QCOMPARE(stored(), QByteArrayList({QByteArray("0\0", 2), "", "1"}));
    for (const QByteArray& bytes : {QByteArray("%int0%:0:1:孔;"), QByteArray("a\0\xff", 3), QByteArray("")}) {
        const UInt length = static_cast<UInt>(bytes.size());
        QCOMPARE(setList(bytes).Status, Success);
        QCOMPARE(execute<SetUIDataCommand>(7u, "@%int0%Start", bytes, length).Status, Success);
        QCOMPARE(execute<SetRunParamCommand>(7u, "LogicalMode", bytes).Status, Success);
        QCOMPARE(open(), QString());
        QCOMPARE(stored(), QByteArrayList({bytes + '\0', bytes + '\0', bytes.constData()}));
    }
    QCOMPARE(execute<DeleteUIDataCommand>(7u, "@%int0%Start").Status, Success);
    QCOMPARE(execute<DeleteUIDataCommand>(7u, "@%int0%Start").Status, NothingChanged);
}

// A refused command says why and leaves the store as it was.
void tst_embedded_core::refusals()
{
    struct AskCommand : Command
    {
        const char* Key() override { return "Ask"; }
    };
    SetBinaryDataCommand huge(7, "IFText", "2", 1);
    huge.DataLen = 0xffffffff;
    SUBSCRIBE_CONDITION__ fourTypes(7, "int");
    fourTypes.VarTypeNum = 4;
    SUBSCRIBE_TREE__ tree;
    BINARY_DATA__ bytes;
    KADO_MODULE_PARAM__* const none = nullptr;
    const QString before = shell("cksum $0/store.db $0/store.db-wal");
    refused("unknown command Ask", execute<AskCommand>());
    refused("no module 6", execute<SetRunParamCommand>(6u, "LogicalMode", "2"));
    refused("name is empty", execute<SetRunParamCommand>(7u, "", "2"));
    refused("at most 126", execute<SetRunParamCommand>(7u, QByteArray(127, 'n'), "2"));
    refused("at most 510", execute<SetRunParamCommand>(7u, "LogicalMode", QByteArray(511, '2')));
    refused("or too much", m_core->Execute(huge));
    refused("1048577 bytes of at most 1048576", setList(QByteArray(mebibyte + 1, 'x')));
    refused("no parameter N", m_core->Query(BINARY_DATA_CONDITION__(7, "N"), &bytes));
    refused("no record", m_core->Query(RUN_PARAM_CONDITION__(7, "LogicalMode"), none));
    refused("the range", m_core->Query(SUBSCRIBE_CONDITION__(7, static_cast<SUBSCRIBE_RANGE>(5)), &tree));
    refused("number of types", m_core->Query(fourTypes, &tree));
    refused("another class or type", addIo("%int0%", "float", Input));
    refused("another class or type", addIo("%int0%", "int", Output));
    refused("neither an input", addIo("%int1%", "int", IOClass::Unknown));
    refused("sub-items", addIo("%int1%", "int", Input, 1));
    refused("no value 9.Mean", bind("%int0%", "9.Mean"));
    refused("has type float, not int", bind("%int0%", "9.Mean.Radius"));
    refused("does not come before module 7", bind("%int0%", "7.Own"));
    refused("does not come before module 7", bind("%int0%", "1.Count"));
    refused("no input %int1%", bind("%int1%", "9.Count"));
    refused("no input %int0Out%", bind("%int0Out%", "9.Count"));
    refused("has type int, not float", bind("%float0%End", "9.Count", SUBSCRIBE_TYPE_RUNPARAM));
    refused("neither an IO nor", bind("%int0%", "9.Count", 2));
    refused("name is empty", bind("", "9.Count"));
    QCOMPARE(shell("cksum $0/store.db $0/store.db-wal"), before);
    // A store that another program made too large is not read.
    const QString bindings = "WITH RECURSIVE n(i) AS (SELECT %1 UNION ALL SELECT i + 1 FROM n WHERE i < %2) "
                             "INSERT INTO binding SELECT 7, 'io', i, '9.Count' FROM n";
    const std::pair<QString, QString> rows[] = {
        {bindings.arg(2).arg(100000), ""},
        {bindings.arg(100001).arg(100001), "more than 100000 entries"},
        {"UPDATE binary_parameter SET value = zeroblob(1048577)", "IFText of module 7 is too large"}};
    for (const auto& [statement, message] : rows) {
        QCOMPARE(sql(statement), QString());
        QCOMPARE(m_core->configuration(7, &m_error).has_value(), message.isEmpty());
        QVERIFY2(m_error.contains(message), qPrintable(m_error));
    }
    BINARY_DATA__ list;
    refused("too large", m_core->Query(BINARY_DATA_CONDITION__(7, "IFText"), &list));
}

void tst_embedded_core::bindings()
{
    const auto binding = [this](const QString& key, ENUM_IO_SUBSCRIBE_TYPE_ type = SUBSCRIBE_TYPE_IO) {
        GetFilterSourceCommand command({7, type, key});
        const bool isBound = m_core->Execute(command).Status == Success;
        return isBound ? command.SubscribeName + (command.SourceIsMissing ? " is missing" : "") : "none";
    };
    QCOMPARE(binding("%int0%", SUBSCRIBE_TYPE_RUNPARAM), QString("none"));
    QCOMPARE(bind("%float0%End", "9.Mean.Radius", SUBSCRIBE_TYPE_RUNPARAM).Status, Success);
    QCOMPARE(bind("%int0%", "9.Mean.Pixels.Area").Status, Success);
    m_flow = flowOf(QByteArray(sample).replace("Area", "Size")).value();
    QCOMPARE(open(), QString());
    QCOMPARE(binding("%int0%"), QString("9.Mean.Pixels.Area is missing"));
    QCOMPARE(binding("%float0%End", SUBSCRIBE_TYPE_RUNPARAM), QString("9.Mean.Radius"));

    const auto remove = [this](const QString& key) {
        return execute<DelFilterSourceCommand>(FilterSourceTarget{7, SUBSCRIBE_TYPE_IO, key}).Status;
    };
    QCOMPARE(remove("%int0%:input"), Success);
    QCOMPARE(binding("%int0%"), QString("none"));
    QCOMPARE(remove("%int0Out%:output"), NothingChanged);
    QCOMPARE(bind("%float0%End", "", SUBSCRIBE_TYPE_RUNPARAM).Status, Success);
    QCOMPARE(binding("%float0%End", SUBSCRIBE_TYPE_RUNPARAM), QString("none"));

    const auto stored = m_core->configuration(7, &m_error);
    QVERIFY(stored && stored->ios[0].flags.IsPrefer && !stored->ios[0].flags.IsPrivate);
    // A condition's name may be used again; an input without a type takes any value.
    for (int i = 0; i < 2; ++i) {
        QCOMPARE(addIo("%%", "", Input).Status, Success);
        QCOMPARE(open(), QString());
    }
    QCOMPARE(bind("%%", "9.Mean.Radius").Status, Success);
}

// A store that can't be used is reported by name and not changed.
void tst_embedded_core::storeFaults()
{
    const QString put = " | dd of=store.db conv=notrunc bs=";
    const std::pair<QString, QString> faults[] = {
        {"echo no store at all > store.db", "not a database"},
        {"head -c 4096 /dev/zero" + put + "4096 seek=6", "is damaged: .*Page 7"},
        {"printf '\\2'" + put + "1 seek=63", "has version 2"},
        {"printf '\\2'" + put + "1 seek=71", "no store"},
        {"rm store.db && mkdir store.db", "is not a file"},
        {"chmod 0444 store.db", "Permission denied"},
        {"chmod 0555 .", "folder .*Permission denied"},
        {"CREATE TRIGGER t AFTER UPDATE ON ui_data BEGIN SELECT 1; END", "another .*TRIGGER t"},
        {"DROP TABLE ui_data", "lacks a table: .*ui_data"},
    };
    for (const auto& [fault, message] : faults) {
        init();
        m_core.reset();
        const bool isSql = fault[1].isUpper();
        QCOMPARE(shell("chmod a+rwx . $0 $0/store.db"), QString());
        QCOMPARE(isSql ? sql(fault) : shell("cd $0 && " + fault + " 2>/dev/null"), QString());
        const QString before = shell("cksum $0/*; true");
        become(otherUser);
        open();
        become(getuid());
        QVERIFY2(m_error.contains(m_file) && m_error.contains(QRegularExpression(message)),
                 qPrintable(fault + ": " + m_error));
        QCOMPARE(shell("cksum $0/*; true"), before);
    }
    QCOMPARE(shell("chmod -R u+w ."), QString());
}

void tst_embedded_core::fileNames()
{
    const QByteArray folder = QFile::encodeName(QFileInfo(m_file).path()) + '/';
    for (const char* name : {"\xff.db", "\xc3(.db", "\xed\xb3\xbf.db", "孔😀 %41?x=1&#.db"}) {
        m_file = FileName::decoded(folder + name);
        QCOMPARE(open(), QString());
        QVERIFY2(::access((folder + name).constData(), F_OK) == 0, name);
    }
    for (const char* name : {"", ":memory:", "file:other.db"}) {
        m_file = name;
        QVERIFY2(open().contains("path to a file, not \"" + m_file + '"'), name);
    }
    QCOMPARE(shell("rm -r $0"), QString()); // QTemporaryDir can't remove such names
}

// One program edits a store, under any of its names, until its process ends.
void tst_embedded_core::oneOwner()
{
    QCOMPARE(shell("cd $0; ln store.db store.db.hard; ln -s store.db store.db.soft"), QString());
    const auto expectInUse = [this] {
        for (const char* suffix : {"", ".hard", ".soft"}) {
            QVERIFY(!EmbeddedCore::open(m_flow, m_file + suffix, &m_error));
            QVERIFY2(m_error.contains(m_file + suffix + " is in use"), qPrintable(m_error));
        }
    };
    // To open the file in passing would drop the locks of SQLite in this process.
    const QString locks = "grep -o \"POSIX.*:$(stat -c %i $0/store.db) .*\" /proc/locks; true";
    const QString before = shell(locks);
    expectInUse();
    QCOMPARE(shell(locks), before);

    m_core.reset();
    QProcess other;
    other.start(QCoreApplication::applicationFilePath(), {"edit", m_flowFile, m_file});
    QVERIFY(other.waitForReadyRead());
    expectInUse();
    other.kill();
    QVERIFY(other.waitForFinished());
    QVERIFY(!EmbeddedCore::open(m_flow, m_file + ".hard", &m_error));
    QVERIFY2(m_error.contains("store.db.hard has another name"), qPrintable(m_error));
    QCOMPARE(open(), QString());
    QCOMPARE(ifText(), QByteArray(mebibyte, 'e') + '\0');
}

// A reader disturbs no edit; a writer delays the first that it makes fail, not those that follow at once.
void tst_embedded_core::otherPrograms()
{
    QCOMPARE(sql("BEGIN"), QString());
    QCOMPARE(sql("SELECT id FROM module"), QString());
    QCOMPARE(setList("edited").Status, Success);
    QCOMPARE(sql("COMMIT"), QString());
    QCOMPARE(sql("BEGIN EXCLUSIVE"), QString());
    QElapsedTimer timer;
    timer.start();
    for (int i = 0; i < 60; ++i) {
        refused("locked", setList("locked"));
    }
    QVERIFY(timer.elapsed() < 1000);
    QCOMPARE(sql("COMMIT"), QString());
    QCOMPARE(setList("edited").Status, Success);
}

// Reading leaves no file behind and works where nothing can be written.
void tst_embedded_core::readOnly()
{
    QCOMPARE(open(), QString());
    QCOMPARE(setList("latest").Status, Success);
    const std::pair<QString, QByteArray> copies[] = {{"ln -s ../$0/store.db kept", "latest"}, // in use
                                                     {"cp $0/store.db kept", "0"},
                                                     {"cp $0/store.db* kept", "latest"}, // as if killed
                                                     {"cp $0/store.db kept", "latest"}}; // closed
    for (const auto& [copy, expected] : copies) {
        QCOMPARE(shell("chmod -R a+rX .; mkdir kept; " + copy + "; chmod a-w kept kept/*.db; true"),
                 QString());
        const QString before = shell("ls kept");
        become(otherUser);
        auto core = EmbeddedCore::openReadOnly(m_flow, m_folder.filePath("kept/store.db"), &m_error);
        const auto found = core ? core->configuration(7, &m_error) : std::nullopt;
        core.reset();
        become(getuid());
        const QByteArray list = found ? found->binaryData["IFText"] : m_error.toUtf8();
        QVERIFY2(list.startsWith(expected), copy.toUtf8() + ": " + list);
        QCOMPARE(shell("ls kept; chmod u+w kept; rm -r kept"), before);
        if (copy.contains('*')) {
            m_core.reset();
        }
    }
}

// A refused edit changes nothing; once the cause has gone, the next edit is stored.
void tst_embedded_core::mended()
{
    const QString gone = "was moved, deleted or replaced";
    const std::tuple<QString, QString, QString> faults[] = {
        {"mv $0/store.db away", gone, "mv away $0/store.db"},
        {"cp $0/store.db new; mv $0/store.db away; mv new $0/store.db", gone, "mv away $0/store.db"},
        {"mv $0/store.db-wal away", gone, "mv away $0/store.db-wal"},
        {"prlimit --pid $PPID --fsize=262144:", "store.db failed: ",
         "prlimit --pid $PPID --fsize=unlimited:"}};
    std::signal(SIGXFSZ, SIG_IGN);
    for (const auto& [fault, message, mend] : faults) {
        const QByteArray before = ifText();
        const QByteArray list = fault.toUtf8().repeated(mebibyte / fault.size());
        QCOMPARE(shell(fault), QString());
        refused(message.toUtf8(), setList(list));
        QCOMPARE(shell(mend), QString());
        QCOMPARE(ifText(), before);
        QCOMPARE(setList(list).Status, Success);
        QCOMPARE(open(), QString());
        QCOMPARE(ifText(), list + '\0');
    }
    // A store that took the place is left alone, by edits and by closing.
    QCOMPARE(shell("cp $0/store.db new; rm $0/*; cp new $0/store.db; cp new $0/store.db-wal"), QString());
    refused(gone.toUtf8(), setList("typed"));
    m_core.reset();
    QCOMPARE(shell("cmp new $0/store.db; cmp new $0/store.db-wal"), QString());
}

// When an edit is acknowledged, all files that were written are synced, and the folder of files that came or
// went.
void tst_embedded_core::synced()
{
    m_core.reset();
    QCOMPARE(shell("rm $0/*"), QString());
    const QString folder = QDir(QFileInfo(m_file).path()).canonicalPath();
    QProcess tracer;
    qputenv("ASAN_OPTIONS", qgetenv("ASAN_OPTIONS") + ":detect_leaks=0"); // wants to trace too
    const QRegularExpression call(R"((\w+)\((?:AT_FDCWD[^,]*, |\d+)?[<"]([^">]*)[">])");
    for (const QString run : {"new store", "existing store"}) {
        tracer.start("strace", {"-f", "-y", "-o", folder + ".trace", QCoreApplication::applicationFilePath(),
                                "edit", m_flowFile, m_file});
        tracer.closeWriteChannel();
        tracer.waitForFinished();
        const QString trace = shell("cat $0.trace; true");
        if (!trace.contains("execve(")) {
            QSKIP("strace is missing or can't trace this program here.");
        }
        QSet<QString> unsynced;
        int acknowledged = 0;
        for (const QString& line : trace.split('\n')) {
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

// An exception ends the program.
int main(int argc, char** argv) // NOLINT(bugprone-exception-escape)
{
    const QCoreApplication application(argc, argv);
    if (argc == 4 && qstrcmp(argv[1], "edit") == 0) {
        return edit(argv[2], argv[3]);
    }
    tst_embedded_core test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_embedded_core.moc"
