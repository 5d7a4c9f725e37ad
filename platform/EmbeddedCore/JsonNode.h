#pragma once

#include <QCoreApplication>
#include <QJsonValue>
#include <QString>
#include <QStringList>
#include <QVector>

/// A value of a JSON file and where it stands in it. What reads it throws TextError, with the place, when it
/// is something else.
struct JsonNode
{
    Q_DECLARE_TR_FUNCTIONS(JsonNode)

public:
    QJsonValue value;
    /// "modules[0].name"; empty for the whole file.
    QString place;

    /// The whole file. Throws TextError when it can't be read or is no JSON.
    static JsonNode ofFile(const QString& file);

    [[noreturn]] void fail(const QString& problem) const;
    /// Throws that something else was expected, unless it is so.
    void expect(bool isSo, const QString& what) const;
    /// A key that is misspelt would be a value that is missing.
    void expectObject(const QStringList& keys) const;

    bool has(const QString& key) const;
    /// Undefined when there is none.
    JsonNode member(const QString& key) const;
    QVector<JsonNode> items() const;
    QString text() const;
    /// Empty when the value is undefined.
    QString optionalText() const;
};
