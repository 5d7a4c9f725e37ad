#pragma once

#include "commands/CommandLogModel.h"
#include "ui_CommandLogView.h"

#include <QSortFilterProxyModel>
#include <QTimer>

/// Shows the commands as they are executed; records only while it is visible and not paused.
class CommandLogView : public QWidget
{
    Q_OBJECT

public:
    /// The tap must outlive the view.
    explicit CommandLogView(CommandTap& tap, QWidget* parent = nullptr);

protected:
    void showEvent(QShowEvent* event) override;

private:
    void append(ZelCore::ICommand& command, CommandEntry entry);
    void flush();
    void copy();
    void save();
    /// The rows that are selected, or all that the filter shows; rows of the model.
    QVector<int> chosenRows() const;

    CommandLogModel m_model;
    QSortFilterProxyModel m_filtered;
    // Rows reach the view in batches: what a command costs must not depend on the view.
    QVector<CommandEntry> m_pending;
    QTimer m_flush;
    Ui::CommandLogView m_ui;
};
