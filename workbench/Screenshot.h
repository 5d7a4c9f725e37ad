#pragma once

class QString;
class QWidget;

namespace Screenshot {

/// Shows the window, waits until it is painted, and writes its picture. False, and a sentence in error,
/// when the file can't be written.
bool write(QWidget& window, const QString& file, QString* error);

} // namespace Screenshot
