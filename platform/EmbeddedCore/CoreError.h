#pragma once

#include <QString>

#include <stdexcept>

/// Why the core refuses or fails; a sentence for the user. Never leaves the core.
class CoreError : public std::runtime_error
{
public:
    explicit CoreError(const QString& text)
        : std::runtime_error(text.toStdString())
    {}

    QString text() const { return QString::fromUtf8(what()); }
};

inline void require(bool condition, const QString& refusal)
{
    if (!condition) {
        throw CoreError(refusal);
    }
}
