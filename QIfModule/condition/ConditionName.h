#pragma once

#include <QString>
#include <QStringList>

/// A condition's name carries its type and its place among the names, and forms every key that the core
/// holds for it. A name is a type word and a number, "int0" or "float3", unique in the panel.
namespace ConditionName {

enum class Type { None, Int, Float };

/// The type by which a condition's range is chosen: a name with both words is an integer.
Type typeOf(const QString& name);

/// The type word that a name begins with, "int" or "float"; empty for None.
QString typeWord(Type type);

/// The largest bound that the panel accepts for a type; the smallest is its negative.
int largestBound(Type type);

/// Whether the bounds of a condition are written with decimals.
bool isWrittenAsFloat(const QString& name);

/// The value type whose outputs a condition may subscribe to: a name with both words is a float, a
/// name with neither leaves it to the asker.
QString subscribedType(const QString& name, const QString& askedType);

/// Numeric order of names of one type: int2 before int10.
bool lessThan(const QString& first, const QString& second);

/// The names of one type, in numeric order.
QStringList sorted(QStringList names);

/// The type word with the lowest number that is free among sorted names of that type.
QString lowestFree(Type type, const QStringList& sortedNames);

/// Module IOs.
QString inputIo(const QString& name);
QString valueOutputIo(const QString& name);
QString minimumOutputIo(const QString& name);
QString maximumOutputIo(const QString& name);

/// Keys under which the bindings of those IOs are removed.
QString inputRemovalKey(const QString& ioName);
QString outputRemovalKey(const QString& ioName);

/// Run-parameter bindings of the bounds.
QString lowerBoundKey(const QString& name);
QString upperBoundKey(const QString& name);

/// UI data that say whether a bound is subscribed: "True" or "False".
QString lowerBoundSourceKey(const QString& name);
QString upperBoundSourceKey(const QString& name);

} // namespace ConditionName
