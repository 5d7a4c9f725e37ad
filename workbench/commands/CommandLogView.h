#pragma once

#include "commands/CommandLogModel.h"

#include <QSortFilterProxyModel>
#include <QTimer>
#include <QWidget>

class QLineEdit;
class QPushButton;
class QTableView;

/// Shows the commands as they are executed; records only while it is visible and not paused.
class CommandLogView : public QWidget
{
    Q_OBJECT

public:
    /// The tap must outlive the view.
    explicit CommandLogView(CommandTap& tap, QWidget* parent = nullptr);

protected:
    void showEvent(QShowEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void retranslate();
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
    QLineEdit* m_filter;
    QPushButton* m_pause;
    QPushButton* m_clear;
    QPushButton* m_copy;
    QPushButton* m_save;
    QTableView* m_table;
};
