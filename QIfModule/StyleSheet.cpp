#include "StyleSheet.h"

#include <QFile>

std::optional<QString> StyleSheet::read(const QString& resourcePath)
{
    QFile file(resourcePath);
    if (!file.open(QIODevice::ReadOnly)) {
        return std::nullopt;
    }
    return QString::fromLatin1(file.readAll().constData());
}
