#include "run/RunDock.h"

#include "CoreSession.h"
#include "inspector/ConfigurationJson.h"
#include "run/HistogramView.h"

#include <QComboBox>
#include <QDir>
#include <QElapsedTimer>
#include <QFileDialog>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QJsonDocument>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QSignalBlocker>
#include <QSplitter>
#include <QTableView>
#include <QVBoxLayout>

#include <algorithm>
#include <limits>

namespace {

constexpr int chunkMilliseconds = 15;
constexpr int progressSteps = 1000;

template <typename Widget>
Widget* named(const char* name, Widget* widget)
{
    widget->setObjectName(QString::fromLatin1(name));
    return widget;
}

// The samples that come with a flow stand beside it and have its name.
QString samplesOf(const QString& flowFile)
{
    const QFileInfo flow(flowFile);
    return flow.dir().filePath(flow.completeBaseName() + QStringLiteral(".csv"));
}

} // namespace

RunDock::RunDock(const CoreSession& session, QWidget* parent)
    : QWidget(parent)
    , m_session(session)
    , m_source(named("sourceBox", new QComboBox))
    , m_browse(named("browseButton", new QPushButton))
    , m_once(named("runOnceButton", new QPushButton))
    , m_step(named("stepButton", new QPushButton))
    , m_all(named("runAllButton", new QPushButton))
    , m_cancel(named("cancelButton", new QPushButton))
    , m_progress(named("runProgress", new QProgressBar))
    , m_totals(named("runTotals", new QLabel))
    , m_problem(named("runProblem", new QLabel))
    , m_table(named("resultTable", new QTableView))
    , m_condition(named("conditionBox", new QComboBox))
    , m_conditionTotals(named("conditionTotals", new QLabel))
    , m_histogram(named("histogram", new HistogramView))
{
    m_totals->setTextInteractionFlags(Qt::TextSelectableByMouse);
    m_problem->setTextInteractionFlags(Qt::TextSelectableByMouse);
    m_problem->setWordWrap(true);
    m_problem->setStyleSheet(QStringLiteral("color: #b02020"));

    m_table->setModel(&m_results);
    m_table->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_table->setWordWrap(false);
    m_table->setTabKeyNavigation(false); // Tab leaves the table
    m_table->verticalHeader()->setDefaultSectionSize(m_table->fontMetrics().height() + 4);
    // Columns are fitted to the rows in sight, not to all.
    m_table->horizontalHeader()->setResizeContentsPrecision(0);

    auto* const splitter = new QSplitter;
    splitter->addWidget(m_table);
    splitter->addWidget(createConditionPart());
    splitter->setStretchFactor(0, 1);
    splitter->setChildrenCollapsible(false);

    auto* const layout = new QVBoxLayout(this);
    layout->addWidget(createSourceRow());
    layout->addWidget(m_totals);
    layout->addWidget(m_problem);
    layout->addWidget(splitter, 1);

    // Chunks of rows between the events of the window.
    m_timer.setInterval(0);
    connect(&m_timer, &QTimer::timeout, this, &RunDock::judgeChunk);
    connect(m_source, QOverload<int>::of(&QComboBox::currentIndexChanged), this, &RunDock::reset);
    connect(m_condition, QOverload<int>::of(&QComboBox::currentIndexChanged), this, &RunDock::showCondition);
    connect(m_browse, &QPushButton::clicked, this, &RunDock::chooseFile);
    connect(m_once, &QPushButton::clicked, this, &RunDock::runOnce);
    connect(m_step, &QPushButton::clicked, this, &RunDock::step);
    connect(m_all, &QPushButton::clicked, this, &RunDock::runAll);
    connect(m_cancel, &QPushButton::clicked, this, &RunDock::cancel);
    retranslate();
    reset();
}

void RunDock::retranslate()
{
    m_browse->setText(tr("Open CSV…"));
    m_once->setText(tr("Run once"));
    m_step->setText(tr("Step"));
    m_all->setText(tr("Run all"));
    m_cancel->setText(tr("Cancel"));
    m_once->setToolTip(tr("Judges the first row (F8)."));
    m_step->setToolTip(tr("Judges the next row (F10)."));
    m_all->setToolTip(tr("Judges all rows from the first (F9)."));
    // A new text takes a button's shortcut away.
    m_once->setShortcut(Qt::Key_F8);
    m_step->setShortcut(Qt::Key_F10);
    m_all->setShortcut(Qt::Key_F9);
    m_source->setItemText(0, tr("values of the flow"));
    m_source->setAccessibleName(tr("sample values"));
    m_table->setAccessibleName(tr("results"));
    m_progress->setAccessibleName(tr("part of the file that is judged"));
    m_condition->setAccessibleName(tr("condition shown"));
    m_histogram->setAccessibleName(tr("values of the condition"));
}

void RunDock::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange) {
        retranslate();
        showTotals();
    }
    QWidget::changeEvent(event);
}

QWidget* RunDock::createSourceRow()
{
    m_source->setSizeAdjustPolicy(QComboBox::AdjustToContents);
    m_source->addItem(QString());
    const QString samples = samplesOf(m_session.flowFile());
    if (QFileInfo::exists(samples)) {
        addFile(samples);
    }
    m_progress->setRange(0, progressSteps);

    auto* const row = new QWidget;
    auto* const layout = new QHBoxLayout(row);
    layout->setContentsMargins({});
    for (QWidget* const widget :
         std::initializer_list<QWidget*>{m_source, m_browse, m_once, m_step, m_all, m_cancel}) {
        layout->addWidget(widget);
    }
    layout->addWidget(m_progress, 1);
    return row;
}

QWidget* RunDock::createConditionPart()
{
    auto* const part = new QWidget;
    auto* const layout = new QVBoxLayout(part);
    layout->setContentsMargins({});
    layout->addWidget(m_condition);
    layout->addWidget(m_conditionTotals);
    layout->addWidget(m_histogram, 1);
    return part;
}

void RunDock::showModule(unsigned int moduleId)
{
    if (moduleId != m_moduleId) {
        m_moduleId = moduleId;
        reset();
    }
}

void RunDock::chooseFile()
{
    const QString current = m_source->currentData().toString();
    const QString file = QFileDialog::getOpenFileName(this, tr("Sample values"),
                                                      current.isEmpty() ? m_session.flowFile() : current,
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
    const auto configuration = readConfiguration();
    if (configuration && begin(*configuration)) {
        judgeRows(1);
    }
}

void RunDock::step()
{
    const auto configuration = readConfiguration();
    if (!configuration) {
        return;
    }
    const bool goesOn =
        m_run && !m_isAtEnd && m_judgedBy == QJsonDocument(ConfigurationJson::of(*configuration)).toJson();
    if (goesOn || begin(*configuration)) {
        judgeRows(1);
    }
}

void RunDock::runAll()
{
    const auto configuration = readConfiguration();
    if (configuration && begin(*configuration)) {
        m_timer.start();
        updateButtons();
    }
}

void RunDock::cancel()
{
    m_timer.stop();
    updateButtons();
}

void RunDock::reset()
{
    m_timer.stop();
    m_run.reset();
    m_results.begin({});
    m_condition->clear();
    m_progress->setValue(0);
    showProblem(QString());
    showTotals();
    updateButtons();
}

std::optional<ModuleConfiguration> RunDock::readConfiguration()
{
    QString error;
    auto configuration = m_session.core().configuration(m_moduleId, &error);
    if (!configuration) {
        reset();
        showProblem(error);
    }
    return configuration;
}

bool RunDock::begin(const ModuleConfiguration& configuration)
{
    const QString shown = m_condition->currentText();
    reset();
    QString error;
    const QString file = m_source->currentData().toString();
    m_run = SampleRun::open(configuration, file.isEmpty() ? QStringList() : QStringList(file), &error);
    showProblem(error);
    if (!m_run) {
        return false;
    }
    m_isAtEnd = false;
    m_judgedBy = QJsonDocument(ConfigurationJson::of(configuration)).toJson();
    m_results.begin(m_run->conditions());
    const QSignalBlocker blocker(m_condition);
    for (const Judgement::Condition& condition : m_run->conditions()) {
        m_condition->addItem(condition.note.isEmpty()
                                 ? condition.name
                                 : QStringLiteral("%1  %2").arg(condition.name, condition.note));
    }
    m_condition->setCurrentIndex(std::max(m_condition->findText(shown), 0));
    return true;
}

bool RunDock::judgeRows(qint64 limit)
{
    QElapsedTimer timer;
    timer.start();
    QVector<ResultModel::Row> rows;
    QString error;
    const bool wasEmpty = m_results.rowCount() == 0;
    auto step = SampleRun::Step::Judged;
    constexpr int rowsBetweenLooks = 64; // at the clock
    for (qint64 i = 0; i < limit && !m_isAtEnd; ++i) {
        if (i % rowsBetweenLooks == 0 && timer.hasExpired(chunkMilliseconds)) {
            break;
        }
        step = m_run->next(&error);
        m_isAtEnd = step != SampleRun::Step::Judged;
        if (!m_isAtEnd && rows.size() < m_results.room()) {
            rows << ResultModel::Row{m_run->line(), m_run->isOk(), m_run->results()};
        }
    }
    m_results.append(rows);
    if (wasEmpty) {
        m_table->resizeColumnsToContents();
    }
    m_progress->setValue(
        step == SampleRun::Step::AtEnd ? progressSteps : static_cast<int>(m_run->progress() * progressSteps));
    showProblem(error);
    showTotals();
    return !m_isAtEnd;
}

void RunDock::judgeChunk()
{
    if (!judgeRows(std::numeric_limits<qint64>::max())) {
        cancel();
    }
}

void RunDock::showTotals()
{
    QString text = m_run ? m_run->summary() : tr("nothing judged yet");
    if (m_run && m_run->rows() > ResultModel::capacity) {
        text += tr("; the table shows the first %1").arg(ResultModel::capacity);
    }
    if (m_isAtEnd && m_run) {
        text += tr("; no further rows");
    }
    m_totals->setText(text);
    showCondition();
}

void RunDock::showCondition()
{
    const int index = m_condition->currentIndex();
    if (!m_run || index < 0 || m_run->rows() == 0) {
        m_conditionTotals->clear();
        m_histogram->clear();
        return;
    }
    const SampleRun::ConditionTotals& totals = m_run->totals(index);
    const Judgement& last = m_run->judgement();
    m_conditionTotals->setText(totals.summary());
    m_histogram->show(totals.values, last.number(index, Judgement::Minimum),
                      last.number(index, Judgement::Maximum));
}

void RunDock::showProblem(const QString& text)
{
    m_problem->setText(text);
    m_problem->setVisible(!text.isEmpty());
}

void RunDock::updateButtons()
{
    const FlowModule* const module = m_session.flow().module(m_moduleId);
    const bool canRun = module && module->kind == Flow::ifKind() && !m_timer.isActive();
    for (QWidget* const widget : {m_once, m_step, m_all}) {
        widget->setEnabled(canRun);
    }
    m_cancel->setEnabled(m_timer.isActive());
}
