#include "EmbeddedCore/Flow.h"
#include "FuzzFile.h"

// An error names the file.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QString file = fuzzFile(data, size);
    QString error;
    if (!Flow::load(file, &error) && !error.contains(file)) {
        qFatal("\"%s\"", qPrintable(error));
    }
    return 0;
}
