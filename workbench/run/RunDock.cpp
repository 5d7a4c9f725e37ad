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
#include <QHBoxLayout>
#include <QProgressDialog>
#include <QSaveFile>
#include <QSignalBlocker>
#include <QSplitter>
#include <QToolButton>
#include <QVBoxLayout>

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

constexpr int chunkMilliseconds = 15;
constexpr int showMilliseconds = 100;
constexpr int progressSteps = 1000;
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
    m_totals->setTextInteractionFlags(Qt::TextSelectableByMouse);
    m_problem->setTextInteractionFlags(Qt::TextSelectableByMouse);
    m_problem->setWordWrap(true);
    m_problem->setStyleSheet(QStringLiteral("color: #b02020"));

    auto* const splitter = new QSplitter;
    setUpTable();
    splitter->addWidget(m_table);
    splitter->addWidget(createConditionPart());
    splitter->setStretchFactor(0, 1);
    splitter->setChildrenCollapsible(false);

    auto* const layout = new QVBoxLayout(this);
    layout->addWidget(createSourceRow());
    auto* const totals = new QHBoxLayout;
    totals->addWidget(m_totals);
    totals->addStretch(1);
    totals->addWidget(m_onlyNotOk);
    layout->addLayout(totals);
    layout->addWidget(m_problem);
    layout->addWidget(splitter, 1);

    // Chunks of rows between the events of the window.
    m_timer.setInterval(0);
    connect(&m_timer, &QTimer::timeout, this, &RunDock::judgeChunk);
    connect(m_source, QOverload<int>::of(&QComboBox::currentIndexChanged), this, &RunDock::reset);
    connect(m_condition, QOverload<int>::of(&QComboBox::currentIndexChanged), this, [this] {
        showCondition();
        showChosenRow();
    });
    connect(m_browse, &QPushButton::clicked, this, &RunDock::chooseFile);
    connect(m_once, &QAction::triggered, this, &RunDock::runOnce);
    connect(m_step, &QAction::triggered, this, &RunDock::step);
    connect(m_all, &QAction::triggered, this, &RunDock::runAll);
    connect(m_cancel, &QPushButton::clicked, this, &RunDock::cancel);
    connect(m_export, &QPushButton::clicked, this, &RunDock::exportResults);
    connect(&module, &CurrentModule::changed, this, &RunDock::followModule);
    new LanguageChange(this, [this] {
        retranslate();
        showTotals();
    });
    reset();
}

void RunDock::retranslate()
{
    m_browse->setText(tr("Open CSV…"));
    m_once->setText(tr("Judge first row"));
    m_step->setText(tr("Judge next row"));
    m_all->setText(tr("Judge all rows"));
    m_cancel->setText(tr("Cancel"));
    m_export->setText(tr("Export results…"));
    m_onlyNotOk->setText(tr("Only not OK"));
    m_copy->setText(tr("Copy rows"));
    m_once->setToolTip(tr("Judges the first row (F8)."));
    m_step->setToolTip(tr("Judges the next row (F10)."));
    m_all->setToolTip(tr("Judges all rows from the first (F9)."));
    m_export->setToolTip(tr("Judges all rows and writes the results to a CSV file."));
    m_source->setItemText(0, tr("values of the flow"));
    m_source->setAccessibleName(tr("sample values"));
    m_table->setAccessibleName(tr("results"));
    m_progress->setAccessibleName(tr("part of the file that is judged"));
    m_condition->setAccessibleName(tr("condition shown"));
    m_histogram->setAccessibleName(tr("values of the condition"));
}

QWidget* RunDock::createSourceRow()
{
    m_source->setSizeAdjustPolicy(QComboBox::AdjustToContents);
    m_source->addItem(QString());
    const QString samples = samplesOf(m_module.session().flowFile());
    if (QFileInfo::exists(samples)) {
        addFile(samples);
    }
    m_progress->setRange(0, progressSteps);
    m_once->setShortcut(Qt::Key_F8);
    m_step->setShortcut(Qt::Key_F10);
    m_all->setShortcut(Qt::Key_F9);
    const auto buttonOf = [](const char* name, QAction* action) {
        auto* const button = Widgets::named(name, new QToolButton);
        button->setDefaultAction(action);
        button->setFocusPolicy(Qt::StrongFocus);
        return button;
    };

    auto* const row = new QWidget;
    auto* const layout = new QHBoxLayout(row);
    layout->setContentsMargins({});
    for (QWidget* const widget : std::initializer_list<QWidget*>{
             m_source, m_browse, buttonOf("runOnceButton", m_once), buttonOf("stepButton", m_step),
             buttonOf("runAllButton", m_all), m_cancel, m_export}) {
        layout->addWidget(widget);
    }
    layout->addWidget(m_progress, 1);
    return row;
}

void RunDock::setUpTable()
{
    m_table->verticalHeader()->setDefaultSectionSize(m_table->fontMetrics().height() + 4);
    // Columns are fitted to the rows in sight, not to all.
    m_table->horizontalHeader()->setResizeContentsPrecision(0);
    m_table->horizontalHeader()->setHighlightSections(false);
    m_table->setContextMenuPolicy(Qt::ActionsContextMenu);
    m_table->addAction(m_copy);
    m_copy->setShortcut(QKeySequence::Copy);
    m_copy->setShortcutContext(Qt::WidgetShortcut);
    connect(m_copy, &QAction::triggered, this, &RunDock::copyRows);
    connect(m_onlyNotOk, &QCheckBox::toggled, this, &RunDock::chooseResultModel);
    chooseResultModel();
}

void RunDock::chooseResultModel()
{
    const std::unique_ptr<QItemSelectionModel> former(m_table->selectionModel());
    m_table->setModel(m_onlyNotOk->isChecked() ? &m_notOk : &m_results);
    connect(m_table->selectionModel(), &QItemSelectionModel::currentChanged, this, &RunDock::showChosenRow);
    m_table->resizeColumnsToContents();
    showTotals();
    showChosenRow();
}

void RunDock::copyRows()
{
    QModelIndexList rows = m_table->selectionModel()->selectedRows();
    std::sort(rows.begin(), rows.end());
    QGuiApplication::clipboard()->setText(TabSeparated::textOf(*m_table->model(), rows, true));
}

void RunDock::showChosenRow()
{
    const QModelIndex index = m_table->currentIndex();
    const auto* const model = static_cast<const ResultModel*>(m_table->model());
    const QVector<Judgement::Result> results =
        index.isValid() && !m_isOutdated ? model->row(index.row()).results : QVector<Judgement::Result>();
    const int condition = m_condition->currentIndex();
    m_histogram->mark(condition >= 0 && condition < results.size() ? results[condition].value : std::nan(""));
    emit resultsChosen(results);
}

QWidget* RunDock::createConditionPart()
{
    auto* const part = new QWidget;
    auto* const layout = new QVBoxLayout(part);
    layout->setContentsMargins({});
    layout->addWidget(m_condition);
    layout->addWidget(m_conditionTotals);
    layout->addWidget(m_histogram, 1);
    m_statistics->setWordWrap(true);
    m_statistics->setTextInteractionFlags(Qt::TextSelectableByMouse);
    layout->addWidget(m_statistics);
    return part;
}

QList<QAction*> RunDock::runActions() const
{
    return {m_once, m_step, m_all};
}

void RunDock::chooseFile()
{
    const QString current = m_source->currentData().toString();
    const QString file = QFileDialog::getOpenFileName(
        this, tr("Sample values"), current.isEmpty() ? m_module.session().flowFile() : current,
        tr("Comma-separated values (*.csv);;All files (*)"));
    if (!file.isEmpty()) {
        addFile(file);
    }
}

void RunDock::addFile(const QString& file)
{
    int index = m_source->findData(file);
    if (index < 0) {
        index = m_source->count();
        m_source->addItem(QFileInfo(file).fileName(), file);
        m_source->setItemData(index, QFileInfo(file).absoluteFilePath(), Qt::ToolTipRole);
    }
    m_source->setCurrentIndex(index);
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
    m_condition->clear();
    m_progress->setValue(0);
    showProblem(QString());
    setOutdated(false);
    updateButtons();
}

bool RunDock::begin()
{
    const QString shown = m_condition->currentText();
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
    const QSignalBlocker blocker(m_condition);
    for (const QString& title : titles) {
        m_condition->addItem(title.section(QLatin1Char('\n'), 0, 0));
    }
    m_condition->setCurrentIndex(std::max(m_condition->findText(shown), 0));
    m_sinceShown.start();
    return true;
}

std::unique_ptr<SampleRun> RunDock::openRun(QString* error) const
{
    const QString file = m_source->currentData().toString();
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
    const bool wasEmpty = m_table->model()->rowCount() == 0;
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
        m_table->resizeColumnsToContents();
    }
    if (!m_timer.isActive() || m_isAtEnd || m_sinceShown.hasExpired(showMilliseconds)) {
        m_progress->setValue(step == SampleRun::Step::AtEnd
                                 ? progressSteps
                                 : static_cast<int>(m_run->progress() * progressSteps));
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
    m_totals->setStyleSheet(isOutdated ? QStringLiteral("color: #b02020") : QString());
    m_table->setStyleSheet(isOutdated ? QStringLiteral("QTableView { background: #e4e4e4 }") : QString());
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
    QProgressDialog progress(tr("Exporting results…"), tr("Cancel"), 0, progressSteps, this);
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
            progress.setValue(static_cast<int>(run->progress() * (progressSteps - 1)));
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
    const qint64 wanted = !m_run ? 0 : m_run->rows() - (m_onlyNotOk->isChecked() ? m_run->okRows() : 0);
    if (wanted > ResultModel::capacity) {
        parts << tr("the table shows the first %1").arg(ResultModel::capacity);
    }
    if (m_isAtEnd && m_run) {
        parts << tr("no further rows");
    }
    if (m_isOutdated) {
        parts << tr("outdated: the conditions have changed");
    }
    m_totals->setText(parts.join(QStringLiteral("; ")));
    showCondition();
}

void RunDock::showCondition()
{
    const int index = m_condition->currentIndex();
    if (!m_run || index < 0 || m_run->rows() == 0) {
        m_conditionTotals->clear();
        m_histogram->clear();
        m_statistics->clear();
        return;
    }
    const SampleRun::ConditionTotals& totals = m_run->totals(index);
    const ConditionValues& values = m_values[static_cast<std::size_t>(index)];
    m_conditionTotals->setText(totals.summary());
    m_histogram->setValues(totals.values, values.minimum, values.maximum);
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
    m_statistics->setText(statistics.join(QStringLiteral(", ")));
}

void RunDock::showProblem(const QString& text)
{
    m_problem->setText(text);
    m_problem->setVisible(!text.isEmpty());
}

void RunDock::updateButtons()
{
    const FlowModule* const module = m_module.session().flow().module(m_module.id());
    const bool canRun = module && module->kind == Flow::ifKind() && !m_timer.isActive();
    for (QAction* const action : {m_once, m_step, m_all}) {
        action->setEnabled(canRun);
    }
    m_export->setEnabled(canRun);
    m_cancel->setEnabled(m_timer.isActive());
}
