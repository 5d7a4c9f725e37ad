#include <QFile>

#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

/// Reads the files in the arguments; a fault ends the program.
int main(int argc, char** argv)
{
    for (int i = 1; i < argc; ++i) {
        QFile file(QFile::decodeName(argv[i]));
        if (!file.open(QIODevice::ReadOnly)) {
            return EXIT_FAILURE;
        }
        const QByteArray bytes = file.readAll();
        qInfo("%s", argv[i]);
        LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.constData()),
                               static_cast<std::size_t>(bytes.size()));
    }
    return argc > 1 ? EXIT_SUCCESS : EXIT_FAILURE;
}
