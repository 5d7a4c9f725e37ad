#pragma once

#include <QString>

class QWidget;

namespace WarningBox {

/// Shows a modal warning with an empty title and only the Ok button. The parent may be destroyed while
/// the box is open, and the caller with it.
void show(QWidget* parent, const QString& text);

} // namespace WarningBox
