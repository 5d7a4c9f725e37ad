#pragma once

#include "inspector/InspectionTableModel.h"

#include <QPointer>
#include <QTabWidget>
#include <QTimer>

class CoreSession;
class QLabel;
class QPlainTextEdit;

/// Shows what the store holds for a module, beside what its panel shows; read anew after every command.
class InspectorView : public QTabWidget
{
    Q_OBJECT

public:
    /// The session must outlive the view.
    explicit InspectorView(CoreSession& session, QWidget* parent = nullptr);

    /// The panel may be null and may go.
    void setModule(unsigned int moduleId, QWidget* panel);

protected:
    void showEvent(QShowEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    QWidget* createTable(InspectionTableModel& model, const QString& name);
    void retranslate();
    void refresh();

    CoreSession& m_session;
    unsigned int m_moduleId = 0;
    QPointer<QWidget> m_panel;
    // Many commands in a row are read once.
    QTimer m_refresh;
    InspectionTableModel m_conditions;
    InspectionTableModel m_ios;
    InspectionTableModel m_bindings;
    InspectionTableModel m_values;
    QLabel* m_summary;
    QPlainTextEdit* m_bytes;
};
