#pragma once

#include "EmbeddedCore/ModuleConfiguration.h"
#include "condition/ConditionRecord.h"

#include <QObject>
#include <QPointer>
#include <QTimer>
#include <QWidget>

#include <optional>

class CoreSession;

/// The module that the window shows, and what is stored for it; read again after commands.
class CurrentModule : public QObject
{
    Q_OBJECT

public:
    /// The session must outlive it.
    explicit CurrentModule(CoreSession& session, QObject* parent = nullptr);

    /// The panel may be null and may go.
    void set(unsigned int id, QWidget* panel);
    /// Reads what is stored and reports it.
    void refresh();

    CoreSession& session() const { return m_session; }
    unsigned int id() const { return m_id; }
    QWidget* panel() const { return m_panel; }
    /// Nothing, and a sentence in error(), when it can't be read.
    const std::optional<ModuleConfiguration>& configuration() const { return m_configuration; }
    const QString& error() const { return m_error; }
    /// What the panel shows; nothing while none is visible.
    std::optional<QList<ConditionRecord>> shown() const;

signals:
    /// Another module; once after the commands of an action; and while an edit is not finished.
    void changed();

private:
    /// Whether the panel shows other conditions than when this was last called.
    bool rememberShown();

    CoreSession& m_session;
    unsigned int m_id = 0;
    QPointer<QWidget> m_panel;
    std::optional<ModuleConfiguration> m_configuration;
    QString m_error;
    QTimer m_refresh;
    QTimer m_watch;
    /// As a list's text.
    QString m_shown;
};
