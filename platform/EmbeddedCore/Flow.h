#pragma once

#include "core_client/Enumerations.h"

#include <QCoreApplication>
#include <QJsonValue>
#include <QString>
#include <QVector>

#include <optional>

/// A value that a module publishes, or a group of such values.
struct FlowOutput
{
    QString name;
    /// "int", "float", "string" or "bool"; empty for a group.
    QString type;
    /// The text by which the value is subscribed, "5.Mean.Radius"; empty for a group.
    QString subscribeName;
    /// A sample of the value; null when the flow gives none.
    QJsonValue value;
    /// The column that has the value in a table of samples; empty when none has.
    QString column;
    QVector<FlowOutput> children;

    bool isGroup() const { return type.isEmpty(); }
};

/// A step of the flow.
struct FlowModule
{
    ZelCore::UInt id = 0;
    QString name;
    QString kind;
    QVector<FlowOutput> outputs;
};

/// An inspection flow: its modules in the order in which they run. Read from a JSON file, then fixed.
class Flow
{
    Q_DECLARE_TR_FUNCTIONS(Flow)

public:
    /// Nothing, and a sentence in error that names file, place and what was expected, when the file can't
    /// be read or is no flow.
    static std::optional<Flow> load(const QString& file, QString* error);

    /// The kind of module that the panel configures.
    static QString ifKind() { return QStringLiteral("If"); }

    QString name() const { return m_name; }
    const QVector<FlowModule>& modules() const { return m_modules; }

    /// Null for an id that the flow does not have.
    const FlowModule* module(ZelCore::UInt id) const;
    /// The id of the first If module; 0 when there is none.
    ZelCore::UInt firstIfId() const;
    /// Whether one module runs before another; both must be of the flow.
    bool isBefore(ZelCore::UInt first, ZelCore::UInt second) const;

    /// The value with this subscribe text, null when there is none; its module's id in moduleId.
    const FlowOutput* output(const QString& subscribeName, ZelCore::UInt* moduleId) const;

private:
    QString m_name;
    QVector<FlowModule> m_modules;
};
