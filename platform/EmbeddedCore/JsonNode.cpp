#include "JsonNode.h"

#include "TextError.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

JsonNode JsonNode::ofFile(const QString& file)
{
    QFile source(file);
    const bool isOpen = source.open(QIODevice::ReadOnly);
    require(isOpen, source.errorString());
    const QByteArray json = source.readAll();
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(json, &error);
    if (error.error != QJsonParseError::NoError) {
        // The parser mostly stops one byte behind what it did not expect.
        const QByteArray before = json.left(qMax(error.offset - 1, 0));
        const int column = before.size() - before.lastIndexOf('\n');
        JsonNode{{}, tr("line %1, column %2").arg(before.count('\n') + 1).arg(column)}.expect(
            false, tr("JSON (%1)").arg(error.errorString()));
    }
    return {document.isObject() ? QJsonValue(document.object()) : QJsonValue(document.array()), {}};
}

void JsonNode::fail(const QString& problem) const
{
    throw TextError(tr("%1: %2").arg(place.isEmpty() ? tr("the whole file") : place, problem));
}

void JsonNode::expect(bool isSo, const QString& what) const
{
    if (!isSo) {
        fail(tr("expected %1").arg(what));
    }
}

void JsonNode::expectObject(const QStringList& keys) const
{
    expect(value.isObject(), tr("an object"));
    for (const QString& key : value.toObject().keys()) {
        if (!keys.contains(key)) {
            fail(tr("unknown key \"%1\", expected %2").arg(key, keys.join(", ")));
        }
    }
}

bool JsonNode::has(const QString& key) const
{
    return value.toObject().contains(key);
}

JsonNode JsonNode::member(const QString& key) const
{
    return {value[key], place.isEmpty() ? key : place + '.' + key};
}

QVector<JsonNode> JsonNode::items() const
{
    expect(value.isArray(), tr("a list"));
    QVector<JsonNode> items;
    for (const QJsonValue item : value.toArray()) {
        items.append({item, QString("%1[%2]").arg(place).arg(items.size())});
    }
    return items;
}

QString JsonNode::text() const
{
    expect(!value.toString().isEmpty(), tr("a text that is not empty"));
    return value.toString();
}

QString JsonNode::optionalText() const
{
    expect(value.isString() || value.isUndefined(), tr("a text"));
    return value.toString();
}
