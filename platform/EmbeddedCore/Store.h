#pragma once

#include "Flow.h"
#include "ModuleConfiguration.h"
#include "StoreFile.h"
#include "ZelCommon/FilterSourceCommands.h"
#include "core_client/Records.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QSqlDatabase>
#include <QVariantList>

#include <optional>

class QSqlQuery;

/// The durable store of the core: one SQLite file, one transaction a change, on disk when the change
/// returns. It is edited by one store at a time; other programs may read it meanwhile. A closed store is
/// the file alone; while it is open, the latest changes are in the log beside it.
///
/// Every operation throws TextError when the file can't be read or written; the file is then as before.
/// An operation waits half a second at most for another program's lock, and not at all within a second
/// after one was refused for it: an action of many commands waits once.
class Store
{
    Q_DECLARE_TR_FUNCTIONS(Store)

public:
    /// What a module has by name.
    enum class Values { BinaryData, RunParameter, UiData };

    /// No value of more bytes is read or written, and no more rows of one module are read at once.
    static constexpr int longestValue = 1 << 20;
    static constexpr int mostRows = 100000;

    /// Opens or makes the file for editing, and gives every module of the flow that is new to it its first
    /// values.
    Store(const QString& file, const Flow& flow);
    /// Opens the file for reading only: creates none, and disturbs nobody who has it open.
    explicit Store(const QString& file);
    ~Store();
    Q_DISABLE_COPY(Store)

    QString file() const { return m_file.name(); }

    /// The value must not be null: an empty one is a QString or QByteArray of its own.
    void setValue(Values values, ZelCore::UInt moduleId, const QString& name, const QVariant& value);
    std::optional<QByteArray> value(Values values, ZelCore::UInt moduleId, const QString& name) const;
    /// Whether there was one.
    bool removeValue(Values values, ZelCore::UInt moduleId, const QString& name);

    void addIo(ZelCore::UInt moduleId, const ModuleIo& io);
    std::optional<ModuleIo> io(ZelCore::UInt moduleId, const QString& name) const;

    void setBinding(const ZelCore::FilterSourceTarget& target, const QString& source);
    std::optional<QString> binding(const ZelCore::FilterSourceTarget& target) const;
    /// Whether there was one.
    bool removeBinding(const ZelCore::FilterSourceTarget& target);

    /// All of a module at one moment; what the flow has for its bindings is not the store's to know.
    ModuleConfiguration configuration(const FlowModule& module) const;

private:
    Store(const QString& file, StoreFile::Use use);

    void open();
    void checkContent() const;
    void registerModules(const Flow& flow);

    /// Changes one row, or none where fewest is 0, in a transaction of its own; whether there was one.
    bool change(const QString& statement, const QVariantList& values, int fewest);
    QSqlQuery run(const QString& statement, const QVariantList& values = {}) const;
    QVariant pragma(const QString& name) const;
    void setPatience(int milliseconds) const;

    StoreFile m_file;
    QSqlDatabase m_database;
    /// Since a command was refused for another program's lock; invalid when it is long ago.
    mutable QElapsedTimer m_refused;
};
