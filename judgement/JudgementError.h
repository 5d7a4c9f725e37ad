#pragma once

#include <QString>

#include <stdexcept>

/// Why values can't be judged, a sentence for the user. Thrown inside judgement/ only: SampleRun reports it
/// as a text.
class JudgementError : public std::runtime_error
{
public:
    explicit JudgementError(const QString& text)
        : std::runtime_error(text.toStdString())
    {}

    QString text() const { return QString::fromUtf8(what()); }
};
