#pragma once

#include <QString>

#include <initializer_list>
#include <utility>
#include <vector>

class QLayout;
class QWidget;

namespace StyleSheet {

/// Sets a compiled-in style sheet, as Latin-1 text up to the first NUL, on the widgets in this order. False
/// when it can't be opened.
bool set(const QString& resourcePath, std::initializer_list<QWidget*> widgets);

/// The widgets of a layout, and those in them, have no sheets of their own while this exists. For widgets
/// that get another parent: Qt parses the sheet of each then, and parses it again when the widget is shown.
class Suspension
{
public:
    explicit Suspension(const QLayout& layout);
    ~Suspension();
    Suspension(const Suspension&) = delete;
    Suspension& operator=(const Suspension&) = delete;

private:
    std::vector<std::pair<QWidget*, QString>> m_sheets;
};

} // namespace StyleSheet
