#pragma once

#include "Widgets.h"

#include <QComboBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSpinBox>

class FaultInjector;

/// Arms faults and shows those that are armed.
class FaultsView : public QWidget
{
    Q_OBJECT

public:
    /// The injector must outlive the view.
    explicit FaultsView(FaultInjector& injector, QWidget* parent = nullptr);

private:
    void retranslate();
    void arm();
    void showPlan();

    FaultInjector& m_injector;
    QFormLayout* m_form = new QFormLayout;
    QComboBox* m_kind = new QComboBox;
    QLineEdit* m_parameter = new QLineEdit;
    QComboBox* m_when = new QComboBox;
    QSpinBox* m_number = new QSpinBox;
    QComboBox* m_answer = new QComboBox;
    QLineEdit* m_message = new QLineEdit;
    QPushButton* m_arm = Widgets::named("armButton", new QPushButton);
    QPushButton* m_disarm = Widgets::named("disarmButton", new QPushButton);
    QLabel* m_banner = Widgets::named("faultBanner", new QLabel);
};
