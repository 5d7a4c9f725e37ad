#include "inspector/InspectorView.h"

#include "LanguageChange.h"
#include "commands/CommandText.h"
#include "judgement/IfConfiguration.h"

namespace {
constexpr std::size_t longestBytes = 4096;
} // namespace

InspectorView::InspectorView(const CurrentModule& module, QWidget* parent)
    : QTabWidget(parent)
    , m_module(module)
{
    m_ui.setupUi(this);
    // In a narrow dock the result is visible without scrolling.
    QHeaderView* const header = m_ui.conditionTable->horizontalHeader();
    connect(m_ui.conditionTable->model(), &QAbstractItemModel::modelReset, header,
            [header] { header->moveSection(header->visualIndex(ModuleInspection::resultColumn), 1); });
    connect(&module, &CurrentModule::changed, this, &InspectorView::refresh);
    new LanguageChange(this, [this] {
        m_ui.retranslateUi(this);
        refresh();
    });
}

void InspectorView::setResults(const QVector<Judgement::Result>& results)
{
    m_results = results;
    refresh();
}

void InspectorView::refresh()
{
    if (!isVisible() || m_module.id() == 0) {
        return;
    }
    const auto& configuration = m_module.configuration();
    if (!configuration) {
        m_ui.inspectorSummary->setText(m_module.error());
        return;
    }
    const auto shown = m_module.shown();
    m_ui.conditionTable->setTable(
        ModuleInspection::conditions(*configuration, shown ? &*shown : nullptr, m_results));
    m_ui.ioTable->setTable(ModuleInspection::ios(*configuration));
    m_ui.bindingTable->setTable(ModuleInspection::bindings(*configuration));
    m_ui.valueTable->setTable(ModuleInspection::values(*configuration));
    m_ui.inspectorSummary->setText(
        tr("Mode: %1. Stored list, bytes: %2")
            .arg(IfConfiguration::needsAll(*configuration) ? tr("all must be met") : tr("any suffices"),
                 QString::number(IfConfiguration::conditionList(*configuration).size())));
    m_ui.inspectorBytes->setPlainText(
        CommandText::visible(IfConfiguration::conditionList(*configuration).toStdString(), longestBytes));
}

void InspectorView::showEvent(QShowEvent* event)
{
    refresh();
    QTabWidget::showEvent(event);
}
