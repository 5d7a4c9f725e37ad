#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

/// One condition of the list that the module stores as its binary data "IFText".
///
/// The text holds an entry per condition, "%name%:minimum:maximum:note;", and is "0" without any.
/// Notes are not escaped: a ":" or ";" in a note cuts it when it is read.
struct ConditionRecord
{
    QString name;
    double minimum = 0.0;
    double maximum = 0.0;
    QString note;

    /// The text of a list of conditions. Bounds of a name with "float" have three decimals, all others
    /// are truncated toward zero.
    static QString toText(const QList<ConditionRecord>& conditions);

    /// The bytes stored for a text: its UTF-8 form, cut to as many bytes as the text has UTF-16 units.
    /// Text outside ASCII loses its end that way; readers of older records rely on the rule.
    static QByteArray toStored(const QString& text);
};

/// A condition as read back. It is never rejected: bounds that are no numbers are 0.
struct StoredCondition : ConditionRecord
{
    /// The minimum as it stands in the text.
    QString minimumText;
    /// Whether the minimum's text contains a "."; the name does not count.
    bool isFloat = false;
    /// Whether the maximum was a number.
    bool hasValidMaximum = false;

    /// The conditions of stored bytes, up to the first NUL; see fromText().
    static QList<StoredCondition> fromStored(const QByteArray& bytes);
    /// The conditions of a text, in order. Pieces with fewer than four fields are skipped.
    static QList<StoredCondition> fromText(const QString& text);
};

/// A bound as the integer that is shown and stored for it: truncated toward zero, kept within 32 bits.
int truncatedToInt(double value);
