#pragma once

#include <QTemporaryDir>

/// Writes the bytes of the fuzzer to a file, always the same one, and returns its name.
inline QString fuzzFile(const std::uint8_t* data, std::size_t size)
{
    static const QTemporaryDir folder;
    QFile file(folder.filePath(QStringLiteral("input")));
    if (!file.open(QIODevice::WriteOnly)) {
        qFatal("no temporary file");
    }
    file.write(reinterpret_cast<const char*>(data), static_cast<qint64>(size));
    return file.fileName();
}
