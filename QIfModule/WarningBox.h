#pragma once

#include <QString>

class QWidget;

namespace WarningBox {

/// Shows a modal warning with an empty title and only the Ok button. The parent may be destroyed while
/// the box is open: whoever calls this must expect to be gone when it returns.
void show(QWidget* parent, const QString& text);

} // namespace WarningBox
