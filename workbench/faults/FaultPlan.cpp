#include "faults/FaultPlan.h"

#include "commands/CommandText.h"

namespace {

const QString next = QStringLiteral("next");
const QString every = QStringLiteral("every");
const QString messagePart = QStringLiteral("message=");

} // namespace

QString Fault::text() const
{
    QStringList parts;
    if (!kind.isEmpty()) {
        parts << QStringLiteral("kind=") + kind;
    }
    if (!parameter.isEmpty()) {
        parts << QStringLiteral("parameter=") + parameter;
    }
    parts << QStringLiteral("when=") + (number == 0 ? every : number == 1 ? next : QString::number(number));
    parts << QStringLiteral("answer=") + FaultPlan::answers().at(static_cast<int>(answer));
    if (!message.isEmpty()) {
        parts << messagePart + message;
    }
    return parts.join(QLatin1Char(','));
}

QStringList FaultPlan::answers()
{
    return {QStringLiteral("Failed"), QStringLiteral("NothingChanged"), QStringLiteral("Exception"),
            QStringLiteral("Delay")};
}

std::optional<Fault> FaultPlan::parse(const QString& text, QString* error)
{
    Fault fault;
    const auto refuse = [&](const QString& why) {
        *error = tr("The fault '%1' is not understood: %2").arg(text, why);
        return std::nullopt;
    };
    for (int begin = 0; begin < text.size();) {
        int end = text.indexOf(QLatin1Char(','), begin);
        if (end < 0 || text.midRef(begin).startsWith(messagePart)) {
            end = text.size();
        }
        const QString part = text.mid(begin, end - begin);
        const QString key = part.section(QLatin1Char('='), 0, 0);
        const QString value = part.section(QLatin1Char('='), 1);
        begin = end + 1;
        if (key == QLatin1String("kind")) {
            if (!CommandText::kinds().contains(value)) {
                return refuse(tr("kind is one of %1").arg(CommandText::kinds().join(QStringLiteral(", "))));
            }
            fault.kind = value;
        } else if (key == QLatin1String("parameter")) {
            fault.parameter = value;
        } else if (key == QLatin1String("when")) {
            bool isNumber = false;
            const int number = value.toInt(&isNumber);
            if (value != next && value != every && (!isNumber || number < 1)) {
                return refuse(tr("when is next, every or a number from 1"));
            }
            fault.number = value == next ? 1 : value == every ? 0 : number;
        } else if (key == QLatin1String("answer")) {
            const int index = answers().indexOf(value);
            if (index < 0) {
                return refuse(tr("answer is one of %1").arg(answers().join(QStringLiteral(", "))));
            }
            fault.answer = static_cast<Fault::Answer>(index);
        } else if (key == QLatin1String("message")) {
            fault.message = value;
        } else {
            return refuse(tr("its parts are kind, parameter, when, answer and message"));
        }
    }
    return fault;
}

void FaultPlan::arm(const Fault& fault)
{
    m_armed << Armed{fault, 0};
}

void FaultPlan::disarm()
{
    m_armed.clear();
}

QVector<Fault> FaultPlan::faults() const
{
    QVector<Fault> faults;
    for (const Armed& armed : m_armed) {
        faults << armed.fault;
    }
    return faults;
}

std::optional<Fault> FaultPlan::take(const QString& kind, const QString& parameter)
{
    std::optional<Fault> struck;
    for (int i = 0; i < m_armed.size(); ++i) {
        const Fault fault = m_armed[i].fault;
        if ((!fault.kind.isEmpty() && fault.kind != kind) ||
            (!fault.parameter.isEmpty() && fault.parameter != parameter)) {
            continue;
        }
        const bool isDue = fault.number == 0 || ++m_armed[i].seen >= fault.number;
        if (isDue && !struck) {
            struck = fault;
            if (fault.number != 0) {
                m_armed.removeAt(i--);
            }
        }
    }
    return struck;
}
