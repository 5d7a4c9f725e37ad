#pragma once

#include "Flow.h"
#include "ModuleConfiguration.h"

#include <QStringList>

/// All that the core itself knows of what is stored for an If module; elsewhere in it a key is a text.
namespace IfModule {

/// What a module has when it is new to the store.
inline ModuleConfiguration first(const FlowModule& module)
{
    ModuleConfiguration first;
    if (module.kind == Flow::ifKind()) {
        first.binaryData["IFText"] = "0";
        first.runParameters["LogicalMode"] = "1";
    }
    return first;
}

/// A run parameter has no type of its own; the condition's name in its key determines it.
inline QStringList typesOfRunParameter(const QString& key)
{
    return key.contains("float") ? QStringList("float")
           : key.contains("int") ? QStringList("int")
                                 : QStringList{"float", "int"};
}

} // namespace IfModule
