#include "StyleSheet.h"

#include <QFile>
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
