#include "Store.h"

#include "CoreError.h"
#include "IfModule.h"
#include "StoredWords.h"

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

// Name, value and length; no value when it is too long.
QString selectValues(Store::Values values)
{
    return QStringLiteral("SELECT name, CASE WHEN length(value) <= %1 THEN value END, length(value) "
                          "FROM %2 WHERE module_id = ?")
        .arg(QString::number(Store::longestValue), tableOf(values));
}

QString ioColumns()
{
    QString columns = QStringLiteral("name, io_class, value_type");
    for (const auto& [column, flag] : StoredWords::ioFlags) {
        columns += QStringLiteral(", ") + QLatin1String(column);
    }
    return columns;
}

ModuleIo ioOf(const QSqlQuery& query)
{
    ModuleIo io = {
        query.value(0).toString(), classOf(query.value(1).toString()), query.value(2).toString(), {}};
    int column = 3;
    for (const auto& [name, flag] : StoredWords::ioFlags) {
        io.flags.*flag = query.value(column++).toBool();
    }
    return io;
}

// The tables, as SQLite keeps their definitions.
QStringList definitions()
{
    const QString module = QStringLiteral("module_id INTEGER NOT NULL REFERENCES module(id)");
    QStringList tables = {QStringLiteral(
        "CREATE TABLE module (id INTEGER PRIMARY KEY, name TEXT NOT NULL, kind TEXT NOT NULL)")};
    for (const auto& [values, type] : {std::pair(Store::Values::BinaryData, "BLOB"),
                                       {Store::Values::RunParameter, "TEXT"},
                                       {Store::Values::UiData, "BLOB"}}) {
        tables << QStringLiteral("CREATE TABLE %1 (%2, name TEXT NOT NULL, value %3 NOT NULL, "
                                 "PRIMARY KEY (module_id, name)) WITHOUT ROWID")
                      .arg(tableOf(values), module, QLatin1String(type));
    }
    QString flags;
    for (const auto& [column, flag] : StoredWords::ioFlags) {
        flags += QLatin1String(column) + QStringLiteral(" INTEGER NOT NULL, ");
    }
    tables << QStringLiteral("CREATE TABLE module_io (%1, name TEXT NOT NULL, "
                             "io_class TEXT NOT NULL CHECK (io_class IN ('input', 'output')), "
                             "value_type TEXT NOT NULL, %2PRIMARY KEY (module_id, name)) WITHOUT ROWID")
                  .arg(module, flags);
    tables << QStringLiteral("CREATE TABLE binding (%1, "
                             "target_kind TEXT NOT NULL CHECK (target_kind IN ('io', 'run_parameter')), "
                             "target_key TEXT NOT NULL, source TEXT NOT NULL, "
                             "PRIMARY KEY (module_id, target_kind, target_key)) WITHOUT ROWID")
                  .arg(module);
    return tables;
}

} // namespace

Store::Store(const QString& file, StoreFile::Use use)
    : m_file(file, use)
    , m_connectionName(QStringLiteral("store-") + QUuid::createUuid().toString(QUuid::WithoutBraces))
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
    const bool isNew = pragma(QStringLiteral("schema_version")).toInt() == 0;
    if (!isNew) {
        checkContent();
    }
    // With a write-ahead log one sync makes a change durable. EXTRA means the same as FULL to a log; while
    // there is none, as on some network file systems, it syncs the folder once the journal has gone.
    run(QStringLiteral("PRAGMA synchronous = EXTRA"));
    run(QStringLiteral("PRAGMA journal_mode = WAL"));
    run(QStringLiteral("PRAGMA foreign_keys = ON"));
    run(QStringLiteral("BEGIN IMMEDIATE"));
    if (isNew) {
        createTables();
    }
    registerModules(flow);
    run(QStringLiteral("COMMIT"));
    m_file.noteLog();
}

Store::~Store()
{
    if (m_file.use() == StoreFile::Edit && m_database.isOpen() && m_file.isInPlace()) {
        // So that programs can read the file where they can't write. A reader may prevent it.
        setPatience(0);
        QSqlQuery(QStringLiteral("PRAGMA journal_mode = DELETE"), m_database);
    }
    m_database.close();
    m_database = QSqlDatabase();
    QSqlDatabase::removeDatabase(m_connectionName);
}

void Store::open()
{
    m_database = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), m_connectionName);
    m_database.setDatabaseName(m_file.url());
    m_database.setConnectOptions(QStringLiteral("QSQLITE_OPEN_URI"));
    if (!m_database.open()) {
        throw CoreError(
            tr("the store %1 can't be opened: %2").arg(file(), m_database.lastError().databaseText()));
    }
    setPatience(patience);
}

void Store::checkContent() const
{
    if (pragma(QStringLiteral("application_id")).toInt() != applicationId) {
        throw CoreError(tr("%1 is a database, but no store of an inspection flow").arg(file()));
    }
    const int version = pragma(QStringLiteral("user_version")).toInt();
    if (version > schemaVersion) {
        throw CoreError(tr("the store %1 has version %2; this program reads up to %3")
                            .arg(file(), QString::number(version), QString::number(schemaVersion)));
    }
    const QString health = pragma(QStringLiteral("quick_check(1)")).toString();
    if (health != QLatin1String("ok")) {
        throw CoreError(tr("the store %1 is damaged: %2").arg(file(), health.simplified()));
    }
    QSqlQuery query =
        run(QStringLiteral(R"(SELECT sql FROM sqlite_master WHERE name NOT LIKE 'sqlite\_%' ESCAPE '\')"));
    QStringList expected = definitions();
    while (query.next()) {
        if (!expected.removeOne(query.value(0).toString())) {
            throw CoreError(
                tr("the store %1 has another table, index, view or trigger than this program makes: %2")
                    .arg(file(), query.value(0).toString().simplified().left(100)));
        }
    }
    if (!expected.isEmpty()) {
        throw CoreError(tr("the store %1 lacks a table: %2").arg(file(), expected.first().left(100)));
    }
}

void Store::createTables()
{
    for (const QString& definition : definitions()) {
        run(definition);
    }
    run(QStringLiteral("PRAGMA application_id = %1").arg(applicationId));
    run(QStringLiteral("PRAGMA user_version = %1").arg(schemaVersion));
}

void Store::registerModules(const Flow& flow)
{
    const QString insertValue = QStringLiteral("INSERT OR IGNORE INTO %1 VALUES (?, ?, ?)");
    for (const FlowModule& module : flow.modules()) {
        run(QStringLiteral("INSERT INTO module (id, name, kind) VALUES (?, ?, ?) "
                           "ON CONFLICT (id) DO UPDATE SET name = excluded.name, kind = excluded.kind"),
            {module.id, module.name, module.kind});
        const auto binaryData = IfModule::firstBinaryData(module);
        for (auto it = binaryData.cbegin(); it != binaryData.cend(); ++it) {
            run(insertValue.arg(tableOf(Values::BinaryData)), {module.id, it.key(), it.value()});
        }
        const auto runParameters = IfModule::firstRunParameters(module);
        for (auto it = runParameters.cbegin(); it != runParameters.cend(); ++it) {
            run(insertValue.arg(tableOf(Values::RunParameter)),
                {module.id, it.key(), QString::fromUtf8(it.value())});
        }
    }
}

void Store::setValue(Values values, UInt moduleId, const QString& name, const QVariant& value)
{
    if (value.toByteArray().size() > longestValue) {
        throw tooLarge(moduleId, name, value.toByteArray().size());
    }
    change(QStringLiteral("INSERT INTO %1 (module_id, name, value) VALUES (?, ?, ?) "
                          "ON CONFLICT (module_id, name) DO UPDATE SET value = excluded.value")
               .arg(tableOf(values)),
           {moduleId, name, value}, 1);
}

std::optional<QByteArray> Store::value(Values values, UInt moduleId, const QString& name) const
{
    QSqlQuery query = run(selectValues(values) + QStringLiteral(" AND name = ?"), {moduleId, name});
    return query.next() ? std::optional(valueOf(query, moduleId)) : std::nullopt;
}

bool Store::removeValue(Values values, UInt moduleId, const QString& name)
{
    return change(QStringLiteral("DELETE FROM %1 WHERE module_id = ? AND name = ?").arg(tableOf(values)),
                  {moduleId, name}, 0);
}

void Store::addIo(UInt moduleId, const ModuleIo& io)
{
    QString marks = QStringLiteral("?, ?, ?, ?");
    QVariantList values = {moduleId, io.name, StoredWords::of(io.ioClass), io.valueType};
    for (const auto& [column, flag] : StoredWords::ioFlags) {
        marks += QStringLiteral(", ?");
        values << int(io.flags.*flag);
    }
    change(QStringLiteral("INSERT INTO module_io (module_id, %1) VALUES (%2)").arg(ioColumns(), marks),
           values, 1);
}

std::optional<ModuleIo> Store::io(UInt moduleId, const QString& name) const
{
    QSqlQuery query =
        run(QStringLiteral("SELECT %1 FROM module_io WHERE module_id = ? AND name = ?").arg(ioColumns()),
            {moduleId, name});
    return query.next() ? std::optional(ioOf(query)) : std::nullopt;
}

void Store::setBinding(const FilterSourceTarget& target, const QString& source)
{
    change(QStringLiteral(
               "INSERT INTO binding (module_id, target_kind, target_key, source) VALUES (?, ?, ?, ?) "
               "ON CONFLICT (module_id, target_kind, target_key) DO UPDATE SET source = excluded.source"),
           keyOf(target) << source, 1);
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
    return change(
        QStringLiteral("DELETE FROM binding WHERE module_id = ? AND target_kind = ? AND target_key = ?"),
        keyOf(target), 0);
}

ModuleConfiguration Store::configuration(UInt moduleId) const
{
    ModuleConfiguration found;
    run(QStringLiteral("BEGIN"));
    const auto end = qScopeGuard([this] { QSqlQuery(QStringLiteral("COMMIT"), m_database); });
    for (const auto& [values, map] : {std::pair(Values::BinaryData, &found.binaryData),
                                      {Values::RunParameter, &found.runParameters},
                                      {Values::UiData, &found.uiData}}) {
        forEachRow(selectValues(values), moduleId, [&, map = map](const QSqlQuery& query) {
            map->insert(query.value(0).toString(), valueOf(query, moduleId));
        });
    }
    forEachRow(QStringLiteral("SELECT %1 FROM module_io WHERE module_id = ? ORDER BY name").arg(ioColumns()),
               moduleId, [&found](const QSqlQuery& query) { found.ios << ioOf(query); });
    forEachRow(QStringLiteral("SELECT target_kind, target_key, source FROM binding "
                              "WHERE module_id = ? ORDER BY target_kind, target_key"),
               moduleId, [&found, moduleId](const QSqlQuery& query) {
                   const auto type = query.value(0).toString() == StoredWords::of(SUBSCRIBE_TYPE_IO)
                                         ? SUBSCRIBE_TYPE_IO
                                         : SUBSCRIBE_TYPE_RUNPARAM;
                   ModuleBinding binding;
                   binding.target = {moduleId, type, query.value(1).toString()};
                   binding.source = query.value(2).toString();
                   found.bindings << binding;
               });
    return found;
}

template <typename Row>
void Store::forEachRow(const QString& statement, UInt moduleId, const Row& row) const
{
    QSqlQuery query = run(statement, {moduleId});
    for (int count = 0; query.next(); ++count) {
        if (count == mostRows) {
            throw CoreError(tr("module %1 has too much in the store %2: more than %3 entries of a kind")
                                .arg(QString::number(moduleId), file(), QString::number(mostRows)));
        }
        row(query);
    }
}

QByteArray Store::valueOf(const QSqlQuery& query, UInt moduleId) const
{
    const int length = query.value(2).toInt();
    if (length > longestValue) {
        throw tooLarge(moduleId, query.value(0).toString(), length);
    }
    return query.value(1).toByteArray();
}

CoreError Store::tooLarge(UInt moduleId, const QString& name, int length)
{
    return CoreError(
        tr("%1 of module %2 is too large: it has %3 bytes of at most %4")
            .arg(name, QString::number(moduleId), QString::number(length), QString::number(longestValue)));
}

bool Store::change(const QString& statement, const QVariantList& values, int fewest)
{
    const auto checkInPlace = [this] {
        if (!m_file.isInPlace()) {
            throw CoreError(
                tr("the store %1 was moved, deleted or replaced: put it back, or open the flow again")
                    .arg(file()));
        }
    };
    checkInPlace();
    run(QStringLiteral("BEGIN IMMEDIATE"));
    auto rollback = qScopeGuard([this] { QSqlQuery(QStringLiteral("ROLLBACK"), m_database); });
    const int rows = run(statement, values).numRowsAffected();
    if (rows < fewest || rows > 1) {
        throw CoreError(tr("the store %1 did not take the change").arg(file()));
    }
    run(QStringLiteral("COMMIT"));
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
        if (query.lastError().nativeErrorCode() == QLatin1String(errorOfLock)) {
            m_refused.start();
            setPatience(0);
        }
        throw CoreError(tr("the store %1 failed: %2").arg(file(), query.lastError().databaseText()));
    }
    return query;
}

QVariant Store::pragma(const QString& name) const
{
    QSqlQuery query = run(QStringLiteral("PRAGMA ") + name);
    return query.next() ? query.value(0) : QVariant();
}

void Store::setPatience(int milliseconds) const
{
    QSqlQuery(QStringLiteral("PRAGMA busy_timeout = %1").arg(milliseconds), m_database);
}
