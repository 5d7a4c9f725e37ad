#pragma once

#include "judgement/SampleRun.h"
#include "run/ResultModel.h"
#include "run/ValueSample.h"
#include "ui_RunDock.h"

#include <QElapsedTimer>
#include <QTimer>

#include <memory>

class CurrentModule;

/// Judges sample values by the current module's configuration and shows what came out. Only an If module can
/// be run.
class RunDock : public QWidget
{
    Q_OBJECT

public:
    /// The module must outlive the dock.
    explicit RunDock(const CurrentModule& module, QWidget* parent = nullptr);

    /// Judge the first row, the next one, all of them.
    QList<QAction*> runActions() const;

signals:
    /// A row of the results was chosen; empty when none is, or when the conditions have changed since.
    void resultsChosen(const QVector<Judgement::Result>& results);

private:
    /// What is shown of a condition in addition to its totals.
    struct ConditionValues
    {
        ValueSample values;
        bool hasVaryingBounds = false;
        BoundSpan minimum;
        BoundSpan maximum;
    };

    void setUpTable();
    void chooseFile();
    void addFile(const QString& file);

    void runOnce();
    /// Judges the next row; starts over at the end and when the configuration has changed.
    void step();
    void runAll();
    void cancel();
    /// Forgets the run and what is shown of it.
    void reset();

    bool begin();
    std::unique_ptr<SampleRun> openRun(QString* error) const;
    /// Judges at most so many rows, and for no longer than a screen may stand still; whether there may be
    /// more.
    bool judgeRows(qint64 limit);
    void judgeChunk();
    void followModule();
    void setOutdated(bool isOutdated);
    void chooseResultModel();
    void copyRows();
    void exportResults();
    void showTotals();
    void showCondition();
    void showChosenRow();
    void showProblem(const QString& text);
    void updateButtons();

    const CurrentModule& m_module;
    /// The module that was run.
    unsigned int m_runId = 0;
    std::unique_ptr<SampleRun> m_run;
    ModuleConfiguration m_judgedBy;
    std::vector<ConditionValues> m_values;
    bool m_isAtEnd = false;
    bool m_isOutdated = false;
    QTimer m_timer;
    QElapsedTimer m_sinceShown;
    ResultModel m_results;
    ResultModel m_notOk;
    Ui::RunDock m_ui;
};
