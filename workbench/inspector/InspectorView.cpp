#include "inspector/InspectorView.h"

#include "CoreSession.h"
#include "commands/CommandText.h"
#include "inspector/ShownConditions.h"
#include "judgement/IfConfiguration.h"

#include <QEvent>
#include <QHeaderView>
#include <QLabel>
#include <QPlainTextEdit>
#include <QTableView>
#include <QVBoxLayout>

namespace {
constexpr int bytesHeight = 60; // px
} // namespace

InspectorView::InspectorView(CoreSession& session, QWidget* parent)
    : QTabWidget(parent)
    , m_session(session)
    , m_summary(new QLabel)
    , m_bytes(new QPlainTextEdit)
{
    m_summary->setObjectName(QStringLiteral("inspectorSummary"));
    m_summary->setWordWrap(true);
    m_bytes->setObjectName(QStringLiteral("inspectorBytes"));
    m_bytes->setReadOnly(true);
    m_bytes->setTabChangesFocus(true);
    m_bytes->setMaximumHeight(bytesHeight);

    auto* const conditions = new QWidget;
    auto* const layout = new QVBoxLayout(conditions);
    layout->setContentsMargins({});
    layout->addWidget(createTable(m_conditions, QStringLiteral("conditionTable")), 1);
    layout->addWidget(m_summary);
    layout->addWidget(m_bytes);
    addTab(conditions, QString());
    addTab(createTable(m_ios, QStringLiteral("ioTable")), QString());
    addTab(createTable(m_bindings, QStringLiteral("bindingTable")), QString());
    addTab(createTable(m_values, QStringLiteral("valueTable")), QString());
    retranslate();

    m_refresh.setSingleShot(true);
    m_refresh.setInterval(0);
    connect(&m_refresh, &QTimer::timeout, this, &InspectorView::refresh);
    connect(&session.tap(), &CommandTap::executed, this, [this] {
        if (!m_refresh.isActive()) {
            m_refresh.start();
        }
    });
}

void InspectorView::setModule(unsigned int moduleId, QWidget* panel)
{
    m_moduleId = moduleId;
    m_panel = panel;
    m_refresh.start();
}

QWidget* InspectorView::createTable(InspectionTableModel& model, const QString& name)
{
    auto* const table = new QTableView;
    table->setObjectName(name);
    table->setModel(&model);
    table->setSelectionBehavior(QTableView::SelectRows);
    table->setWordWrap(false);
    table->setTabKeyNavigation(false);
    table->verticalHeader()->hide();
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
    if (!isVisible() || m_moduleId == 0) {
        return;
    }
    QString error;
    const auto configuration = m_session.core().configuration(m_moduleId, &error);
    if (!configuration) {
        m_summary->setText(error);
        return;
    }
    const bool isLoaded = m_panel && m_panel->isVisible();
    const QList<ConditionRecord> shown =
        isLoaded ? ShownConditions::read(*m_panel) : QList<ConditionRecord>();
    m_conditions.setRows(ModuleInspection::conditionColumns(),
                         ModuleInspection::conditions(*configuration, isLoaded ? &shown : nullptr));
    m_ios.setRows(ModuleInspection::ioColumns(), ModuleInspection::ios(*configuration));
    m_bindings.setRows(ModuleInspection::bindingColumns(), ModuleInspection::bindings(*configuration));
    m_values.setRows(ModuleInspection::valueColumns(), ModuleInspection::values(*configuration));
    m_summary->setText(
        tr("Mode: %1. Stored list, bytes: %2")
            .arg(IfConfiguration::needsAll(*configuration) ? tr("all must be met") : tr("any suffices"),
                 QString::number(IfConfiguration::conditionList(*configuration).size())));
    m_bytes->setPlainText(CommandText::visible(IfConfiguration::conditionList(*configuration).toStdString()));
}

void InspectorView::showEvent(QShowEvent* event)
{
    m_refresh.start();
    QTabWidget::showEvent(event);
}

void InspectorView::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange) {
        retranslate();
        m_refresh.start();
    }
    QTabWidget::changeEvent(event);
}
