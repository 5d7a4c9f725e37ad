#pragma once

#include <QString>

#include <stdexcept>

/// Why something is refused or fails; a sentence for the user. Thrown and caught inside EmbeddedCore,
/// judgement/ and ConditionsFile; what these offer to others returns the sentence as a text.
class TextError : public std::runtime_error
{
public:
    explicit TextError(const QString& text)
        : std::runtime_error(text.toStdString())
    {}

    QString text() const { return QString::fromUtf8(what()); }
};

inline void require(bool condition, const QString& refusal)
{
    if (!condition) {
        throw TextError(refusal);
    }
}

/// What the function returns, or nothing and the sentence that it threw, behind the prefix, in error.
template <typename Function>
auto attempt(QString* error, const Function& function, const QString& prefix = {}) -> decltype(function())
{
    try {
        return function();
    } catch (const TextError& failure) {
        *error = prefix + failure.text();
        return {};
    }
}
