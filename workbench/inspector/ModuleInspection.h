#pragma once

#include "EmbeddedCore/ModuleConfiguration.h"
#include "condition/ConditionRecord.h"

#include <QCoreApplication>
#include <QStringList>
#include <QVector>

/// What the store holds for a module, as rows of text for tables.
class ModuleInspection
{
    Q_DECLARE_TR_FUNCTIONS(ModuleInspection)

public:
    struct Row
    {
        QStringList cells;
        /// What is wrong with it, a sentence; empty when nothing is.
        QString remark;
    };
    using Rows = QVector<Row>;

    static QStringList conditionColumns();
    /// The stored conditions, then those that are shown only. With what the panel shows at hand, rows that
    /// are not stored as they are shown are remarked; so is one that was cut when it was stored.
    static Rows conditions(const ModuleConfiguration& configuration, const QList<ConditionRecord>* shown);

    static QStringList ioColumns();
    static Rows ios(const ModuleConfiguration& configuration);

    static QStringList bindingColumns();
    static Rows bindings(const ModuleConfiguration& configuration);

    static QStringList valueColumns();
    /// Run parameters and UI data.
    static Rows values(const ModuleConfiguration& configuration);
};
