#pragma once

#include <QTemporaryFile>

/// Bytes of the fuzzer as a file, for readers that open one; the same file each time.
inline QString fuzzFile(const std::uint8_t* data, std::size_t size)
{
    static QTemporaryFile file(QStringLiteral("/dev/shm/fuzz"));
    if (!file.isOpen() && !file.open()) {
        qFatal("no temporary file");
    }
    file.resize(0);
    file.seek(0);
    file.write(reinterpret_cast<const char*>(data), static_cast<qint64>(size));
    file.flush();
    return file.fileName();
}
