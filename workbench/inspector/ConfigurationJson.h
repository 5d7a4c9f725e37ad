#pragma once

#include "EmbeddedCore/ModuleConfiguration.h"

#include <QJsonObject>

namespace ConfigurationJson {

/// All of a module's configuration, keys in alphabetical order. Bytes are a text; such as are no UTF-8 are
/// an object {"base64": "..."}.
QJsonObject of(const ModuleConfiguration& configuration);

} // namespace ConfigurationJson
