#include "condition/ConditionRecord.h"

#include <cstdlib>

// What has been read and written once reads back the same, whatever the bytes were.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const auto rewritten = [](const QString& text) {
        QList<ConditionRecord> conditions;
        for (const StoredCondition& condition : StoredCondition::fromText(text)) {
            conditions << condition;
        }
        return ConditionRecord::toText(conditions);
    };
    const QString text =
        rewritten(QString::fromUtf8(reinterpret_cast<const char*>(data), static_cast<int>(size)));
    if (rewritten(text) != text || ConditionRecord::toStored(text).size() != text.size()) {
        std::abort();
    }
    return 0;
}
