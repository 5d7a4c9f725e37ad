#include "EmbeddedCore/TextError.h"
#include "FuzzFile.h"
#include "judgement/CsvReader.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    return fuzzReader(data, size, [](const QString& file) {
        try {
            CsvReader reader({file});
            while (reader.next()) {
                for (int i = 0; i < static_cast<int>(reader.row().size()); ++i) {
                    reader.numberAt(i);
                }
            }
        } catch (const TextError& error) {
            return "error: " + QString::fromUtf8(error.what());
        }
        return QString();
    });
}
