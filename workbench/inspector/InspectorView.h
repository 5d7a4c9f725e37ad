#pragma once

#include "CurrentModule.h"
#include "Widgets.h"
#include "inspector/InspectionTableModel.h"

#include <QLabel>
#include <QPlainTextEdit>
#include <QTabWidget>

/// Shows what the store holds for a module, and what its panel shows; read anew after every command.
class InspectorView : public QTabWidget
{
    Q_OBJECT

public:
    /// The module must outlive the view.
    explicit InspectorView(const CurrentModule& module, QWidget* parent = nullptr);

    /// What a run gave for the conditions, shown until the module is judged by other ones; empty for the
    /// flow's sample values.
    void setResults(const QVector<Judgement::Result>& results);

    /// A view of rows, fitted to their texts.
    static QTableView* createTable(InspectionTableModel& model, const char* name);

protected:
    void showEvent(QShowEvent* event) override;

private:
    void retranslate();
    void refresh();

    const CurrentModule& m_module;
    QVector<Judgement::Result> m_results;
    InspectionTableModel m_conditions;
    InspectionTableModel m_ios;
    InspectionTableModel m_bindings;
    InspectionTableModel m_values;
    QLabel* m_summary = Widgets::named("inspectorSummary", new QLabel);
    QPlainTextEdit* m_bytes = Widgets::named("inspectorBytes", new QPlainTextEdit);
};
