#pragma once

#include <QCoreApplication>
#include <QString>
#include <QStringList>
#include <QVector>

#include <optional>

/// A fault to be made on purpose: which commands it strikes, when, and what they answer.
struct Fault
{
    enum class Answer { Failed, NothingChanged, Exception, Delay };

    /// A kind of the catalogue; empty for any.
    QString kind;
    /// The command's parameter; empty for any.
    QString parameter;
    /// The number of the command among these, from 1; 0 for every one.
    int number = 1;
    Answer answer = Answer::Failed;
    /// What the answer or the exception says.
    QString message;

    /// All in one line, as FaultPlan::parse() reads it.
    QString text() const;
};

/// The faults that are armed. One that has struck its command is spent, unless it strikes every one.
class FaultPlan
{
    Q_DECLARE_TR_FUNCTIONS(FaultPlan)

public:
    /// Words for answers, as text() and parse() have them; in the order of the enumeration.
    static QStringList answers();

    /// Reads "kind=SetBinaryData,parameter=IFText,when=next,answer=Failed,message=disk full". Every part may
    /// be left out; when is "next", "every" or a number from 1; the message is last and may hold commas.
    /// Nothing, and a sentence in error, for anything else.
    static std::optional<Fault> parse(const QString& text, QString* error);

    void arm(const Fault& fault);
    void disarm();
    bool isArmed() const { return !m_armed.isEmpty(); }
    QVector<Fault> faults() const;

    /// The fault that strikes a command that is about to be executed. Counts the command.
    std::optional<Fault> take(const QString& kind, const QString& parameter);

private:
    struct Armed
    {
        Fault fault;
        int seen = 0;
    };
    QVector<Armed> m_armed;
};
