#pragma once

#include <QByteArray>
#include <QString>

/// File names on Linux are bytes and need not be UTF-8. As a QString, a byte that belongs to no UTF-8
/// character is the low surrogate 0xDC00 + byte, so that no two names become one; the locale plays no part.
namespace FileName {

inline QString decoded(const QByteArray& name)
{
    QString text;
    for (int at = 0, length = 0; at < name.size(); at += length) {
        QString character;
        for (length = 1; length <= 4 && character.isEmpty(); ++length) {
            const QByteArray bytes = name.mid(at, length);
            const QString candidate = QString::fromUtf8(bytes);
            character = candidate.toUtf8() == bytes ? candidate : QString();
        }
        length = character.isEmpty() ? 1 : length - 1;
        text += character.isEmpty() ? QString(QChar(0xdc00 + static_cast<uchar>(name[at]))) : character;
    }
    return text;
}

inline QByteArray encoded(const QString& name)
{
    QByteArray bytes;
    QString characters;
    for (const QChar c : name) {
        const bool isByte = c.row() == 0xdc && c.cell() >= 0x80 &&
                            (characters.isEmpty() || !qAsConst(characters).back().isHighSurrogate());
        if (isByte) {
            bytes += characters.toUtf8();
            bytes += static_cast<char>(c.cell());
            characters.clear();
        } else {
            characters += c;
        }
    }
    return bytes + characters.toUtf8();
}

} // namespace FileName
