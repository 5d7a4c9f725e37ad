#include "condition/ConditionName.h"

#include <QVector>

#include <algorithm>

namespace ConditionName {

namespace {

const QString intWord = QStringLiteral("int");
const QString floatWord = QStringLiteral("float");

QString enclosed(const QString& name)
{
    return QLatin1Char('%') + name + QLatin1Char('%');
}

} // namespace

Type typeOf(const QString& name)
{
    return name.contains(intWord) ? Type::Int : name.contains(floatWord) ? Type::Float : Type::None;
}

QString typeWord(Type type)
{
    return type == Type::Int ? intWord : type == Type::Float ? floatWord : QString();
}

int largestBound(Type type)
{
    return type == Type::Int ? 999999999 : 100000;
}

bool isWrittenAsFloat(const QString& name)
{
    return name.contains(floatWord);
}

QString subscribedType(const QString& name, const QString& askedType)
{
    return name.contains(floatWord) ? floatWord : name.contains(intWord) ? intWord : askedType;
}

bool lessThan(const QString& first, const QString& second)
{
    const QVector<QStringRef> firstParts = first.splitRef(QLatin1Char('t'));
    const QVector<QStringRef> secondParts = second.splitRef(QLatin1Char('t'));
    const auto [a, b] =
        std::mismatch(firstParts.begin(), firstParts.end(), secondParts.begin(), secondParts.end());
    if (a != firstParts.end() && b != secondParts.end()) {
        return a->toLongLong() < b->toLongLong();
    }
    return firstParts.size() < secondParts.size();
}

QStringList sorted(QStringList names)
{
    // Names from a damaged store need not be ordered consistently; a merge sort stays within bounds
    // even then.
    std::stable_sort(names.begin(), names.end(), lessThan);
    return names;
}

QString lowestFree(Type type, const QStringList& sortedNames)
{
    const QString word = typeWord(type);
    int number = 0;
    while (number < sortedNames.size() &&
           sortedNames.at(number).midRef(word.size()) == QString::number(number)) {
        ++number;
    }
    return word + QString::number(number);
}

QString inputIo(const QString& name)
{
    return enclosed(name);
}

QString valueOutputIo(const QString& name)
{
    return enclosed(name + QLatin1String("Out"));
}

QString minimumOutputIo(const QString& name)
{
    return enclosed(name + QLatin1String("Min"));
}

QString maximumOutputIo(const QString& name)
{
    return enclosed(name + QLatin1String("Max"));
}

QString inputRemovalKey(const QString& ioName)
{
    return ioName + QLatin1String(":input");
}

QString outputRemovalKey(const QString& ioName)
{
    return ioName + QLatin1String(":output");
}

QString lowerBoundKey(const QString& name)
{
    return enclosed(name) + QLatin1String("Start");
}

QString upperBoundKey(const QString& name)
{
    return enclosed(name) + QLatin1String("End");
}

QString lowerBoundSourceKey(const QString& name)
{
    return QLatin1Char('@') + lowerBoundKey(name);
}

QString upperBoundSourceKey(const QString& name)
{
    return QLatin1Char('@') + upperBoundKey(name);
}

} // namespace ConditionName
