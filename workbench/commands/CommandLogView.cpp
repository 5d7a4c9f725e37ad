#include "commands/CommandLogView.h"

#include "LanguageChange.h"
#include "TabSeparated.h"
#include "WorkbenchApplication.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QSaveFile>
#include <QScrollBar>

#include <algorithm>
#include <utility>

namespace {
constexpr int flushInterval = 50;           // ms
constexpr std::size_t longestContent = 400; // bytes
// Of number, time, kind, module, parameter, content, status, message; the last column takes the rest.
constexpr int columnWidths[] = {60, 110, 150, 70, 180, 330, 120, 180}; // px
} // namespace

CommandLogView::CommandLogView(CommandTap& tap, QWidget* parent)
    : QWidget(parent)
{
    m_ui.setupUi(this);
    m_filtered.setSourceModel(&m_model);
    m_filtered.setFilterKeyColumn(-1);
    m_filtered.setFilterCaseSensitivity(Qt::CaseInsensitive);
    QTableView* const table = m_ui.commandTable;
    table->setModel(&m_filtered);
    table->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    table->verticalHeader()->setDefaultSectionSize(table->fontMetrics().height() + 4);
    for (int column = 0; column < static_cast<int>(std::size(columnWidths)); ++column) {
        table->setColumnWidth(column, columnWidths[column]);
    }

    m_flush.setSingleShot(true);
    m_flush.setInterval(flushInterval);
    connect(&m_flush, &QTimer::timeout, this, &CommandLogView::flush);
    connect(&tap, &CommandTap::executed, this, &CommandLogView::append);
    connect(m_ui.filterEdit, &QLineEdit::textChanged, &m_filtered,
            &QSortFilterProxyModel::setFilterFixedString);
    connect(m_ui.clearButton, &QPushButton::clicked, this, [this] {
        m_pending.clear();
        m_model.clear();
    });
    connect(m_ui.copyButton, &QPushButton::clicked, this, &CommandLogView::copy);
    connect(m_ui.saveButton, &QPushButton::clicked, this, &CommandLogView::save);
    new LanguageChange(this, [this] {
        m_ui.retranslateUi(this);
        m_model.retranslate();
    });
}

void CommandLogView::append(ZelCore::ICommand& command, CommandEntry entry)
{
    if (!isVisible() || m_ui.pauseButton->isChecked()) {
        return;
    }
    entry.time = QDateTime::currentDateTime();
    entry.text = CommandText::of(command, longestContent);
    m_pending << entry;
    if (!m_flush.isActive()) {
        m_flush.start();
    }
}

void CommandLogView::flush()
{
    const QScrollBar* const bar = m_ui.commandTable->verticalScrollBar();
    const bool isAtEnd = bar->value() == bar->maximum();
    m_model.append(std::exchange(m_pending, {}));
    if (isAtEnd) {
        m_ui.commandTable->scrollToBottom();
    }
}

QVector<int> CommandLogView::chosenRows() const
{
    QVector<int> rows;
    const auto selected = m_ui.commandTable->selectionModel()->selectedRows();
    for (const QModelIndex& index : selected) {
        rows << m_filtered.mapToSource(index).row();
    }
    for (int row = 0; selected.isEmpty() && row < m_filtered.rowCount(); ++row) {
        rows << m_filtered.mapToSource(m_filtered.index(row, 0)).row();
    }
    std::sort(rows.begin(), rows.end());
    return rows;
}

void CommandLogView::copy()
{
    QModelIndexList rows;
    for (const int row : chosenRows()) {
        rows << m_model.index(row, 0);
    }
    QGuiApplication::clipboard()->setText(TabSeparated::textOf(m_model, rows, false));
}

void CommandLogView::save()
{
    const QString name = WorkbenchApplication::fileToSave(
        this, tr("Save commands"), QStringLiteral("commands.jsonl"), tr("JSON lines (*.jsonl)"));
    if (name.isEmpty()) {
        return;
    }
    QSaveFile file(name);
    bool isWritten = file.open(QIODevice::WriteOnly);
    for (const int row : chosenRows()) {
        isWritten = isWritten && file.write(m_model.jsonOf(row) + '\n') >= 0;
    }
    if (!isWritten || !file.commit()) {
        WorkbenchApplication::tellError(tr("The file %1 can't be written: %2").arg(name, file.errorString()));
    }
}

void CommandLogView::showEvent(QShowEvent* event)
{
    m_ui.commandTable->scrollToBottom();
    QWidget::showEvent(event);
}
