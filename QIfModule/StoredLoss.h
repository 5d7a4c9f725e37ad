#pragma once

#include "condition/ConditionRecord.h"

#include <QMap>
#include <QStringList>

/// How a list of conditions changes when it is stored and read back.
///
/// The stored record has as many bytes as its text has UTF-16 units, so that text outside ASCII cuts bytes
/// off its end; and notes are not escaped.
struct StoredLoss
{
    explicit StoredLoss(const QList<ConditionRecord>& conditions);

    /// Bytes missing at the end of the record.
    int bytes = 0;
    /// The conditions that do not come back.
    QStringList names;
    /// The conditions that come back although they are not in the list: what follows a ";" in a note.
    QStringList addedNames;
    /// By condition, what comes back of notes that are cut.
    QMap<QString, QString> cutNotes;
};
