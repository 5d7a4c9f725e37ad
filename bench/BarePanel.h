#pragma once

#include "BareRow.h"
#include "ui_QIfModuleMainView.h"

#include <memory>
#include <vector>

/// The panel's form and rows with its sheets, texts and sizes, and nothing behind them.
class BarePanel : public QWidget
{
public:
    explicit BarePanel(QWidget* parent);
    ~BarePanel() override;

    void addRow(const BareValues& values);
    void removeLast();
    void removeRows();

private:
    Ui_QIfModuleMainView m_form;
    QString m_panelSheet;
    QString m_rowSheet;
};
