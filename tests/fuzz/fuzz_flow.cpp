#include "EmbeddedCore/Flow.h"
#include "FuzzFile.h"

#include <cstdlib>

// A file is a flow, or there is a sentence that names it.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QString file = fuzzFile(data, size);
    QString error;
    const auto flow = Flow::load(file, &error);
    if (!flow && !error.contains(file)) {
        std::abort();
    }
    return 0;
}
