#pragma once

#include "CurrentModule.h"

#include <QHash>

/// Undoes changes of what is stored for the modules since the flow was opened. A visible panel is not
/// updated.
class UndoHistory : public QObject
{
    Q_OBJECT

public:
    /// Changes of a module.
    static constexpr int longest = 100;

    /// The module must outlive the history.
    explicit UndoHistory(CurrentModule& module, QObject* parent = nullptr);

    bool canUndo() const { return !m_past.value(m_module.id()).isEmpty(); }
    /// Stores what was there before the module's last change. False, and a sentence in error, when the core
    /// refuses it; all is as before then.
    bool undo(QString* error);

signals:
    void changed();

private:
    void note();

    CurrentModule& m_module;
    QHash<unsigned int, ModuleConfiguration> m_present;
    QHash<unsigned int, QVector<ModuleConfiguration>> m_past;
};
