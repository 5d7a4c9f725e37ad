#include "Store.h"

#include "IfModule.h"
#include "StoredWords.h"
#include "TextError.h"

#include <QScopeGuard>
#include <QSqlError>
#include <QSqlQuery>
#include <QUuid>

#include <utility>

using namespace ZelCore;

namespace {

constexpr int schemaVersion = 1;
// Marks the file as ours; "QIfM" in ASCII.
constexpr int applicationId = 0x5149664d;
// How long to wait for another program's lock, and how long not to wait again, in milliseconds.
constexpr int patience = 500;
constexpr int impatience = 1000;
constexpr auto errorOfLock = "5"; // SQLITE_BUSY

const char* tableOf(Store::Values values)
{
    constexpr const char* tables[] = {"binary_parameter", "run_parameter", "ui_data"};
    return tables[static_cast<int>(values)];
}

// Name, value and length; no value when it is too long.
QString selectValues(Store::Values values)
{
    return QString("SELECT name, CASE WHEN length(value) <= %1 THEN value END, length(value) FROM %2 "
                   "WHERE module_id = ?")
        .arg(QString::number(Store::longestValue), tableOf(values));
}

void checkLength(UInt moduleId, const QString& name, int length)
{
    require(length <= Store::longestValue,
            Store::tr("%1 of module %2 is too large: it has %3 bytes of at most %4")
                .arg(name)
                .arg(moduleId)
                .arg(length)
                .arg(Store::longestValue));
}

// The value that selectValues() found.
QByteArray valueOf(const QSqlQuery& query, UInt moduleId)
{
    checkLength(moduleId, query.value(0).toString(), query.value(2).toInt());
    return query.value(1).toByteArray();
}

// The IO of a whole row of its table.
ModuleIo ioOf(const QSqlQuery& query)
{
    const IOClass ioClass = query.value(2).toString() == StoredWords::of(Input) ? Input : Output;
    ModuleIo io = {query.value(1).toString(), ioClass, query.value(3).toString(), {}};
    int column = 4;
    for (const auto& [name, flag] : StoredWords::ioFlags) {
        io.flags.*flag = query.value(column++).toBool();
    }
    return io;
}

QVariantList keyOf(const FilterSourceTarget& target)
{
    return {target.ModuleID, StoredWords::of(target.Type), target.Key};
}

// The tables, as SQLite keeps their definitions.
QStringList definitions()
{
    const QString start = "CREATE TABLE %1 (module_id INTEGER NOT NULL REFERENCES module(id), ";
    const QString values =
        start + "name TEXT NOT NULL, value %2 NOT NULL, PRIMARY KEY (module_id, name)) WITHOUT ROWID";
    QString flags;
    for (const auto& [column, flag] : StoredWords::ioFlags) {
        flags += QString(column) + " INTEGER NOT NULL, ";
    }
    return {"CREATE TABLE module (id INTEGER PRIMARY KEY, name TEXT NOT NULL, kind TEXT NOT NULL)",
            values.arg(tableOf(Store::Values::BinaryData), "BLOB"),
            values.arg(tableOf(Store::Values::RunParameter), "TEXT"),
            values.arg(tableOf(Store::Values::UiData), "BLOB"),
            start.arg("module_io") +
                "name TEXT NOT NULL, io_class TEXT NOT NULL CHECK (io_class IN ('input', 'output')), "
                "value_type TEXT NOT NULL, " +
                flags + "PRIMARY KEY (module_id, name)) WITHOUT ROWID",
            start.arg("binding") +
                "target_kind TEXT NOT NULL CHECK (target_kind IN ('io', 'run_parameter')), target_key TEXT "
                "NOT NULL, "
                "source TEXT NOT NULL, PRIMARY KEY (module_id, target_kind, target_key)) WITHOUT ROWID"};
}

} // namespace

Store::Store(const QString& file, StoreFile::Use use)
    : m_file(file, use)
    , m_database(QSqlDatabase::addDatabase("QSQLITE", QUuid::createUuid().toString()))
{}

// Both delegate, so that the destructor closes the file when the rest fails.
Store::Store(const QString& file)
    : Store(file, StoreFile::Read)
{
    open();
    checkContent();
}

Store::Store(const QString& file, const Flow& flow)
    : Store(file, StoreFile::Edit)
{
    open();
    const bool isNew = pragma("schema_version").toInt() == 0;
    if (!isNew) {
        checkContent();
    }
    // With a write-ahead log one sync makes a change durable. EXTRA means the same as FULL to a log; while
    // there is none, as on some network file systems, it syncs the folder once the journal has gone.
    run("PRAGMA synchronous = EXTRA");
    run("PRAGMA journal_mode = WAL");
    run("PRAGMA foreign_keys = ON");
    run("BEGIN IMMEDIATE");
    if (isNew) {
        for (const QString& definition : definitions()) {
            run(definition);
        }
        run(QString("PRAGMA application_id = %1").arg(applicationId));
        run(QString("PRAGMA user_version = %1").arg(schemaVersion));
    }
    registerModules(flow);
    run("COMMIT");
    m_file.noteLog();
}

Store::~Store()
{
    if (m_file.use() == StoreFile::Edit && m_database.isOpen() && m_file.isInPlace()) {
        // So that programs can read the file where they can't write. A reader may prevent it.
        setPatience(0);
        QSqlQuery("PRAGMA journal_mode = DELETE", m_database);
    }
    const QString connection = m_database.connectionName();
    m_database = QSqlDatabase();
    QSqlDatabase::removeDatabase(connection);
}

void Store::open()
{
    m_database.setDatabaseName(m_file.url());
    m_database.setConnectOptions("QSQLITE_OPEN_URI");
    const bool isOpen = m_database.open();
    require(isOpen,
            tr("the store %1 can't be opened: %2").arg(file(), m_database.lastError().databaseText()));
    setPatience(patience);
}

void Store::checkContent() const
{
    require(pragma("application_id").toInt() == applicationId,
            tr("%1 is a database, but no store of an inspection flow").arg(file()));
    const int version = pragma("user_version").toInt();
    require(version <= schemaVersion,
            tr("the store %1 has version %2; this program reads up to %3")
                .arg(file(), QString::number(version), QString::number(schemaVersion)));
    const QString health = pragma("quick_check(1)").toString();
    require(health == "ok", tr("the store %1 is damaged: %2").arg(file(), health.simplified()));

    QStringList expected = definitions();
    QSqlQuery found = run("SELECT sql FROM sqlite_master WHERE name NOT LIKE 'sqlite!_%' ESCAPE '!'");
    while (found.next()) {
        const QString definition = found.value(0).toString();
        require(expected.removeOne(definition),
                tr("the store %1 has another table, index, view or trigger than this program makes: %2")
                    .arg(file(), definition.simplified().left(100)));
    }
    require(expected.isEmpty(),
            tr("the store %1 lacks a table: %2").arg(file(), expected.value(0).left(100)));
}

void Store::registerModules(const Flow& flow)
{
    for (const FlowModule& module : flow.modules()) {
        run("INSERT INTO module (id, name, kind) VALUES (?, ?, ?) "
            "ON CONFLICT (id) DO UPDATE SET name = excluded.name, kind = excluded.kind",
            {module.id, module.name, module.kind});
        const ModuleConfiguration first = IfModule::first(module);
        for (const QString& name : first.binaryData.keys()) {
            run("INSERT OR IGNORE INTO binary_parameter VALUES (?, ?, ?)",
                {module.id, name, first.binaryData[name]});
        }
        for (const QString& name : first.runParameters.keys()) {
            run("INSERT OR IGNORE INTO run_parameter VALUES (?, ?, ?)",
                {module.id, name, QString::fromUtf8(first.runParameters[name])});
        }
    }
}

void Store::setValue(Values values, UInt moduleId, const QString& name, const QVariant& value)
{
    checkLength(moduleId, name, value.toByteArray().size());
    change(QString("INSERT INTO %1 (module_id, name, value) VALUES (?, ?, ?) "
                   "ON CONFLICT (module_id, name) DO UPDATE SET value = excluded.value")
               .arg(tableOf(values)),
           {moduleId, name, value}, 1);
}

std::optional<QByteArray> Store::value(Values values, UInt moduleId, const QString& name) const
{
    QSqlQuery query = run(selectValues(values) + " AND name = ?", {moduleId, name});
    return query.next() ? std::optional(valueOf(query, moduleId)) : std::nullopt;
}

bool Store::removeValue(Values values, UInt moduleId, const QString& name)
{
    return change(QString("DELETE FROM %1 WHERE module_id = ? AND name = ?").arg(tableOf(values)),
                  {moduleId, name}, 0);
}

void Store::addIo(UInt moduleId, const ModuleIo& io)
{
    QVariantList values = {moduleId, io.name, StoredWords::of(io.ioClass), io.valueType};
    for (const auto& [column, flag] : StoredWords::ioFlags) {
        values << int(io.flags.*flag);
    }
    change("INSERT INTO module_io VALUES (?" + QString(", ?").repeated(values.size() - 1) + ')', values, 1);
}

std::optional<ModuleIo> Store::io(UInt moduleId, const QString& name) const
{
    QSqlQuery query = run("SELECT * FROM module_io WHERE module_id = ? AND name = ?", {moduleId, name});
    return query.next() ? std::optional(ioOf(query)) : std::nullopt;
}

void Store::setBinding(const FilterSourceTarget& target, const QString& source)
{
    change("INSERT INTO binding (module_id, target_kind, target_key, source) VALUES (?, ?, ?, ?) "
           "ON CONFLICT (module_id, target_kind, target_key) DO UPDATE SET source = excluded.source",
           keyOf(target) << source, 1);
}

std::optional<QString> Store::binding(const FilterSourceTarget& target) const
{
    QSqlQuery query =
        run("SELECT source FROM binding WHERE module_id = ? AND target_kind = ? AND target_key = ?",
            keyOf(target));
    return query.next() ? std::optional(query.value(0).toString()) : std::nullopt;
}

bool Store::removeBinding(const FilterSourceTarget& target)
{
    return change("DELETE FROM binding WHERE module_id = ? AND target_kind = ? AND target_key = ?",
                  keyOf(target), 0);
}

ModuleConfiguration Store::configuration(const FlowModule& module) const
{
    const UInt moduleId = module.id;
    ModuleConfiguration found = IfModule::first(module);
    run("BEGIN");
    const auto end = qScopeGuard([this] { QSqlQuery("COMMIT", m_database); });
    const auto forEachRow = [this, moduleId](const QString& statement, const auto& take) {
        QSqlQuery query = run(statement, {moduleId});
        for (int count = 0; query.next(); ++count) {
            if (count == mostRows) {
                throw TextError(tr("module %1 is too large: it has more than %2 entries of a kind")
                                    .arg(moduleId)
                                    .arg(mostRows));
            }
            take(query);
        }
    };
    for (const auto& [values, map] : {std::pair(Values::BinaryData, &found.binaryData),
                                      {Values::RunParameter, &found.runParameters},
                                      {Values::UiData, &found.uiData}}) {
        forEachRow(selectValues(values), [moduleId, map = map](const QSqlQuery& query) {
            map->insert(query.value(0).toString(), valueOf(query, moduleId));
        });
    }
    forEachRow("SELECT * FROM module_io WHERE module_id = ? ORDER BY name",
               [&found](const QSqlQuery& query) { found.ios << ioOf(query); });
    forEachRow("SELECT target_kind = 'io', target_key, source FROM binding WHERE module_id = ? "
               "ORDER BY target_kind, target_key",
               [&found, moduleId](const QSqlQuery& query) {
                   ModuleBinding binding;
                   const auto type = query.value(0).toBool() ? SUBSCRIBE_TYPE_IO : SUBSCRIBE_TYPE_RUNPARAM;
                   binding.target = {moduleId, type, query.value(1).toString()};
                   binding.source = query.value(2).toString();
                   found.bindings << binding;
               });
    return found;
}

bool Store::change(const QString& statement, const QVariantList& values, int fewest)
{
    const auto checkInPlace = [this] {
        require(m_file.isInPlace(),
                tr("the store %1 was moved, deleted or replaced: put it back, or open the flow again")
                    .arg(file()));
    };
    checkInPlace();
    run("BEGIN IMMEDIATE");
    auto rollback = qScopeGuard([this] { QSqlQuery("ROLLBACK", m_database); });
    const int rows = run(statement, values).numRowsAffected();
    require(rows >= fewest && rows <= 1, tr("the store %1 did not take the change").arg(file()));
    run("COMMIT");
    rollback.dismiss();
    checkInPlace(); // a file that has gone meanwhile took the change with it
    return rows == 1;
}

QSqlQuery Store::run(const QString& statement, const QVariantList& values) const
{
    if (m_refused.isValid() && m_refused.hasExpired(impatience)) {
        m_refused.invalidate();
        setPatience(patience);
    }
    QSqlQuery query(m_database);
    query.setForwardOnly(true);
    bool done = query.prepare(statement);
    for (const QVariant& value : values) {
        query.addBindValue(value);
    }
    done = done && query.exec();
    if (!done) {
        if (query.lastError().nativeErrorCode() == errorOfLock) {
            m_refused.start();
            setPatience(0);
            throw TextError(tr("the store %1 is locked by another program").arg(file()));
        }
        throw TextError(tr("the store %1 failed: %2").arg(file(), query.lastError().databaseText()));
    }
    return query;
}

QVariant Store::pragma(const QString& name) const
{
    QSqlQuery query = run("PRAGMA " + name);
    return query.next() ? query.value(0) : QVariant();
}

void Store::setPatience(int milliseconds) const
{
    QSqlQuery(QString("PRAGMA busy_timeout = %1").arg(milliseconds), m_database);
}
