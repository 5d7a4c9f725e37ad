#include "BoundValidator.h"

#include <QDoubleSpinBox>

#include <algorithm>

BoundValidator::BoundValidator(const QDoubleSpinBox& spinBox, QObject* parent)
    : QValidator(parent)
    , m_spinBox(spinBox)
{}

QValidator::State BoundValidator::validate(QString& input, int& position) const
{
    const bool isPlain = std::all_of(input.cbegin(), input.cend(), [](QChar c) {
        return (c >= QLatin1Char('0') && c <= QLatin1Char('9')) || c == QLatin1Char('.') ||
               c == QLatin1Char('-') || c == QLatin1Char('+');
    });
    return isPlain ? m_spinBox.validate(input, position) : Invalid;
}

void BoundValidator::fixup(QString& input) const
{
    m_spinBox.fixup(input);
}
