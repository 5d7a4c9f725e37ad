#include "inspector/ConfigurationJson.h"

#include "EmbeddedCore/StoredWords.h"

#include <QJsonArray>

namespace ConfigurationJson {

namespace {

QJsonValue jsonOf(const QByteArray& bytes)
{
    const QString text = QString::fromUtf8(bytes.constData(), bytes.size()); // a NUL belongs to it
    if (text.toUtf8() == bytes) {
        return text;
    }
    return QJsonObject{{QStringLiteral("base64"), QString::fromLatin1(bytes.toBase64())}};
}

QJsonObject jsonOf(const QMap<QString, QByteArray>& values)
{
    QJsonObject object;
    for (auto it = values.cbegin(); it != values.cend(); ++it) {
        object.insert(it.key(), jsonOf(it.value()));
    }
    return object;
}

QJsonObject jsonOf(const ModuleIo& io)
{
    QJsonObject flags;
    for (const auto& [word, flag] : StoredWords::ioFlags) {
        flags.insert(QLatin1String(word), io.flags.*flag);
    }
    return {{QStringLiteral("name"), io.name},
            {QStringLiteral("class"), StoredWords::of(io.ioClass)},
            {QStringLiteral("type"), io.valueType},
            {QStringLiteral("flags"), flags}};
}

QJsonObject jsonOf(const ModuleBinding& binding)
{
    QJsonObject object = {{QStringLiteral("kind"), StoredWords::of(binding.target.Type)},
                          {QStringLiteral("key"), binding.target.Key},
                          {QStringLiteral("source"), binding.source},
                          {QStringLiteral("value"), binding.value}};
    if (!binding.missing.isEmpty()) {
        object.insert(QStringLiteral("missing"), binding.missing);
    }
    return object;
}

template <typename Item>
QJsonArray jsonOf(const QVector<Item>& items)
{
    QJsonArray array;
    for (const Item& item : items) {
        array << jsonOf(item);
    }
    return array;
}

} // namespace

QJsonObject of(const ModuleConfiguration& configuration)
{
    return {{QStringLiteral("binaryData"), jsonOf(configuration.binaryData)},
            {QStringLiteral("runParameters"), jsonOf(configuration.runParameters)},
            {QStringLiteral("uiData"), jsonOf(configuration.uiData)},
            {QStringLiteral("ios"), jsonOf(configuration.ios)},
            {QStringLiteral("bindings"), jsonOf(configuration.bindings)}};
}

} // namespace ConfigurationJson
