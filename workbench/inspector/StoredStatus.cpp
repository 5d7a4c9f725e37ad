#include "inspector/StoredStatus.h"

#include "CoreSession.h"
#include "LanguageChange.h"
#include "inspector/ModuleInspection.h"

namespace {

constexpr int mostLines = 3;

// What a command saves, removes or loads: the same for all three.
QString subjectOf(const CommandText& text)
{
    QString name = text.parameter;
    if (text.kind == QLatin1String("AddIO")) {
        name.prepend(QStringLiteral("%1/").arg(ZelCore::SUBSCRIBE_TYPE_IO));
    }
    // Bindings of an IO are removed by its class.
    return QStringLiteral("%1 %2").arg(text.module.value_or(0)).arg(name.section(QLatin1Char(':'), 0, 0));
}

} // namespace

StoredStatus::StoredStatus(CurrentModule& module, QWidget* parent)
    : QLabel(parent)
    , m_module(module)
{
    setObjectName(QStringLiteral("storedStatus"));
    setTextFormat(Qt::PlainText);
    setTextInteractionFlags(Qt::TextSelectableByMouse);
    setWordWrap(true);
    connect(&module, &CurrentModule::changed, this, &StoredStatus::refresh);
    connect(&module.session().tap(), &CommandTap::executed, this, &StoredStatus::note);
    new LanguageChange(this, [this] { refresh(); });
}

void StoredStatus::note(ZelCore::ICommand& command, const CommandEntry& given)
{
    if (m_refused.isEmpty() && given.status == ZelCore::Success) {
        return;
    }
    CommandEntry entry = given;
    entry.text = CommandText::of(command, 0);
    const QString subject = subjectOf(entry.text);
    if (entry.isWrong()) {
        const QString message = entry.message.isEmpty() ? entry.text.kind : entry.message;
        const bool isQuery = entry.text.kind.startsWith(QLatin1String("Query"));
        const bool isIo = entry.text.kind == QLatin1String("AddIO");
        m_refused[subject] = isIo      ? tr("%1 is not stored: %2").arg(entry.text.parameter, message)
                             : isQuery ? tr("not loaded: %1").arg(message)
                                       : tr("not stored: %1").arg(message);
    } else if (entry.text.kind == QLatin1String("QueryBinaryData")) {
        m_refused.clear(); // a panel loads what is stored
    } else {
        m_refused.remove(subject);
    }
}

void StoredStatus::refresh()
{
    QStringList lines = m_refused.values();
    if (const auto shown = m_module.shown()) {
        lines += m_module.configuration() ? ModuleInspection::differences(*m_module.configuration(), *shown)
                                          : QStringList(m_module.error());
    }
    lines.removeDuplicates();
    setToolTip(lines.join(QLatin1Char('\n')));
    const QString style = lines.isEmpty() ? QString() : QStringLiteral("color: #b02020");
    if (styleSheet() != style) {
        setStyleSheet(style);
    }
    if (lines.isEmpty()) {
        setText(m_module.panel()
                    ? tr("All is stored. Add with +, choose input and bounds, press F9 to judge all rows.")
                    : QString());
        return;
    }
    if (lines.size() > mostLines) {
        lines = lines.mid(0, mostLines - 1) << QStringLiteral("…");
    }
    setText(lines.join(QLatin1Char('\n')));
}
