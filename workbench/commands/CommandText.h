#pragma once

#include "core_client/Enumerations.h"
#include "core_client/ICommandService.h"

#include <QString>
#include <QStringList>

#include <cstddef>
#include <limits>
#include <optional>
#include <string_view>

/// What a command says, in words for logs and people. Nothing in it is translated.
struct CommandText
{
    static constexpr std::size_t unlimited = std::numeric_limits<std::size_t>::max();

    /// Reads a command, whatever is null in it. Of one that is not in the catalogue only the kind is known.
    /// A content of more than longest bytes is cut as by visible().
    static CommandText of(ZelCore::ICommand& command, std::size_t longest = unlimited);

    /// The kinds of the catalogue.
    static QStringList kinds();

    /// UTF-8 bytes as one line of text: what can't be shown is escaped, \0 for a NUL, \u000a for a line feed.
    /// More than longest bytes are cut there, and their number follows.
    static QString visible(std::string_view bytes, std::size_t longest = unlimited);

    /// All in one line: "SetRunParam 7 LogicalMode=2".
    QString line() const;

    QString kind;
    std::optional<ZelCore::UInt> module;
    /// The name of the parameter or IO. Before the key of a binding stands what it feeds: "0/" for a run
    /// parameter, "1/" for an IO.
    QString parameter;
    /// What the command carries in addition; empty for most queries.
    QString content;
    /// The content is the parameter's new value.
    bool isValue = false;
};
