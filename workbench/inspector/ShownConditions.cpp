#include "inspector/ShownConditions.h"

#include "condition/ConditionName.h"

#include <QDoubleSpinBox>
#include <QLabel>
#include <QLineEdit>

QList<ConditionRecord> ShownConditions::read(const QWidget& panel)
{
    // Children come in the order of the rows; every row has a name and a note, and bounds when its name
    // contains a type word.
    const auto names = panel.findChildren<QLabel*>(QStringLiteral("m_labName"));
    const auto notes = panel.findChildren<QLineEdit*>(QStringLiteral("m_ediNote"));
    const auto minima = panel.findChildren<QDoubleSpinBox*>(QStringLiteral("m_spbMinPullBar"));
    const auto maxima = panel.findChildren<QDoubleSpinBox*>(QStringLiteral("m_spbMaxPullBar"));
    QList<ConditionRecord> shown;
    int strip = 0;
    for (int row = 0; row < names.size() && row < notes.size(); ++row) {
        ConditionRecord condition = {names[row]->text(), 0.0, 0.0, notes[row]->text()};
        const bool hasStrip = ConditionName::typeOf(condition.name) != ConditionName::Type::None;
        if (hasStrip && strip < minima.size() && strip < maxima.size()) {
            condition.minimum = minima[strip]->value();
            condition.maximum = maxima[strip]->value();
            ++strip;
        }
        shown << condition;
    }
    return shown;
}
