#include "StyleSheet.h"

#include <QFile>
#include <QLayout>
#include <QWidget>

bool StyleSheet::set(const QString& resourcePath, std::initializer_list<QWidget*> widgets)
{
    QFile file(resourcePath);
    if (!file.open(QIODevice::ReadOnly)) {
        return false;
    }
    const QString sheet = QString::fromLatin1(file.readAll().constData());
    for (QWidget* const widget : widgets) {
        widget->setStyleSheet(sheet);
    }
    return true;
}

StyleSheet::Suspension::Suspension(const QLayout& layout)
{
    for (int i = 0; i < layout.count(); ++i) {
        QWidget* const outer = layout.itemAt(i)->widget();
        if (!outer) {
            continue;
        }
        // Inner widgets first: a change of the outer sheet makes Qt parse theirs.
        auto widgets = outer->findChildren<QWidget*>();
        widgets << outer;
        for (QWidget* const widget : qAsConst(widgets)) {
            if (const QString sheet = widget->styleSheet(); !sheet.isEmpty()) {
                m_sheets.emplace_back(widget, sheet);
                widget->setStyleSheet(QString());
            }
        }
    }
}

StyleSheet::Suspension::~Suspension()
{
    for (const auto& [widget, sheet] : m_sheets) {
        widget->setStyleSheet(sheet);
    }
}
