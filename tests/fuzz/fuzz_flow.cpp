#include "EmbeddedCore/Flow.h"
#include "FuzzFile.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    return fuzzReader(data, size, [](const QString& file) {
        QString error = "no text";
        return Flow::load(file, &error) ? QString() : error;
    });
}
