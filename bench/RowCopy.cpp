#include "RowCopy.h"

#include <QZelCommonControl/ButtonSelecterView.h>

#include <QDialog>
#include <QDoubleSpinBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include <algorithm>

namespace {

template <typename Widget>
QWidget* make(QWidget* parent, const QString& text)
{
    auto* const widget = new Widget(parent);
    if constexpr (std::is_same_v<Widget, QDoubleSpinBox>) {
        widget->setDecimals(3);
        widget->setRange(-999999999, 999999999);
        widget->setValue(text.toDouble());
    } else if constexpr (std::is_same_v<Widget, QDialog>) {
        widget->setWindowFlags(Qt::Widget);
    } else if constexpr (std::is_same_v<Widget, QPushButton> || std::is_same_v<Widget, QLineEdit> ||
                         std::is_same_v<Widget, QLabel>) {
        widget->setText(text);
    }
    return widget;
}

struct Class
{
    const QMetaObject& type;
    QWidget* (*make)(QWidget*, const QString&);
};

// Derived classes first.
const Class classes[] = {{QDoubleSpinBox::staticMetaObject, make<QDoubleSpinBox>},
                         {ButtonSelecterView::staticMetaObject, make<ButtonSelecterView>},
                         {QPushButton::staticMetaObject, make<QPushButton>},
                         {QLineEdit::staticMetaObject, make<QLineEdit>},
                         {QLabel::staticMetaObject, make<QLabel>},
                         {QDialog::staticMetaObject, make<QDialog>}};

} // namespace

RowCopy::RowCopy(const QBoxLayout& row)
    : margins(row.contentsMargins())
    , spacing(row.spacing())
{
    for (int i = 0; i < row.count(); ++i) {
        const QWidget* const widget = row.itemAt(i)->widget();
        if (!widget) {
            continue; // the space at the end
        }
        const Class& best =
            *std::find_if(std::begin(classes), std::end(classes),
                          [widget](const Class& each) { return widget->metaObject()->inherits(&each.type); });
        items.push_back({best.make,
                         widget->objectName(),
                         widget->property("text").toString(),
                         widget->styleSheet(),
                         widget->minimumSize(),
                         widget->maximumSize(),
                         widget->isHidden(),
                         row.stretch(i),
                         {}});
        if (const auto* const inner = qobject_cast<QBoxLayout*>(widget->layout());
            inner && widget->inherits("QDialog")) {
            items.back().inner.emplace_back(*inner);
        }
    }
}

void RowCopy::build(QBoxLayout* row, QWidget* parent) const
{
    row->setContentsMargins(margins);
    row->setSpacing(spacing);
    for (const Item& item : items) {
        QWidget* const widget = item.make(parent, item.text);
        widget->setObjectName(item.name);
        widget->setMinimumSize(item.least);
        widget->setMaximumSize(item.most);
        for (const RowCopy& inner : item.inner) {
            inner.build(new QHBoxLayout(widget), widget);
        }
        if (!item.sheet.isEmpty()) {
            widget->setStyleSheet(item.sheet);
        }
        row->addWidget(widget, item.stretch);
        widget->setHidden(item.isHidden);
    }
    row->addItem(new QSpacerItem(10, 20, QSizePolicy::Expanding));
}
