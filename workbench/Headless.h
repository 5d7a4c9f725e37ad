#pragma once

#include "EmbeddedCore/ModuleConfiguration.h"

#include <QString>
#include <QStringList>

#include <optional>

/// What the workbench does without a window: prints on standard output.
namespace Headless {

/// Judges the rows of CSV files with one header, "-" for standard input, and prints the results as CSV, see
/// ResultCsv, and the totals on standard error; or prints the totals only, on standard output. Shows on a
/// terminal how far a long run is. Returns whether all rows are OK; nothing, and a sentence in error, when
/// anything can't be read or written: rows before the broken one are printed.
std::optional<bool> printRun(const ModuleConfiguration& configuration, const QStringList& csvFiles,
                             bool totalsOnly, QString* error);

/// Prints a text; false, and a sentence in error, when it can't be written.
bool print(const QByteArray& text, QString* error);

} // namespace Headless
