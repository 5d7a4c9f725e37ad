#pragma once

#include "EmbeddedCore/ModuleConfiguration.h"

#include <QString>

#include <optional>

class EmbeddedCore;
class Flow;

/// The conditions of an If module as a JSON file, for review, version control and set-up without the panel:
/// names, notes, inputs, bounds and mode. docs/formats.md describes it.
///
/// Functions that fail return false or nothing, and a sentence in error.
namespace ConditionsFile {

/// What write() writes.
QByteArray textOf(const ModuleConfiguration& configuration);

bool write(const QString& file, const ModuleConfiguration& configuration, QString* error);

/// The configuration that the file gives an If module of the flow, checked by the core. Needs a temporary
/// folder, but no store.
std::optional<ModuleConfiguration> read(const QString& file, const Flow& flow, ZelCore::UInt moduleId,
                                        QString* error);

/// Gives a module the conditions of the file in place of its own, once the core has checked them in a copy:
/// all or nothing. Bindings and UI data of other conditions are removed. Panels have to be shown anew.
bool import(const QString& file, EmbeddedCore& core, ZelCore::UInt moduleId, QString* error);

/// Brings a module to another configuration by the commands of the core, all or nothing. IOs are only added.
bool apply(const ModuleConfiguration& target, EmbeddedCore& core, ZelCore::UInt moduleId, QString* error);

} // namespace ConditionsFile
