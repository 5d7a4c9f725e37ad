#include <QDir>
#include <QFile>

#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

/// Reads each file of the folder in the argument; a fault ends the program.
int main(int, char** argv)
{
    const QDir corpus(QFile::decodeName(argv[1]));
    const QStringList names = corpus.entryList(QDir::Files);
    for (const QString& name : names) {
        QFile file(corpus.filePath(name));
        if (!file.open(QIODevice::ReadOnly)) {
            return EXIT_FAILURE;
        }
        const QByteArray bytes = file.readAll();
        qInfo("%s", qUtf8Printable(name));
        LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.constData()),
                               static_cast<std::size_t>(bytes.size()));
    }
    return names.isEmpty() ? EXIT_FAILURE : EXIT_SUCCESS;
}
