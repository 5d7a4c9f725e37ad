#pragma once

#include "judgement/SampleRun.h"
#include "run/ResultModel.h"

#include <QTimer>
#include <QWidget>

#include <memory>

class CoreSession;
class HistogramView;
class QComboBox;
class QLabel;
class QProgressBar;
class QPushButton;
class QTableView;

/// Judges sample values by the current module's configuration and shows what came out. The configuration is
/// read from the core at each press of a button.
class RunDock : public QWidget
{
    Q_OBJECT

public:
    /// The session must outlive the dock.
    explicit RunDock(const CoreSession& session, QWidget* parent = nullptr);

    /// Only an If module can be run.
    void showModule(unsigned int moduleId);

protected:
    void changeEvent(QEvent* event) override;

private:
    void retranslate();
    QWidget* createSourceRow();
    QWidget* createConditionPart();
    void chooseFile();
    void addFile(const QString& file);

    void runOnce();
    /// Judges the next row; starts over at the end and when the configuration has changed.
    void step();
    void runAll();
    void cancel();
    /// Forgets the run and what is shown of it.
    void reset();

    std::optional<ModuleConfiguration> readConfiguration();
    bool begin(const ModuleConfiguration& configuration);
    /// Judges at most so many rows, and for no longer than a screen may stand still; whether there may be
    /// more.
    bool judgeRows(qint64 limit);
    void judgeChunk();
    void showTotals();
    void showCondition();
    void showProblem(const QString& text);
    void updateButtons();

    const CoreSession& m_session;
    unsigned int m_moduleId = 0;
    std::unique_ptr<SampleRun> m_run;
    /// By what the run judges, to tell a change.
    QByteArray m_judgedBy;
    bool m_isAtEnd = false;
    QTimer m_timer;
    ResultModel m_results;

    QComboBox* m_source;
    QPushButton* m_browse;
    QPushButton* m_once;
    QPushButton* m_step;
    QPushButton* m_all;
    QPushButton* m_cancel;
    QProgressBar* m_progress;
    QLabel* m_totals;
    QLabel* m_problem;
    QTableView* m_table;
    QComboBox* m_condition;
    QLabel* m_conditionTotals;
    HistogramView* m_histogram;
};
