#include "CurrentModule.h"

#include "CoreSession.h"
#include "inspector/ShownConditions.h"

#include <utility>

namespace {
constexpr int watchMilliseconds = 250;
} // namespace

CurrentModule::CurrentModule(CoreSession& session, QObject* parent)
    : QObject(parent)
    , m_session(session)
{
    m_refresh.setSingleShot(true);
    m_refresh.setInterval(0);
    connect(&m_refresh, &QTimer::timeout, this, &CurrentModule::refresh);
    connect(&session.tap(), &CommandTap::executed, this, [this] { m_refresh.start(); });
    // Edits that are not finished cause no command.
    m_watch.callOnTimeout([this] {
        if (rememberShown()) {
            emit changed();
        }
    });
    m_watch.start(watchMilliseconds);
}

void CurrentModule::set(unsigned int id, QWidget* panel)
{
    m_id = id;
    m_panel = panel;
    refresh();
}

void CurrentModule::refresh()
{
    m_refresh.stop();
    m_error.clear();
    m_configuration = m_session.core().configuration(m_id, &m_error);
    rememberShown();
    emit changed();
}

bool CurrentModule::rememberShown()
{
    const auto conditions = shown();
    const QString text = conditions ? ConditionRecord::toText(*conditions) : QString();
    return std::exchange(m_shown, text) != text;
}

std::optional<QList<ConditionRecord>> CurrentModule::shown() const
{
    return m_panel && m_panel->isVisible() ? std::optional(ShownConditions::read(*m_panel)) : std::nullopt;
}
