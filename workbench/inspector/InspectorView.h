#pragma once

#include "CurrentModule.h"
#include "ui_InspectorView.h"

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

protected:
    void showEvent(QShowEvent* event) override;

private:
    void refresh();

    const CurrentModule& m_module;
    QVector<Judgement::Result> m_results;
    Ui::InspectorView m_ui;
};
