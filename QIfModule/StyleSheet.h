#pragma once

#include <QString>

#include <optional>

namespace StyleSheet {

/// A compiled-in style sheet, as Latin-1 text up to the first NUL; nothing when it can't be opened.
std::optional<QString> read(const QString& resourcePath);

} // namespace StyleSheet
