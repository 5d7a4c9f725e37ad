#include "run/RunDock.h"

#include "CoreSession.h"
#include "CurrentModule.h"
#include "LanguageChange.h"
#include "TabSeparated.h"
#include "WorkbenchApplication.h"
#include "condition/ConditionName.h"
#include "inspector/ModuleInspection.h"
#include "judgement/IfConfiguration.h"
#include "judgement/ResultCsv.h"

#include <QClipboard>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QGuiApplication>
#include <QProgressDialog>
#include <QSaveFile>
#include <QSignalBlocker>

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

constexpr int chunkMilliseconds = 15;
constexpr int showMilliseconds = 100;
constexpr int progressDelay = 300; // ms

// The samples that come with a flow are in its folder and have its name.
QString samplesOf(const QString& flowFile)
{
    const QFileInfo flow(flowFile);
    return flow.dir().filePath(flow.completeBaseName() + QStringLiteral(".csv"));
}

// The column titles of conditions: name and note, and the source below.
QStringList titlesOf(const QVector<Judgement::Condition>& conditions,
                     const ModuleConfiguration& configuration)
{
    QStringList titles;
    for (const Judgement::Condition& condition : conditions) {
        titles << QStringLiteral("%1  %2").arg(condition.name, condition.note).trimmed() + QLatin1Char('\n') +
                      IfConfiguration::sourceOf(configuration, ZelCore::SUBSCRIBE_TYPE_IO,
                                                ConditionName::inputIo(condition.name));
    }
    return titles;
}

} // namespace

RunDock::RunDock(const CurrentModule& module, QWidget* parent)
    : QWidget(parent)
    , m_module(module)
{
    m_ui.setupUi(this);
    const QString samples = samplesOf(module.session().flowFile());
    if (QFileInfo::exists(samples)) {
        addFile(samples);
    }
    m_ui.runOnceButton->setDefaultAction(m_ui.onceAction);
    m_ui.stepButton->setDefaultAction(m_ui.stepAction);
    m_ui.runAllButton->setDefaultAction(m_ui.allAction);
    setUpTable();

    // Chunks of rows between the events of the window.
    m_timer.setInterval(0);
    connect(&m_timer, &QTimer::timeout, this, &RunDock::judgeChunk);
    connect(m_ui.sourceBox, QOverload<int>::of(&QComboBox::currentIndexChanged), this, &RunDock::reset);
    connect(m_ui.conditionBox, QOverload<int>::of(&QComboBox::currentIndexChanged), this, [this] {
        showCondition();
        showChosenRow();
    });
    connect(m_ui.browseButton, &QPushButton::clicked, this, &RunDock::chooseFile);
    connect(m_ui.onceAction, &QAction::triggered, this, &RunDock::runOnce);
    connect(m_ui.stepAction, &QAction::triggered, this, &RunDock::step);
    connect(m_ui.allAction, &QAction::triggered, this, &RunDock::runAll);
    connect(m_ui.cancelButton, &QPushButton::clicked, this, &RunDock::cancel);
    connect(m_ui.exportButton, &QPushButton::clicked, this, &RunDock::exportResults);
    connect(&module, &CurrentModule::changed, this, &RunDock::followModule);
    new LanguageChange(this, [this] {
        m_ui.retranslateUi(this);
        showTotals();
    });
    reset();
}

void RunDock::setUpTable()
{
    QTableView* const table = m_ui.resultTable;
    table->verticalHeader()->setDefaultSectionSize(table->fontMetrics().height() + 4);
    // Columns are fitted to the rows in sight, not to all.
    table->horizontalHeader()->setResizeContentsPrecision(0);
    connect(m_ui.copyAction, &QAction::triggered, this, &RunDock::copyRows);
    connect(m_ui.onlyNotOk, &QCheckBox::toggled, this, &RunDock::chooseResultModel);
    chooseResultModel();
}

void RunDock::chooseResultModel()
{
    const std::unique_ptr<QItemSelectionModel> former(m_ui.resultTable->selectionModel());
    m_ui.resultTable->setModel(m_ui.onlyNotOk->isChecked() ? &m_notOk : &m_results);
    connect(m_ui.resultTable->selectionModel(), &QItemSelectionModel::currentChanged, this,
            &RunDock::showChosenRow);
    m_ui.resultTable->resizeColumnsToContents();
    showTotals();
    showChosenRow();
}

void RunDock::copyRows()
{
    QModelIndexList rows = m_ui.resultTable->selectionModel()->selectedRows();
    std::sort(rows.begin(), rows.end());
    QGuiApplication::clipboard()->setText(TabSeparated::textOf(*m_ui.resultTable->model(), rows, true));
}

void RunDock::showChosenRow()
{
    const QModelIndex index = m_ui.resultTable->currentIndex();
    const auto* const model = static_cast<const ResultModel*>(m_ui.resultTable->model());
    const QVector<Judgement::Result> results =
        index.isValid() && !m_isOutdated ? model->row(index.row()).results : QVector<Judgement::Result>();
    const int condition = m_ui.conditionBox->currentIndex();
    m_ui.histogram->mark(condition >= 0 && condition < results.size() ? results[condition].value
                                                                      : std::nan(""));
    emit resultsChosen(results);
}

QList<QAction*> RunDock::runActions() const
{
    return {m_ui.onceAction, m_ui.stepAction, m_ui.allAction};
}

void RunDock::chooseFile()
{
    const QString current = m_ui.sourceBox->currentData().toString();
    const QString file = QFileDialog::getOpenFileName(
        this, tr("Sample values"), current.isEmpty() ? m_module.session().flowFile() : current,
        tr("Comma-separated values (*.csv);;All files (*)"));
    if (!file.isEmpty()) {
        addFile(file);
    }
}

void RunDock::addFile(const QString& file)
{
    int index = m_ui.sourceBox->findData(file);
    if (index < 0) {
        index = m_ui.sourceBox->count();
        m_ui.sourceBox->addItem(QFileInfo(file).fileName(), file);
        m_ui.sourceBox->setItemData(index, QFileInfo(file).absoluteFilePath(), Qt::ToolTipRole);
    }
    m_ui.sourceBox->setCurrentIndex(index);
}

void RunDock::runOnce()
{
    if (begin()) {
        judgeRows(1);
    }
}

void RunDock::step()
{
    if ((m_run && !m_isAtEnd && !m_isOutdated) || begin()) {
        judgeRows(1);
    }
}

void RunDock::runAll()
{
    if (begin()) {
        m_timer.start();
        updateButtons();
    }
}

void RunDock::cancel()
{
    m_timer.stop();
    showCondition();
    updateButtons();
}

void RunDock::reset()
{
    m_timer.stop();
    m_run.reset();
    m_isAtEnd = false;
    m_results.begin({});
    m_notOk.begin({});
    m_ui.conditionBox->clear();
    m_ui.runProgress->setValue(0);
    showProblem(QString());
    setOutdated(false);
    updateButtons();
}

bool RunDock::begin()
{
    const QString shown = m_ui.conditionBox->currentText();
    reset();
    QString error;
    m_run = openRun(&error);
    showProblem(error);
    if (!m_run) {
        return false;
    }
    m_runId = m_module.id();
    m_judgedBy = *m_module.configuration();
    const auto& conditions = m_run->conditions();
    m_values = std::vector<ConditionValues>(static_cast<std::size_t>(conditions.size()));
    for (std::size_t i = 0; i < m_values.size(); ++i) {
        const auto comesFromTable = [&](Judgement::OperandKind kind) {
            return !m_run->judgement().operand(static_cast<int>(i), kind).column.isEmpty();
        };
        m_values[i].hasVaryingBounds =
            comesFromTable(Judgement::Minimum) || comesFromTable(Judgement::Maximum);
    }
    const QStringList titles = titlesOf(conditions, m_judgedBy);
    m_results.begin(titles);
    m_notOk.begin(titles);
    const QSignalBlocker blocker(m_ui.conditionBox);
    for (const QString& title : titles) {
        m_ui.conditionBox->addItem(title.section(QLatin1Char('\n'), 0, 0));
    }
    m_ui.conditionBox->setCurrentIndex(std::max(m_ui.conditionBox->findText(shown), 0));
    m_sinceShown.start();
    return true;
}

std::unique_ptr<SampleRun> RunDock::openRun(QString* error) const
{
    const QString file = m_ui.sourceBox->currentData().toString();
    *error = m_module.configuration() ? WorkbenchApplication::refusal(file) : m_module.error();
    if (!error->isEmpty()) {
        return nullptr;
    }
    return SampleRun::open(*m_module.configuration(), file.isEmpty() ? QStringList() : QStringList(file),
                           error);
}

bool RunDock::judgeRows(qint64 limit)
{
    QElapsedTimer timer;
    timer.start();
    QVector<ResultModel::Row> rows;
    QVector<ResultModel::Row> notOk;
    QString error;
    const bool wasEmpty = m_ui.resultTable->model()->rowCount() == 0;
    const Judgement& judgement = m_run->judgement();
    auto step = SampleRun::Step::Judged;
    constexpr int rowsBetweenLooks = 64; // at the clock
    for (qint64 i = 0; i < limit && (i % rowsBetweenLooks != 0 || !timer.hasExpired(chunkMilliseconds));
         ++i) {
        step = m_run->next(&error);
        if (step != SampleRun::Step::Judged) {
            m_isAtEnd = true;
            break;
        }
        for (int condition = 0; condition < m_run->conditions().size(); ++condition) {
            ConditionValues& values = m_values[static_cast<std::size_t>(condition)];
            const double value = judgement.number(condition, Judgement::Value);
            if (!std::isnan(value)) {
                values.values.add(value);
            }
            if (m_run->rows() == 1 || values.hasVaryingBounds) {
                values.minimum.include(judgement.number(condition, Judgement::Minimum));
                values.maximum.include(judgement.number(condition, Judgement::Maximum));
            }
        }
        const bool isShown = rows.size() < m_results.room();
        const bool isShownAsNotOk = !m_run->isOk() && notOk.size() < m_notOk.room();
        if (isShown || isShownAsNotOk) {
            const ResultModel::Row row = {m_run->rows(), m_run->line(), m_run->isOk(), m_run->results()};
            rows.insert(rows.size(), isShown, row);
            notOk.insert(notOk.size(), isShownAsNotOk, row);
        }
    }
    m_results.append(rows);
    m_notOk.append(notOk);
    if (wasEmpty) {
        m_ui.resultTable->resizeColumnsToContents();
    }
    if (!m_timer.isActive() || m_isAtEnd || m_sinceShown.hasExpired(showMilliseconds)) {
        const double progress = step == SampleRun::Step::AtEnd ? 1.0 : m_run->progress();
        m_ui.runProgress->setValue(static_cast<int>(progress * m_ui.runProgress->maximum()));
        showProblem(error);
        showTotals();
        m_sinceShown.start();
    }
    return !m_isAtEnd;
}

void RunDock::judgeChunk()
{
    if (!judgeRows(std::numeric_limits<qint64>::max())) {
        cancel();
    }
}

void RunDock::followModule()
{
    if (m_runId != m_module.id()) {
        m_runId = m_module.id();
        reset();
    }
    const auto& now = m_module.configuration();
    const bool isOutdated = m_run && !(now && ModuleInspection::judgeAlike(m_judgedBy, *now));
    if (isOutdated != m_isOutdated) {
        setOutdated(isOutdated);
    }
}

void RunDock::setOutdated(bool isOutdated)
{
    m_isOutdated = isOutdated;
    m_ui.runTotals->setStyleSheet(isOutdated ? QStringLiteral("color: #b02020") : QString());
    m_ui.resultTable->setStyleSheet(isOutdated ? QStringLiteral("QTableView { background: #e4e4e4 }")
                                               : QString());
    showTotals();
    showChosenRow();
}

void RunDock::exportResults()
{
    const QString name = WorkbenchApplication::fileToSave(
        this, tr("Export results"), QStringLiteral("results.csv"), tr("Comma-separated values (*.csv)"));
    QString error;
    const auto run = name.isEmpty() ? nullptr : openRun(&error);
    if (!run) {
        showProblem(error);
        return;
    }
    QSaveFile file(name);
    QProgressDialog progress(tr("Exporting results…"), tr("Cancel"), 0, m_ui.runProgress->maximum(), this);
    progress.setWindowModality(Qt::WindowModal);
    progress.setMinimumDuration(progressDelay); // until then the window stands still
    const ResultCsv csv(*run);
    QByteArray rows;
    csv.appendHeader(&rows);
    QElapsedTimer timer;
    timer.start();
    bool isWritten = file.open(QIODevice::WriteOnly);
    while (isWritten && !progress.wasCanceled() && run->next(&error) == SampleRun::Step::Judged) {
        csv.appendRow(&rows);
        if (timer.hasExpired(chunkMilliseconds)) {
            isWritten = file.write(rows) >= 0;
            rows.clear();
            progress.setValue(static_cast<int>(run->progress() * (progress.maximum() - 1)));
            timer.start();
        }
    }
    isWritten = isWritten && file.write(rows) >= 0;
    if (progress.wasCanceled()) {
        return;
    }
    if (error.isEmpty() && (!isWritten || !file.commit())) {
        error = tr("The file %1 can't be written: %2").arg(name, file.errorString());
    }
    showProblem(error);
}

void RunDock::showTotals()
{
    QStringList parts = {m_run ? m_run->summary() : tr("nothing judged yet")};
    if (m_run && m_run->conditions().isEmpty()) {
        parts = QStringList(tr("%1 rows, no conditions").arg(m_run->rows()));
    }
    const qint64 wanted = !m_run ? 0 : m_run->rows() - (m_ui.onlyNotOk->isChecked() ? m_run->okRows() : 0);
    if (wanted > ResultModel::capacity) {
        parts << tr("the table shows the first %1").arg(ResultModel::capacity);
    }
    if (m_isAtEnd && m_run) {
        parts << tr("no further rows");
    }
    if (m_isOutdated) {
        parts << tr("outdated: the conditions have changed");
    }
    m_ui.runTotals->setText(parts.join(QStringLiteral("; ")));
    showCondition();
}

void RunDock::showCondition()
{
    const int index = m_ui.conditionBox->currentIndex();
    if (!m_run || index < 0 || m_run->rows() == 0) {
        m_ui.conditionTotals->clear();
        m_ui.histogram->clear();
        m_ui.statistics->clear();
        return;
    }
    const SampleRun::ConditionTotals& totals = m_run->totals(index);
    const ConditionValues& values = m_values[static_cast<std::size_t>(index)];
    m_ui.conditionTotals->setText(totals.summary());
    m_ui.histogram->setValues(totals.values, values.minimum, values.maximum);
    QStringList statistics;
    const std::pair<QString, double> quantiles[] = {{tr("minimum"), 0.0},
                                                    {tr("1 %"), 0.01},
                                                    {tr("median"), 0.5},
                                                    {tr("99 %"), 0.99},
                                                    {tr("maximum"), 1.0}};
    for (const auto& [what, part] : quantiles) {
        if (!totals.values.isEmpty() && !m_timer.isActive()) {
            // The sample may lack the ends.
            const double value = part == 0.0   ? totals.values.minimum()
                                 : part == 1.0 ? totals.values.maximum()
                                               : values.values.quantile(part);
            statistics << QStringLiteral("%1 %2").arg(what, QString::number(value, 'g', 6));
        }
    }
    m_ui.statistics->setText(statistics.join(QStringLiteral(", ")));
}

void RunDock::showProblem(const QString& text)
{
    m_ui.runProblem->setText(text);
    m_ui.runProblem->setVisible(!text.isEmpty());
}

void RunDock::updateButtons()
{
    const FlowModule* const module = m_module.session().flow().module(m_module.id());
    const bool canRun = module && module->kind == Flow::ifKind() && !m_timer.isActive();
    for (QAction* const action : {m_ui.onceAction, m_ui.stepAction, m_ui.allAction}) {
        action->setEnabled(canRun);
    }
    m_ui.exportButton->setEnabled(canRun);
    m_ui.cancelButton->setEnabled(m_timer.isActive());
}
