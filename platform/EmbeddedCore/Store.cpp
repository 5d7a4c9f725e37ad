#include "Store.h"

#include "CoreError.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QSqlError>
#include <QSqlQuery>
#include <QUuid>

using namespace ZelCore;

namespace {

constexpr int schemaVersion = 1;
// Marks the file as ours; "QIfM" in ASCII.
constexpr int applicationId = 0x5149664d;

QString tr(const char* text)
{
    return QCoreApplication::translate("Store", text);
}

QString tableOf(Store::Values values)
{
    switch (values) {
    case Store::Values::BinaryData:
        return QStringLiteral("binary_parameter");
    case Store::Values::RunParameter:
        return QStringLiteral("run_parameter");
    case Store::Values::UiData:
        break;
    }
    return QStringLiteral("ui_data");
}

QString wordOf(IOClass ioClass)
{
    return ioClass == Input ? QStringLiteral("input") : QStringLiteral("output");
}

QString wordOf(ENUM_IO_SUBSCRIBE_TYPE_ type)
{
    return type == SUBSCRIBE_TYPE_IO ? QStringLiteral("io") : QStringLiteral("run_parameter");
}

} // namespace

Store::Store(const QString& file, const Flow& flow)
    : m_file(file)
    , m_lock(file + QStringLiteral(".lock"))
    , m_connectionName(QStringLiteral("store-") + QUuid::createUuid().toString(QUuid::WithoutBraces))
{
    try {
        open();
        checkContent();
        registerModules(flow);
    } catch (...) {
        m_database.close();
        m_database = QSqlDatabase();
        QSqlDatabase::removeDatabase(m_connectionName);
        throw;
    }
}

Store::~Store()
{
    m_database.close();
    m_database = QSqlDatabase();
    QSqlDatabase::removeDatabase(m_connectionName);
}

void Store::open()
{
    const QFileInfo info(m_file);
    if (!info.dir().exists()) {
        throw CoreError(tr("the folder of the store %1 does not exist").arg(m_file));
    }
    if (info.exists() && !info.isFile()) {
        throw CoreError(tr("the store %1 is not a file").arg(m_file));
    }
    // The panel writes its whole list at each edit: two programs on one store would undo each other.
    m_lock.setStaleLockTime(0);
    if (!m_lock.tryLock(0)) {
        qint64 processId = 0;
        QString host;
        QString program;
        if (m_lock.getLockInfo(&processId, &host, &program)) {
            throw CoreError(
                tr("the store %1 is in use by %2 (process %3)").arg(m_file, program).arg(processId));
        }
        throw CoreError(tr("the store %1 can't be locked: its folder is not writable").arg(m_file));
    }

    m_database = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), m_connectionName);
    m_database.setDatabaseName(m_file);
    m_database.setConnectOptions(QStringLiteral("QSQLITE_BUSY_TIMEOUT=1000"));
    if (!m_database.open()) {
        throw CoreError(
            tr("the store %1 can't be opened: %2").arg(m_file, m_database.lastError().databaseText()));
    }
    run(QStringLiteral("PRAGMA synchronous = FULL"));
    run(QStringLiteral("PRAGMA foreign_keys = ON"));
}

void Store::checkContent()
{
    const int version = pragma(QStringLiteral("user_version")).toInt();
    const int owner = pragma(QStringLiteral("application_id")).toInt();
    const bool isNew = version == 0 && owner == 0 && pragma(QStringLiteral("schema_version")).toInt() == 0;
    if (!isNew && owner != applicationId) {
        throw CoreError(tr("%1 is a database, but no store of an inspection flow").arg(m_file));
    }
    if (version > schemaVersion) {
        throw CoreError(tr("the store %1 has version %2; this program reads up to %3")
                            .arg(m_file)
                            .arg(version)
                            .arg(schemaVersion));
    }
    const QString health = pragma(QStringLiteral("quick_check(1)")).toString();
    if (health != QLatin1String("ok")) {
        throw CoreError(tr("the store %1 is damaged: %2").arg(m_file, health));
    }
    if (isNew) {
        createTables();
    }
}

void Store::createTables()
{
    const QString module = QStringLiteral("module_id INTEGER NOT NULL REFERENCES module(id)");
    run(QStringLiteral("BEGIN IMMEDIATE"));
    run(QStringLiteral(
        "CREATE TABLE module (id INTEGER PRIMARY KEY, name TEXT NOT NULL, kind TEXT NOT NULL)"));
    for (const auto& [table, type] :
         {std::pair("binary_parameter", "BLOB"), {"run_parameter", "TEXT"}, {"ui_data", "BLOB"}}) {
        run(QStringLiteral("CREATE TABLE %1 (%2, name TEXT NOT NULL, value %3 NOT NULL, "
                           "PRIMARY KEY (module_id, name)) WITHOUT ROWID")
                .arg(QLatin1String(table), module, QLatin1String(type)));
    }
    run(QStringLiteral(
            "CREATE TABLE module_io (%1, name TEXT NOT NULL, "
            "io_class TEXT NOT NULL CHECK (io_class IN ('input', 'output')), value_type TEXT NOT NULL, "
            "can_subscribe INTEGER NOT NULL, is_prefer INTEGER NOT NULL, visible INTEGER NOT NULL, "
            "visible_in_result_tree INTEGER NOT NULL, is_private INTEGER NOT NULL, "
            "custom_visible INTEGER NOT NULL, is_force INTEGER NOT NULL, "
            "is_return_relate_value INTEGER NOT NULL, allow_auto_subscribe INTEGER NOT NULL, "
            "allow_auto_subscribe_by_other INTEGER NOT NULL, is_result_show INTEGER NOT NULL, "
            "PRIMARY KEY (module_id, name)) WITHOUT ROWID")
            .arg(module));
    run(QStringLiteral("CREATE TABLE binding (%1, target_kind TEXT NOT NULL CHECK (target_kind IN ('io', "
                       "'run_parameter')), "
                       "target_key TEXT NOT NULL, source TEXT NOT NULL, "
                       "PRIMARY KEY (module_id, target_kind, target_key)) WITHOUT ROWID")
            .arg(module));
    run(QStringLiteral("PRAGMA application_id = %1").arg(applicationId));
    run(QStringLiteral("PRAGMA user_version = %1").arg(schemaVersion));
    run(QStringLiteral("COMMIT"));
}

void Store::registerModules(const Flow& flow)
{
    run(QStringLiteral("BEGIN IMMEDIATE"));
    for (const FlowModule& module : flow.modules()) {
        run(QStringLiteral("INSERT INTO module (id, name, kind) VALUES (?, ?, ?) "
                           "ON CONFLICT (id) DO UPDATE SET name = excluded.name, kind = excluded.kind"),
            {module.id, module.name, module.kind});
        if (module.kind == Flow::ifKind()) {
            run(QStringLiteral("INSERT OR IGNORE INTO binary_parameter VALUES (?, 'IFText', ?)"),
                {module.id, QByteArray("0")});
            run(QStringLiteral("INSERT OR IGNORE INTO run_parameter VALUES (?, 'LogicalMode', '1')"),
                {module.id});
        }
    }
    run(QStringLiteral("COMMIT"));
}

void Store::setValue(Values values, UInt moduleId, const QString& name, const QVariant& value)
{
    run(QStringLiteral("INSERT INTO %1 (module_id, name, value) VALUES (?, ?, ?) "
                       "ON CONFLICT (module_id, name) DO UPDATE SET value = excluded.value")
            .arg(tableOf(values)),
        {moduleId, name, value});
}

std::optional<QByteArray> Store::value(Values values, UInt moduleId, const QString& name) const
{
    QSqlQuery query =
        run(QStringLiteral("SELECT value FROM %1 WHERE module_id = ? AND name = ?").arg(tableOf(values)),
            {moduleId, name});
    return query.next() ? std::optional(query.value(0).toByteArray()) : std::nullopt;
}

bool Store::removeValue(Values values, UInt moduleId, const QString& name)
{
    return run(QStringLiteral("DELETE FROM %1 WHERE module_id = ? AND name = ?").arg(tableOf(values)),
               {moduleId, name})
               .numRowsAffected() > 0;
}

void Store::addIo(UInt moduleId, const QString& name, const Io& io, const IO_EXTRA_DATA__& flags)
{
    run(QStringLiteral("INSERT INTO module_io VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)"),
        {moduleId, name, wordOf(io.ioClass), io.valueType, int(flags.CanSubscribe), int(flags.IsPrefer),
         int(flags.Visible), int(flags.VisibleInResultTree), int(flags.IsPrivate), int(flags.CustomVisible),
         int(flags.IsForce), int(flags.IsReturnRelateValue), int(flags.AllowAutoSubscribe),
         int(flags.AllowAutoSubscribeByOther), int(flags.IsResultShow)});
}

std::optional<Store::Io> Store::io(UInt moduleId, const QString& name) const
{
    QSqlQuery query =
        run(QStringLiteral("SELECT io_class, value_type FROM module_io WHERE module_id = ? AND name = ?"),
            {moduleId, name});
    if (!query.next()) {
        return std::nullopt;
    }
    return Io{query.value(0).toString() == wordOf(Input) ? Input : Output, query.value(1).toString()};
}

void Store::setBinding(UInt moduleId, ENUM_IO_SUBSCRIBE_TYPE_ type, const QString& key, const QString& source)
{
    run(QStringLiteral(
            "INSERT INTO binding (module_id, target_kind, target_key, source) VALUES (?, ?, ?, ?) "
            "ON CONFLICT (module_id, target_kind, target_key) DO UPDATE SET source = excluded.source"),
        {moduleId, wordOf(type), key, source});
}

std::optional<QString> Store::binding(UInt moduleId, ENUM_IO_SUBSCRIBE_TYPE_ type, const QString& key) const
{
    QSqlQuery query =
        run(QStringLiteral(
                "SELECT source FROM binding WHERE module_id = ? AND target_kind = ? AND target_key = ?"),
            {moduleId, wordOf(type), key});
    return query.next() ? std::optional(query.value(0).toString()) : std::nullopt;
}

bool Store::removeBinding(UInt moduleId, ENUM_IO_SUBSCRIBE_TYPE_ type, const QString& key)
{
    return run(QStringLiteral(
                   "DELETE FROM binding WHERE module_id = ? AND target_kind = ? AND target_key = ?"),
               {moduleId, wordOf(type), key})
               .numRowsAffected() > 0;
}

QSqlQuery Store::run(const QString& statement, const QVariantList& values) const
{
    QSqlQuery query(m_database);
    bool done = query.prepare(statement);
    for (const QVariant& value : values) {
        query.addBindValue(value);
    }
    done = done && query.exec();
    if (!done) {
        throw CoreError(tr("the store %1 failed: %2").arg(m_file, query.lastError().databaseText()));
    }
    return query;
}

QVariant Store::pragma(const QString& name) const
{
    QSqlQuery query = run(QStringLiteral("PRAGMA ") + name);
    return query.next() ? query.value(0) : QVariant();
}
