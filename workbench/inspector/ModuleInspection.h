#pragma once

#include "EmbeddedCore/ModuleConfiguration.h"
#include "condition/ConditionRecord.h"
#include "judgement/Judgement.h"

#include <QColor>
#include <QCoreApplication>
#include <QStringList>
#include <QVector>

struct FlowModule;

/// What the store holds for a module, as rows of text for tables.
class ModuleInspection
{
    Q_DECLARE_TR_FUNCTIONS(ModuleInspection)

public:
    struct Row
    {
        QStringList cells;
        /// What is wrong with it, a sentence; empty when nothing is.
        QString remark{};
        /// A cell with a colour of its own; -1 for none.
        int colouredCell = -1;
        QColor colour{};
    };
    struct Table
    {
        QStringList columns;
        QVector<Row> rows;
    };

    /// The place of "Result" among the columns of conditions.
    static constexpr int resultColumn = 5;

    /// The stored conditions, then those that are shown only. With what the panel shows at hand, rows that
    /// are not stored as they are shown are remarked; so is one that was cut when it was stored. Values and
    /// bounds are those of the results, one for each stored condition; of the flow's sample values when
    /// there are none.
    static Table conditions(const ModuleConfiguration& configuration, const QList<ConditionRecord>* shown,
                            const QVector<Judgement::Result>& results = {});
    /// A sentence for each condition that is not stored as it is shown.
    static QStringList differences(const ModuleConfiguration& configuration,
                                   const QList<ConditionRecord>& shown);

    /// Whether two configurations of a module mean the same judgement.
    static bool judgeAlike(const ModuleConfiguration& first, const ModuleConfiguration& second);

    static Table ios(const ModuleConfiguration& configuration);
    static Table bindings(const ModuleConfiguration& configuration);
    /// Run parameters and UI data.
    static Table values(const ModuleConfiguration& configuration);
    /// What a module publishes, groups left out.
    static Table outputs(const FlowModule& module);
};
