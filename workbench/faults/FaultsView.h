#pragma once

#include <QWidget>

class FaultInjector;
class QComboBox;
class QFormLayout;
class QLabel;
class QLineEdit;
class QPushButton;
class QSpinBox;

/// Arms faults and shows those that are armed.
class FaultsView : public QWidget
{
    Q_OBJECT

public:
    /// The injector must outlive the view.
    explicit FaultsView(FaultInjector& injector, QWidget* parent = nullptr);

protected:
    void changeEvent(QEvent* event) override;

private:
    void retranslate();
    void arm();
    void showPlan();

    FaultInjector& m_injector;
    QFormLayout* m_form;
    QComboBox* m_kind;
    QLineEdit* m_parameter;
    QComboBox* m_when;
    QSpinBox* m_number;
    QComboBox* m_answer;
    QLineEdit* m_message;
    QPushButton* m_arm;
    QPushButton* m_disarm;
    QLabel* m_banner;
};
