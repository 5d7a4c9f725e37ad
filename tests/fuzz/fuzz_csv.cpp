#include "EmbeddedCore/CoreError.h"
#include "FuzzFile.h"
#include "judgement/CsvReader.h"

#include <cstdlib>

// A file is a table, or there is a sentence that names it.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QString file = fuzzFile(data, size);
    try {
        CsvReader reader(file);
        while (reader.next()) {
            for (const std::string_view field : reader.row()) {
                CsvReader::number(field);
            }
        }
    } catch (const CoreError& error) {
        if (!QString::fromUtf8(error.what()).contains(file)) {
            std::abort();
        }
    }
    return 0;
}
