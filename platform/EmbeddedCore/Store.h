#pragma once

#include "Flow.h"
#include "ModuleConfiguration.h"
#include "ZelCommon/FilterSourceCommands.h"
#include "core_client/Records.h"

#include <QCoreApplication>
#include <QFile>
#include <QSqlDatabase>
#include <QVariantList>

#include <optional>

class QSqlQuery;

/// The durable store of the core: one SQLite file, one transaction a change, on disk when the change
/// returns. The file belongs to one store at a time, which holds the lock file beside it and lets go of
/// it even when its process is killed; other programs may read the store meanwhile.
///
/// Every operation throws CoreError when the file can't be read or written; the file is then as before.
class Store
{
    Q_DECLARE_TR_FUNCTIONS(Store)

public:
    /// What a module has by name.
    enum class Values { BinaryData, RunParameter, UiData };

    struct Io
    {
        ZelCore::IOClass ioClass = ZelCore::Unknown;
        QString valueType;
    };

    /// Opens or makes the file, and gives every module of the flow that is new to it its first values.
    Store(const QString& file, const Flow& flow);
    ~Store();
    Q_DISABLE_COPY(Store)

    QString file() const { return m_file; }

    /// The value must not be null: an empty one is a QString or QByteArray of its own.
    void setValue(Values values, ZelCore::UInt moduleId, const QString& name, const QVariant& value);
    std::optional<QByteArray> value(Values values, ZelCore::UInt moduleId, const QString& name) const;
    /// Whether there was one.
    bool removeValue(Values values, ZelCore::UInt moduleId, const QString& name);

    QMap<QString, QByteArray> allValues(Values values, ZelCore::UInt moduleId) const;

    void addIo(ZelCore::UInt moduleId, const QString& name, const Io& io,
               const ZelCore::IO_EXTRA_DATA__& flags);
    std::optional<Io> io(ZelCore::UInt moduleId, const QString& name) const;

    QVector<ModuleIo> allIos(ZelCore::UInt moduleId) const;

    void setBinding(const ZelCore::FilterSourceTarget& target, const QString& source);
    std::optional<QString> binding(const ZelCore::FilterSourceTarget& target) const;
    /// Whether there was one.
    bool removeBinding(const ZelCore::FilterSourceTarget& target);
    /// With target and source; what the flow has for them is not the store's to know.
    QVector<ModuleBinding> allBindings(ZelCore::UInt moduleId) const;

private:
    explicit Store(const QString& file);

    void open();
    void checkContent();
    void createTables();
    void registerModules(const Flow& flow);

    QSqlQuery run(const QString& statement, const QVariantList& values = {}) const;
    QVariant pragma(const QString& name) const;

    QString m_file;
    QFile m_lock;
    QString m_connectionName;
    QSqlDatabase m_database;
};
