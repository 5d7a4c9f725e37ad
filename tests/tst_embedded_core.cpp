#include "EmbeddedCore/EmbeddedCore.h"
#include "FlowFile.h"

#include <QProcess>
#include <QScopeGuard>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <QTemporaryDir>
#include <QtTest>

#include <sys/resource.h>
#include <unistd.h>

#include <csignal>

using namespace ZelCore;

namespace {

using Step = std::function<CommandResult(EmbeddedCore&)>;

Flow flowWithBlob(const QByteArray& id = "5")
{
    return flowOf(R"({"name": "f", "modules": [
        {"id": )" +
                  id + R"(, "name": "Blob", "kind": "Blob", "outputs": [{"name": "Count", "type": "int"},
            {"name": "Mean", "outputs": [{"name": "Radius", "type": "float"}]}]},
        {"id": 7, "name": "Check", "kind": "If", "outputs": [{"name": "Own", "type": "int"}]},
        {"id": 8, "name": "Late", "kind": "Blob", "outputs": [{"name": "Count", "type": "int"}]}]})")
        .value();
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
    void oneOwner();
    void diskFull();

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
    const QByteArray before = bytesIn(m_file);
    refused("unknown command Ask", step<AskCommand>());
    refused("no module 6", step<SetRunParamCommand>(6u, "LogicalMode", "2"));
    refused("name is empty", step<SetRunParamCommand>(7u, "", "2"));
    refused("at most 126", step<SetRunParamCommand>(7u, QByteArray(127, 'n'), "2"));
    refused("at most 254", step<SetBinaryDataCommand>(7u, QByteArray(255, 'n'), "2", 1u));
    refused("at most 510", step<SetRunParamCommand>(7u, "LogicalMode", QByteArray(511, '2')));
    refused("or too much", [](EmbeddedCore& core) {
        SetBinaryDataCommand command(7, "IFText", "2", 1);
        command.DataLen = 0xffffffff;
        return core.Execute(command);
    });
    refused("no parameter N", query<BINARY_DATA_CONDITION__, BINARY_DATA__>({7, "N"}));
    refused("no parameter N", query<RUN_PARAM_CONDITION__, KADO_MODULE_PARAM__>({7, "N"}));
    refused("no parameter N", query<UI_OBJECT_PARAM_INFO_CONDITION__, UI_OBJECT_PARAM_INFO__>({7, "N"}));
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
    QCOMPARE(bytesIn(m_file), before);
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
        {"rm store.db && mkdir store.db", "is not a file"},
        {"rm -r $PWD", "folder .*No such file"},
        {"chmod 0444 store.db", "readonly"},
        {"chmod 0555 .", "folder .*Permission denied"},
    };
    for (const auto& [fault, message] : faults) {
        init();
        m_core.reset();
        QProcess shell;
        shell.setWorkingDirectory(QFileInfo(m_file).path());
        shell.start("sh", {"-c", "rm store.db.lock && chmod a+rwx .. . store.db && " + fault});
        QVERIFY(shell.waitForFinished() && shell.exitCode() == 0);
        const QByteArray before = bytesIn(m_file);
        // The superuser may write everywhere; another user may not.
        const auto restore = qScopeGuard([this] {
            QCOMPARE(seteuid(getuid()), 0);
            QFile::setPermissions(QFileInfo(m_file).path(), QFile::Permissions(0x7700));
        });
        QCOMPARE(seteuid(getuid() == 0 ? 65534 : getuid()), 0);
        const QString error = open();
        QVERIFY2(error.contains(m_file) && error.contains(QRegularExpression(message)),
                 qPrintable(fault + ": " + error));
        QCOMPARE(bytesIn(m_file), before);
    }
}

void tst_embedded_core::oneOwner()
{
    QString error;
    QVERIFY(!EmbeddedCore::open(flowWithBlob(), m_file, &error));
    QVERIFY2(error.contains("in use"), qPrintable(error));

    const Step command = step<SetRunParamCommand>(7u, "LogicalMode", "2");
    {
        auto other = QSqlDatabase::addDatabase("QSQLITE", "other");
        other.setDatabaseName(m_file);
        QVERIFY(other.open());
        const QSqlQuery lock("BEGIN EXCLUSIVE", other);
        refused("locked", command);
        error = open();
    }
    QSqlDatabase::removeDatabase("other");
    QVERIFY2(error.contains("locked"), qPrintable(error));

    // A killed process leaves its lock file.
    QVERIFY(QFile::exists(m_file + ".lock"));
    QCOMPARE(open(), QString());
    QCOMPARE(status(command), Success);
}

void tst_embedded_core::diskFull()
{
    const QByteArray data(1 << 20, 'x');
    const Step command = step<SetBinaryDataCommand>(7u, "IFText", data, static_cast<UInt>(data.size()));
    rlimit limit = {};
    QCOMPARE(getrlimit(RLIMIT_FSIZE, &limit), 0);
    const rlimit small = {1 << 18, limit.rlim_max};
    {
        const auto restore = qScopeGuard([&limit, handler = std::signal(SIGXFSZ, SIG_IGN)] {
            QCOMPARE(setrlimit(RLIMIT_FSIZE, &limit), 0);
            std::signal(SIGXFSZ, handler);
        });
        QCOMPARE(setrlimit(RLIMIT_FSIZE, &small), 0);
        refused("store.db failed: ", command);
    }
    QCOMPARE(ifText(), QByteArray("0\0", 2));
    QCOMPARE(status(command), Success);
}

QTEST_GUILESS_MAIN(tst_embedded_core)
#include "tst_embedded_core.moc"
