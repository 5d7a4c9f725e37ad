#pragma once

#include <QByteArray>
#include <QString>

/// File names on Linux are bytes and need not be UTF-8. In a QString, the bytes beyond ASCII of a name that
/// is not UTF-8 are low surrogates, 0xDC00 + byte, so that no two names become one. The locale plays no part.
namespace FileName {

inline QString decoded(const QByteArray& name)
{
    QString text = QString::fromUtf8(name);
    if (text.toUtf8() != name) {
        text.clear();
        for (const char c : name) {
            const auto byte = static_cast<uchar>(c);
            text += QChar(byte < 0x80 ? byte : 0xdc00 + byte);
        }
    }
    return text;
}

inline QByteArray encoded(const QString& name)
{
    QByteArray bytes;
    for (int i = 0, length = 0; i < name.size(); i += length) {
        length = name[i].isHighSurrogate() ? 2 : 1;
        bytes += name[i].isLowSurrogate() ? QByteArray(1, static_cast<char>(name[i].cell()))
                                          : name.mid(i, length).toUtf8();
    }
    return bytes;
}

} // namespace FileName
