#include "inspector/InspectorView.h"

#include "LanguageChange.h"
#include "commands/CommandText.h"
#include "judgement/IfConfiguration.h"

#include <QVBoxLayout>

namespace {
constexpr int bytesHeight = 60; // px
constexpr std::size_t longestBytes = 4096;
} // namespace

InspectorView::InspectorView(const CurrentModule& module, QWidget* parent)
    : QTabWidget(parent)
    , m_module(module)
{
    m_summary->setWordWrap(true);
    m_bytes->setReadOnly(true);
    m_bytes->setTabChangesFocus(true);
    m_bytes->setMaximumHeight(bytesHeight);

    auto* const conditions = new QWidget;
    auto* const layout = new QVBoxLayout(conditions);
    layout->setContentsMargins({});
    QTableView* const conditionTable = createTable(m_conditions, "conditionTable");
    // In a narrow dock the result is visible without scrolling.
    connect(&m_conditions, &QAbstractItemModel::modelReset, conditionTable, [conditionTable] {
        QHeaderView* const header = conditionTable->horizontalHeader();
        header->moveSection(header->visualIndex(ModuleInspection::resultColumn), 1);
    });
    layout->addWidget(conditionTable, 1);
    layout->addWidget(m_summary);
    layout->addWidget(m_bytes);
    addTab(conditions, QString());
    addTab(createTable(m_ios, "ioTable"), QString());
    addTab(createTable(m_bindings, "bindingTable"), QString());
    addTab(createTable(m_values, "valueTable"), QString());
    connect(&module, &CurrentModule::changed, this, &InspectorView::refresh);
    new LanguageChange(this, [this] {
        retranslate();
        refresh();
    });
}

void InspectorView::setResults(const QVector<Judgement::Result>& results)
{
    m_results = results;
    refresh();
}

QTableView* InspectorView::createTable(InspectionTableModel& model, const char* name)
{
    QTableView* const table = Widgets::createTable(name);
    table->setModel(&model);
    table->horizontalHeader()->setStretchLastSection(true);
    table->horizontalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
    return table;
}

void InspectorView::retranslate()
{
    setTabText(0, tr("Conditions"));
    setTabText(1, tr("IOs"));
    setTabText(2, tr("Bindings"));
    setTabText(3, tr("Values"));
    for (int i = 0; i < count(); ++i) {
        widget(i)->setAccessibleName(tabText(i));
    }
    m_bytes->setAccessibleName(tr("stored bytes of the condition list"));
}

void InspectorView::refresh()
{
    if (!isVisible() || m_module.id() == 0) {
        return;
    }
    const auto& configuration = m_module.configuration();
    if (!configuration) {
        m_summary->setText(m_module.error());
        return;
    }
    const auto shown = m_module.shown();
    m_conditions.setTable(
        {ModuleInspection::conditionColumns(),
         ModuleInspection::conditions(*configuration, shown ? &*shown : nullptr, m_results)});
    m_ios.setTable(ModuleInspection::ios(*configuration));
    m_bindings.setTable(ModuleInspection::bindings(*configuration));
    m_values.setTable(ModuleInspection::values(*configuration));
    m_summary->setText(
        tr("Mode: %1. Stored list, bytes: %2")
            .arg(IfConfiguration::needsAll(*configuration) ? tr("all must be met") : tr("any suffices"),
                 QString::number(IfConfiguration::conditionList(*configuration).size())));
    m_bytes->setPlainText(
        CommandText::visible(IfConfiguration::conditionList(*configuration).toStdString(), longestBytes));
}

void InspectorView::showEvent(QShowEvent* event)
{
    refresh();
    QTabWidget::showEvent(event);
}
