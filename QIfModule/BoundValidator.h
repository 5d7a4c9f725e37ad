#pragma once

#include <QValidator>

class QDoubleSpinBox;

/// Takes in a bound's spin box what the box itself takes, and a comma as a decimal point: the field shows the
/// point at once.
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
