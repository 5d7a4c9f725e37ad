#pragma once

#include "Flow.h"

#include <QByteArray>
#include <QMap>
#include <QStringList>

/// All that the core itself knows of what is stored for an If module; elsewhere in it a key is a text.
namespace IfModule {

/// What a module starts with.
inline QMap<QString, QByteArray> firstBinaryData(const FlowModule& module)
{
    return module.kind == Flow::ifKind() ? QMap<QString, QByteArray>{{QStringLiteral("IFText"), "0"}}
                                         : QMap<QString, QByteArray>();
}

inline QMap<QString, QByteArray> firstRunParameters(const FlowModule& module)
{
    return module.kind == Flow::ifKind() ? QMap<QString, QByteArray>{{QStringLiteral("LogicalMode"), "1"}}
                                         : QMap<QString, QByteArray>();
}

/// A run parameter has no type of its own; the condition's name in its key tells it.
inline QStringList typesOfRunParameter(const QString& key)
{
    const QStringList numeric = {QStringLiteral("float"), QStringLiteral("int")};
    for (const QString& type : numeric) {
        if (key.contains(type)) {
            return {type};
        }
    }
    return numeric;
}

} // namespace IfModule
