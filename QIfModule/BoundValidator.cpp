#include "BoundValidator.h"

#include <QDoubleSpinBox>

BoundValidator::BoundValidator(const QDoubleSpinBox& spinBox, QObject* parent)
    : QValidator(parent)
    , m_spbBound(spinBox)
{}

QValidator::State BoundValidator::validate(QString& input, int& position) const
{
    input.replace(QLatin1Char(','), QLatin1Char('.'));
    return m_spbBound.validate(input, position);
}
