#pragma once

#include <QValidator>

class QDoubleSpinBox;

/// Accepts what a bound's spin box accepts, and replaces a comma by a decimal point as it is typed.
class BoundValidator : public QValidator
{
    Q_OBJECT

public:
    /// Belongs to the spin box's line edit.
    BoundValidator(const QDoubleSpinBox& spinBox, QObject* parent);

    State validate(QString& input, int& position) const override;

private:
    const QDoubleSpinBox& m_spbBound;
};
