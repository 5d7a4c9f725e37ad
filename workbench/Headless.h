#pragma once

#include <QString>

class EmbeddedCore;

/// What the workbench does without a window: prints on standard output.
namespace Headless {

/// Judges each row of a CSV file and prints the results as CSV: line, result, and for each condition what its
/// outputs carry and the outcome. A summary goes to standard error. False, and a sentence in error, when
/// anything can't be read or written; rows before the broken one are printed.
bool printRun(const EmbeddedCore& core, unsigned int moduleId, const QString& csvFile, QString* error);

/// Prints all that the core holds for a module as JSON, keys in alphabetical order. False, and a sentence
/// in error, when it can't be read or written.
bool printConfiguration(const EmbeddedCore& core, unsigned int moduleId, QString* error);

} // namespace Headless
