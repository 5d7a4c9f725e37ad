#pragma once

#include "CurrentModule.h"
#include "commands/CommandTap.h"

#include <QLabel>
#include <QMap>

/// The line under a panel: says what of it is not stored, and why, until shown and stored agree again. Else
/// it says what to do next.
class StoredStatus : public QLabel
{
    Q_OBJECT

public:
    /// The module must outlive the line.
    explicit StoredStatus(CurrentModule& module, QWidget* parent = nullptr);

private:
    void note(ZelCore::ICommand& command, const CommandEntry& entry);
    void refresh();

    CurrentModule& m_module;
    /// The messages of refused commands by what they were to save or load. What succeeds later goes.
    QMap<QString, QString> m_refused;
};
