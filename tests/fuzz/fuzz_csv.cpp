#include "FuzzFile.h"
#include "judgement/CsvReader.h"
#include "judgement/JudgementError.h"

#include <cstdlib>

// A file is a table, or there is a sentence that names it.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QString file = fuzzFile(data, size);
    try {
        CsvReader reader({file});
        while (reader.next()) {
            for (std::size_t i = 0; i < reader.row().size(); ++i) {
                reader.numberAt(static_cast<int>(i));
            }
        }
    } catch (const JudgementError& error) {
        if (!QString::fromUtf8(error.what()).contains(file)) {
            std::abort();
        }
    }
    return 0;
}
