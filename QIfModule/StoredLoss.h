#pragma once

#include "condition/ConditionRecord.h"

#include <QMap>
#include <QStringList>

/// What changes in a list of conditions by being stored and read back.
///
/// The stored record has as many bytes as its text has UTF-16 units, so that text outside ASCII costs bytes
/// at the end; and notes are not escaped.
struct StoredLoss
{
    explicit StoredLoss(const QList<ConditionRecord>& conditions);

    /// Bytes missing at the end of the record.
    int bytes = 0;
    /// The conditions that do not come back.
    QStringList names;
    /// The conditions that come back although they are not in the list: what follows a ";" in a note.
    QStringList addedNames;
    /// The notes that come back shorter, as they do, by condition.
    QMap<QString, QString> cutNotes;
};
