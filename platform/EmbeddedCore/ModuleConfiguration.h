#pragma once

#include "ZelCommon/FilterSourceCommands.h"
#include "core_client/Records.h"

#include <QByteArray>
#include <QJsonValue>
#include <QMap>
#include <QString>
#include <QVector>

/// An IO of a module as the store holds it.
struct ModuleIo
{
    QString name;
    ZelCore::IOClass ioClass = ZelCore::Unknown;
    QString valueType;
    ZelCore::IO_EXTRA_DATA__ flags;
};

/// A binding of a module, and what the flow has for it.
struct ModuleBinding
{
    ZelCore::FilterSourceTarget target;
    /// The source's subscribe text.
    QString source;
    /// The sample value that the flow gives for the source; null when it gives none.
    QJsonValue value;
    /// The column that has the source's value in a table of samples; empty when none has.
    QString column;
    /// Why the source can't feed the target any more, a sentence; empty when it can.
    QString missing;
};

/// All that the core holds for one module, at one moment.
struct ModuleConfiguration
{
    QMap<QString, QByteArray> binaryData;
    QMap<QString, QByteArray> runParameters;
    QMap<QString, QByteArray> uiData;
    QVector<ModuleIo> ios;
    QVector<ModuleBinding> bindings;

    /// Null when there is none.
    const ModuleBinding* binding(ZelCore::ENUM_IO_SUBSCRIBE_TYPE_ type, const QString& key) const
    {
        for (const ModuleBinding& each : bindings) {
            if (each.target.Type == type && each.target.Key == key) {
                return &each;
            }
        }
        return nullptr;
    }
};
