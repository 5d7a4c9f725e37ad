#pragma once

#include <QString>

#include <initializer_list>

class QWidget;

namespace StyleSheet {

/// Sets a compiled-in style sheet, as Latin-1 text up to the first NUL, on the widgets in this order. False
/// when it can't be opened.
bool set(const QString& resourcePath, std::initializer_list<QWidget*> widgets);

} // namespace StyleSheet
