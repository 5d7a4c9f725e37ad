#include "StyleSheet.h"

#include <QFile>
#include <QWidget>

bool StyleSheet::set(const QString& resourcePath, std::initializer_list<QWidget*> widgets)
{
    QFile file(resourcePath);
    const bool isOpen = file.open(QIODevice::ReadOnly);
    const QString sheet = QString::fromLatin1(file.readAll().constData());
    for (QWidget* const widget : widgets) {
        if (isOpen) {
            widget->setStyleSheet(sheet);
        }
    }
    return isOpen;
}
