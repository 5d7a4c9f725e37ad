#pragma once

#include "EmbeddedCore/ModuleConfiguration.h"
#include "judgement/CsvReader.h"

#include <QCoreApplication>
#include <QString>
#include <QVector>

#include <limits>

/// What an If module decides: whether the values of its conditions lie within their bounds, both ends
/// included, and whether the conditions together are met. Bindings are resolved once, then any number of
/// rows is judged.
class Judgement
{
    Q_DECLARE_TR_FUNCTIONS(Judgement)

public:
    enum class Outcome { In, Out, NoValue };

    struct Condition
    {
        QString name;
        QString note;
    };

    /// What came out for one condition of a row.
    struct Result
    {
        Outcome outcome = Outcome::NoValue;
        /// What the condition's three outputs carry; NaN where there is no number.
        double value = std::numeric_limits<double>::quiet_NaN();
        double minimum = value;
        double maximum = value;
        /// Why there is no value, or no bound; empty for the other outcomes.
        QString problem;

        /// The outcome in words, "17.99 is above 15".
        QString reason() const;
    };

    /// Judges rows of a table, or without one (null) the sample values that the flow gives. Throws CoreError
    /// when the table lacks a column.
    Judgement(const ModuleConfiguration& configuration, const CsvReader* table);

    /// In the order of the module's list.
    const QVector<Condition>& conditions() const { return m_conditions; }

    /// Whether the module is OK with a row; an empty row where there is no table. One result for each
    /// condition; a condition without a value is not met.
    bool judge(const CsvReader::Row& row, QVector<Result>* results) const;

    /// A number as it is shown, in at most 15 digits; empty for a NaN.
    static QString numberText(double number);

private:
    /// Where a number comes from: a constant, a column, or nowhere.
    struct Operand
    {
        double constant = std::numeric_limits<double>::quiet_NaN();
        /// -1 when it does not come from a table.
        int column = -1;
        /// Why it comes from nowhere.
        QString problem;
        /// What it is, in front of a problem; empty for the value under test.
        QString what;
    };
    struct Operands
    {
        Operand value;
        Operand minimum;
        Operand maximum;
    };

    static Operand resolved(const ModuleBinding* binding, const CsvReader* table, const QString& what);
    static double numberOf(const Operand& operand, const CsvReader::Row& row, QString* problem);

    QVector<Condition> m_conditions;
    /// One for each condition.
    QVector<Operands> m_operands;
    bool m_needsAll = false;
};
