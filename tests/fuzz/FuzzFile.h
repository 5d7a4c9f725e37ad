#pragma once

#include <QTemporaryDir>

#include <functional>

/// Gives the bytes of the fuzzer as a file to a reader, which returns what is wrong with it, or an empty
/// text. What is wrong is a sentence that names the file.
inline int fuzzReader(const std::uint8_t* data, std::size_t size,
                      const std::function<QString(const QString& file)>& read)
{
    static const QTemporaryDir folder(QStringLiteral("/dev/shm/fuzz"));
    QFile file(folder.filePath(QStringLiteral("input")));
    if (!file.open(QIODevice::WriteOnly)) {
        qFatal("no temporary file");
    }
    file.write(reinterpret_cast<const char*>(data), static_cast<qint64>(size));
    file.close();
    const QString error = read(file.fileName());
    if (!error.isEmpty() && !error.contains(file.fileName())) {
        qFatal("%s", qPrintable(error));
    }
    return 0;
}
