#pragma once

#include "EmbeddedCore/ModuleConfiguration.h"
#include "judgement/CsvReader.h"

#include <QCoreApplication>
#include <QString>
#include <QVector>

#include <limits>
#include <vector>

/// What an If module decides: whether the values of its conditions lie within their bounds, both ends
/// included, and whether the conditions together are met. Bindings are resolved once, then any number of
/// rows is judged, without an allocation for a row.
class Judgement
{
    Q_DECLARE_TR_FUNCTIONS(Judgement)

public:
    enum class Outcome : quint8 { In, Out, NoValue };

    struct Condition
    {
        QString name;
        QString note;
    };

    /// Each condition has three operands, in this order.
    enum OperandKind { Value, Minimum, Maximum, OperandCount };

    /// Where a number comes from: a constant, a column, or nowhere.
    struct Operand
    {
        /// NaN when it comes from a column or from nowhere.
        double constant = std::numeric_limits<double>::quiet_NaN();
        /// Empty when it does not come from a table.
        QString column;
        /// Why it comes from nowhere; empty for the others.
        QString problem;
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

    /// Judges a table, or without one the sample values that the flow gives.
    Judgement(const ModuleConfiguration& configuration, bool hasTable);

    /// In the order of the module's list.
    const QVector<Condition>& conditions() const { return m_conditions; }
    bool needsAll() const { return m_needsAll; }
    const Operand& operand(int condition, OperandKind kind) const
    {
        return m_operands[indexOf(condition, kind)];
    }

    /// Judges the rows of this table from now on, which must outlive the judgement. Throws TextError when it
    /// lacks a column.
    void setTable(CsvReader* table);

    /// Whether the module is OK with the table's present row, or with the sample values. A condition without
    /// a value is not met.
    bool judge();

    /// Of what was judged last.
    Outcome outcome(int condition) const
    {
        const auto i = static_cast<std::size_t>(condition);
        return m_isIn[i] ? Outcome::In : m_hasValues[i] ? Outcome::Out : Outcome::NoValue;
    }
    double number(int condition, OperandKind kind) const { return m_numbers[indexOf(condition, kind)]; }
    /// The table must still be at the row that was judged.
    Result result(int condition) const;

    /// Writes a number as it is shown, in at most 15 digits, nothing for a NaN; returns the end. There must
    /// be room for longestNumber characters.
    static constexpr int longestNumber = 32;
    static char* writeNumber(double number, char* to);
    static QString numberText(double number);

private:
    struct Source
    {
        int column;
        std::size_t operand;
    };

    static std::size_t indexOf(int condition, OperandKind kind)
    {
        return static_cast<std::size_t>(condition) * OperandCount + kind;
    }

    QVector<Condition> m_conditions;
    bool m_needsAll = false;
    CsvReader* m_table = nullptr;
    /// For each condition three.
    std::vector<Operand> m_operands;
    std::vector<double> m_numbers;
    std::vector<char> m_hasNumber;
    /// The operands that come from columns.
    std::vector<Source> m_sources;
    /// The outcomes, a bit for each condition.
    std::vector<bool> m_isIn;
    std::vector<bool> m_hasValues;
};
