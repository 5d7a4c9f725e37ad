#pragma once

#include "EmbeddedCore/ModuleConfiguration.h"
#include "condition/ModuleParameter.h"

/// What the configuration of a module means when it is an If module.
namespace IfConfiguration {

/// The stored list of conditions, for StoredCondition::fromStored(); empty when the module has none.
inline QByteArray conditionList(const ModuleConfiguration& configuration)
{
    return configuration.binaryData.value(QLatin1String(ModuleParameter::conditionList));
}

/// Whether all conditions must be met; else any suffices.
inline bool needsAll(const ModuleConfiguration& configuration)
{
    return ModuleParameter::needsAll(
        configuration.runParameters.value(QLatin1String(ModuleParameter::judgementMode)).constData());
}

/// Whether a UI datum says that a bound is subscribed; the datum ends at its NUL.
inline bool isSubscribed(const ModuleConfiguration& configuration, const QString& sourceKey)
{
    return qstrcmp(configuration.uiData.value(sourceKey).constData(), ModuleParameter::subscribedBound) == 0;
}

/// What feeds an IO or run parameter; empty when nothing does.
inline QString sourceOf(const ModuleConfiguration& configuration, ZelCore::ENUM_IO_SUBSCRIBE_TYPE_ type,
                        const QString& key)
{
    const ModuleBinding* const binding = configuration.binding(type, key);
    return binding ? binding->source : QString();
}

} // namespace IfConfiguration
