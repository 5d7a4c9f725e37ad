#include "commands/CommandText.h"

#include "ZelCommon/Catalogue.h"

#include <algorithm>
#include <iterator>

using namespace ZelCore;

namespace {

const QString nothing = QStringLiteral("(null)");

template <std::size_t N>
QString nameIn(const char (&field)[N])
{
    return CommandText::visible(TextOf(field));
}

QString visible(const char* data, UInt length, std::size_t longest)
{
    return data ? CommandText::visible({data, length}, longest) : nothing;
}

QString flagsOf(const IO_EXTRA_DATA__& extraData)
{
    const auto* const flags = reinterpret_cast<const char*>(&extraData);
    QString text;
    std::transform(flags, flags + sizeof extraData, std::back_inserter(text),
                   [](char flag) { return QLatin1Char(flag ? '1' : '0'); });
    return text;
}

QString typesOf(const SUBSCRIBE_CONDITION__& condition)
{
    QString text = QStringLiteral("range=%1 types=%2").arg(condition.ModuleRange).arg(condition.VarTypeNum);
    const auto count = std::min<std::size_t>(condition.VarTypeNum, std::size(condition.VauleTypes));
    for (std::size_t i = 0; i < count; ++i) {
        text += QLatin1Char(' ') + nameIn(condition.VauleTypes[i]);
    }
    return text;
}

void read(const AddIOCommand& command, CommandText& text, std::size_t)
{
    text.module = command.ModuleID;
    text.content = QStringLiteral("class=%1 ").arg(command.IoClass);
    if (!command.IOInfo) {
        text.content += nothing;
        return;
    }
    text.parameter = nameIn(command.IOInfo->ParamName);
    text.content += QStringLiteral("type=%1 flags=%2")
                        .arg(nameIn(command.IOInfo->VauleType), flagsOf(command.IOInfo->ExtraData));
}

template <typename Named>
void readName(const Named& named, CommandText& text)
{
    text.module = named.ModuleID;
    text.parameter = nameIn(named.ParamName);
}

void read(const SetRunParamCommand& command, CommandText& text, std::size_t longest)
{
    readName(command, text);
    text.content = CommandText::visible(TextOf(command.Val), longest);
    text.isValue = true;
}

// One that sets bytes.
template <typename Command>
auto read(const Command& command, CommandText& text, std::size_t longest) -> decltype(void(command.Data))
{
    readName(command, text);
    text.content = visible(command.Data, command.DataLen, longest);
    text.isValue = true;
}

void read(const DeleteUIDataCommand& command, CommandText& text, std::size_t)
{
    readName(command, text);
}

void readCondition(const SUBSCRIBE_CONDITION__& condition, CommandText& text)
{
    text.module = condition.ModuleID;
    text.content = typesOf(condition);
}

void readCondition(const UI_OBJECT_PARAM_INFO_CONDITION__& condition, CommandText& text)
{
    text.module = condition.ObjectID;
    text.parameter = nameIn(condition.ParamName);
}

template <typename Condition>
void readCondition(const Condition& condition, CommandText& text)
{
    readName(condition, text);
}

template <typename Condition, typename Result>
void read(const QueryCommand<Condition, Result>& query, CommandText& text, std::size_t)
{
    if (query.Condition) {
        readCondition(*query.Condition, text);
    } else {
        text.content = nothing;
    }
}

void read(const FilterSourceCommand& command, CommandText& text, std::size_t longest)
{
    const FilterSourceTarget& target = command.Target;
    text.module = target.ModuleID;
    text.parameter =
        QStringLiteral("%1/%2").arg(target.Type).arg(CommandText::visible(target.Key.toStdString()));
    if (const auto* const set = dynamic_cast<const SetFilterSourceCommand*>(&command)) {
        text.content = CommandText::visible(set->SubscribeName.toStdString(), longest);
        text.isValue = true;
    }
}

} // namespace

CommandText CommandText::of(ICommand& command, std::size_t longest)
{
    CommandText text;
    text.kind = QString::fromUtf8(command.Key());
    visitCommand(command, [&text, longest](const auto& typed) { read(typed, text, longest); });
    return text;
}

QStringList CommandText::kinds()
{
    return {QStringLiteral("AddIO"),           QStringLiteral("DelFilterSource"),
            QStringLiteral("DeleteUIData"),    QStringLiteral("GetFilterSource"),
            QStringLiteral("QueryBinaryData"), QStringLiteral("QueryRunParam"),
            QStringLiteral("QueryUIData"),     QStringLiteral("QuerySubscribeTree"),
            QStringLiteral("SetBinaryData"),   QStringLiteral("SetFilterSource"),
            QStringLiteral("SetRunParam"),     QStringLiteral("SetUIData")};
}

QString CommandText::visible(std::string_view bytes, std::size_t longest)
{
    if (bytes.size() > longest) {
        // Not within a character.
        while (longest > 0 && (static_cast<unsigned char>(bytes[longest]) & 0xC0) == 0x80) {
            --longest;
        }
        return QStringLiteral("%1... (%2 bytes)").arg(visible(bytes.substr(0, longest))).arg(bytes.size());
    }
    const QString decoded = QString::fromUtf8(bytes.data(), static_cast<int>(bytes.size()));
    QString text;
    text.reserve(decoded.size());
    for (const QChar c : decoded) {
        if (c.isNull()) {
            text += QLatin1String("\\0");
        } else if (!c.isPrint() && !c.isSurrogate()) {
            text += QStringLiteral("\\u%1").arg(c.unicode(), 4, 16, QLatin1Char('0'));
        } else {
            text += c;
        }
    }
    return text;
}

QString CommandText::line() const
{
    QString text = kind;
    const auto add = [&text](const QString& part, QLatin1Char separator) {
        if (!part.isEmpty()) {
            text += separator + part;
        }
    };
    if (module) {
        add(QString::number(*module), QLatin1Char(' '));
    }
    add(parameter, QLatin1Char(' '));
    if (isValue) {
        text += QLatin1Char('=') + content;
    } else {
        add(content, QLatin1Char(' '));
    }
    return text;
}
