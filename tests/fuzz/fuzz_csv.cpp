#include "EmbeddedCore/TextError.h"
#include "FuzzFile.h"
#include "judgement/CsvReader.h"

// An error names the file.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QString file = fuzzFile(data, size);
    try {
        CsvReader reader({file});
        while (reader.next()) {
            for (int i = 0; i < static_cast<int>(reader.row().size()); ++i) {
                reader.numberAt(i);
            }
        }
    } catch (const TextError& error) {
        if (!error.text().contains(file)) {
            qFatal("\"%s\"", error.what());
        }
    }
    return 0;
}
