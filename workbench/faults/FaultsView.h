#pragma once

#include "ui_FaultsView.h"

class FaultInjector;

/// Arms faults and shows those that are armed.
class FaultsView : public QWidget
{
    Q_OBJECT

public:
    /// The injector must outlive the view.
    explicit FaultsView(FaultInjector& injector, QWidget* parent = nullptr);

private:
    void arm();
    void showPlan();

    FaultInjector& m_injector;
    Ui::FaultsView m_ui;
};
