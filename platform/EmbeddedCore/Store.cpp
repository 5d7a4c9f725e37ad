#include "Store.h"

#include "CoreError.h"
#include "StoredWords.h"

#include <QFileInfo>
#include <QSqlError>
#include <QSqlQuery>
#include <QUuid>

#include <sys/file.h>

#include <utility>

using namespace ZelCore;

namespace {

constexpr int schemaVersion = 1;
// Marks the file as ours; "QIfM" in ASCII.
constexpr int applicationId = 0x5149664d;

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

IOClass classOf(const QString& word)
{
    return word == StoredWords::of(Input) ? Input : Output;
}

QVariantList keyOf(const FilterSourceTarget& target)
{
    return {target.ModuleID, StoredWords::of(target.Type), target.Key};
}

} // namespace

Store::Store(const QString& file)
    : m_file(file)
    , m_lock(file + QStringLiteral(".lock"))
    , m_connectionName(QStringLiteral("store-") + QUuid::createUuid().toString(QUuid::WithoutBraces))
{}

// Delegates, so that the destructor closes the file when the rest fails.
Store::Store(const QString& file, const Flow& flow)
    : Store(file)
{
    open();
    run(QStringLiteral("BEGIN IMMEDIATE"));
    checkContent();
    registerModules(flow);
    run(QStringLiteral("COMMIT"));
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
    if (info.exists() && !info.isFile()) {
        throw CoreError(tr("the store %1 is not a file").arg(m_file));
    }
    // The panel writes its whole list at each edit: two programs on one store would undo each other.
    // The system frees this lock with the process; the file stays, it means nothing by itself.
    if (!m_lock.open(QIODevice::ReadWrite)) {
        throw CoreError(tr("the folder of the store %1, or its lock file there, can't be written: %2")
                            .arg(m_file, m_lock.errorString()));
    }
    if (::flock(m_lock.handle(), LOCK_EX | LOCK_NB) != 0) {
        throw CoreError(tr("the store %1 is in use by another program").arg(m_file));
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
    if (pragma(QStringLiteral("schema_version")).toInt() == 0) {
        createTables();
        return;
    }
    if (pragma(QStringLiteral("application_id")).toInt() != applicationId) {
        throw CoreError(tr("%1 is a database, but no store of an inspection flow").arg(m_file));
    }
    const int version = pragma(QStringLiteral("user_version")).toInt();
    if (version > schemaVersion) {
        throw CoreError(tr("the store %1 has version %2; this program reads up to %3")
                            .arg(m_file, QString::number(version), QString::number(schemaVersion)));
    }
    const QString health = pragma(QStringLiteral("quick_check(1)")).toString();
    if (health != QLatin1String("ok")) {
        throw CoreError(tr("the store %1 is damaged: %2").arg(m_file, health.simplified()));
    }
}

void Store::createTables()
{
    const QString module = QStringLiteral("module_id INTEGER NOT NULL REFERENCES module(id)");
    run(QStringLiteral(
        "CREATE TABLE module (id INTEGER PRIMARY KEY, name TEXT NOT NULL, kind TEXT NOT NULL)"));
    for (const auto& [values, type] :
         {std::pair(Values::BinaryData, "BLOB"), {Values::RunParameter, "TEXT"}, {Values::UiData, "BLOB"}}) {
        run(QStringLiteral("CREATE TABLE %1 (%2, name TEXT NOT NULL, value %3 NOT NULL, "
                           "PRIMARY KEY (module_id, name)) WITHOUT ROWID")
                .arg(tableOf(values), module, QLatin1String(type)));
    }
    QString flags;
    for (const auto& [column, flag] : StoredWords::ioFlags) {
        flags += QLatin1String(column) + QStringLiteral(" INTEGER NOT NULL, ");
    }
    run(QStringLiteral("CREATE TABLE module_io (%1, name TEXT NOT NULL, "
                       "io_class TEXT NOT NULL CHECK (io_class IN ('input', 'output')), "
                       "value_type TEXT NOT NULL, %2PRIMARY KEY (module_id, name)) WITHOUT ROWID")
            .arg(module, flags));
    run(QStringLiteral("CREATE TABLE binding (%1, "
                       "target_kind TEXT NOT NULL CHECK (target_kind IN ('io', 'run_parameter')), "
                       "target_key TEXT NOT NULL, source TEXT NOT NULL, "
                       "PRIMARY KEY (module_id, target_kind, target_key)) WITHOUT ROWID")
            .arg(module));
    run(QStringLiteral("PRAGMA application_id = %1").arg(applicationId));
    run(QStringLiteral("PRAGMA user_version = %1").arg(schemaVersion));
}

void Store::registerModules(const Flow& flow)
{
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

QMap<QString, QByteArray> Store::allValues(Values values, UInt moduleId) const
{
    QMap<QString, QByteArray> found;
    QSqlQuery query = run(
        QStringLiteral("SELECT name, value FROM %1 WHERE module_id = ?").arg(tableOf(values)), {moduleId});
    while (query.next()) {
        found[query.value(0).toString()] = query.value(1).toByteArray();
    }
    return found;
}

void Store::addIo(UInt moduleId, const QString& name, const Io& io, const IO_EXTRA_DATA__& flags)
{
    QString columns = QStringLiteral("module_id, name, io_class, value_type");
    QString marks = QStringLiteral("?, ?, ?, ?");
    QVariantList values = {moduleId, name, StoredWords::of(io.ioClass), io.valueType};
    for (const auto& [column, flag] : StoredWords::ioFlags) {
        columns += QStringLiteral(", ") + QLatin1String(column);
        marks += QStringLiteral(", ?");
        values << int(flags.*flag);
    }
    run(QStringLiteral("INSERT INTO module_io (%1) VALUES (%2)").arg(columns, marks), values);
}

std::optional<Store::Io> Store::io(UInt moduleId, const QString& name) const
{
    QSqlQuery query =
        run(QStringLiteral("SELECT io_class, value_type FROM module_io WHERE module_id = ? AND name = ?"),
            {moduleId, name});
    if (!query.next()) {
        return std::nullopt;
    }
    return Io{classOf(query.value(0).toString()), query.value(1).toString()};
}

QVector<ModuleIo> Store::allIos(UInt moduleId) const
{
    QString columns = QStringLiteral("name, io_class, value_type");
    for (const auto& [column, flag] : StoredWords::ioFlags) {
        columns += QStringLiteral(", ") + QLatin1String(column);
    }
    QVector<ModuleIo> found;
    QSqlQuery query =
        run(QStringLiteral("SELECT %1 FROM module_io WHERE module_id = ? ORDER BY name").arg(columns),
            {moduleId});
    while (query.next()) {
        ModuleIo io = {
            query.value(0).toString(), classOf(query.value(1).toString()), query.value(2).toString(), {}};
        int column = 3;
        for (const auto& [name, flag] : StoredWords::ioFlags) {
            io.flags.*flag = query.value(column++).toBool();
        }
        found << io;
    }
    return found;
}

void Store::setBinding(const FilterSourceTarget& target, const QString& source)
{
    run(QStringLiteral(
            "INSERT INTO binding (module_id, target_kind, target_key, source) VALUES (?, ?, ?, ?) "
            "ON CONFLICT (module_id, target_kind, target_key) DO UPDATE SET source = excluded.source"),
        keyOf(target) << source);
}

std::optional<QString> Store::binding(const FilterSourceTarget& target) const
{
    QSqlQuery query =
        run(QStringLiteral(
                "SELECT source FROM binding WHERE module_id = ? AND target_kind = ? AND target_key = ?"),
            keyOf(target));
    return query.next() ? std::optional(query.value(0).toString()) : std::nullopt;
}

bool Store::removeBinding(const FilterSourceTarget& target)
{
    return run(QStringLiteral(
                   "DELETE FROM binding WHERE module_id = ? AND target_kind = ? AND target_key = ?"),
               keyOf(target))
               .numRowsAffected() > 0;
}

QVector<ModuleBinding> Store::allBindings(UInt moduleId) const
{
    QVector<ModuleBinding> found;
    QSqlQuery query = run(QStringLiteral("SELECT target_kind, target_key, source FROM binding "
                                         "WHERE module_id = ? ORDER BY target_kind, target_key"),
                          {moduleId});
    while (query.next()) {
        const auto type = query.value(0).toString() == StoredWords::of(SUBSCRIBE_TYPE_IO)
                              ? SUBSCRIBE_TYPE_IO
                              : SUBSCRIBE_TYPE_RUNPARAM;
        ModuleBinding binding;
        binding.target = {moduleId, type, query.value(1).toString()};
        binding.source = query.value(2).toString();
        found << binding;
    }
    return found;
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
