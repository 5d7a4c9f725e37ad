#include "StoredLoss.h"

#include <algorithm>

StoredLoss::StoredLoss(const QList<ConditionRecord>& conditions)
{
    const QString text = ConditionRecord::toText(conditions);
    bytes = text.toUtf8().size() - text.size();
    const QList<StoredCondition> back = StoredCondition::fromStored(ConditionRecord::toStored(text));
    auto next = back.begin();
    for (const ConditionRecord& condition : conditions) {
        const QString name = QString(condition.name).remove(QLatin1Char('%'));
        const auto found = std::find_if(
            next, back.end(), [&name](const StoredCondition& stored) { return stored.name == name; });
        if (found == back.end()) {
            names << condition.name;
            continue;
        }
        for (; next != found; ++next) {
            addedNames << next->name;
        }
        if (found->note != condition.note) {
            cutNotes[condition.name] = found->note;
        }
        ++next;
    }
    for (; next != back.end(); ++next) {
        addedNames << next->name;
    }
}
