#pragma once

#include <QValidator>

class QDoubleSpinBox;

/// Takes only plain decimal numbers in a bound's spin box, "-12.5", as the box takes them. A comma is
/// refused: some read it as the decimal point and some as grouping, so no reading of it is safe.
class BoundValidator : public QValidator
{
    Q_OBJECT

public:
    /// Belongs to the spin box's line edit.
    BoundValidator(const QDoubleSpinBox& spinBox, QObject* parent);

    State validate(QString& input, int& position) const override;
    void fixup(QString& input) const override;

private:
    const QDoubleSpinBox& m_spinBox;
};
