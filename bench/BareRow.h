#pragma once

#include <QZelCommonControl/ButtonSelecterView.h>
#include <QZelCommonControl/QmlRangeSliderView.h>
#include <QZelCommonControl/RangeSlider.h>

#include <QDialog>
#include <QDoubleSpinBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

/// What one condition shows.
struct BareValues
{
    QString name;
    double minimum = 0.0;
    double maximum = 0.0;
    QString note;

    bool isFloat() const { return name.startsWith(QLatin1Char('f')); }
};

/// The widgets of a valid-range strip.
class BareStrip : public QDialog
{
public:
    BareStrip(const BareValues& values, const QString& sheet, QWidget* parent);

private:
    QPushButton m_line;
    QDoubleSpinBox m_minimum;
    QDoubleSpinBox m_maximum;
    ButtonSelecterView m_minimumSelecter;
    ButtonSelecterView m_maximumSelecter;
    QPushButton m_minimumSwitch;
    QPushButton m_maximumSwitch;
    RangeSlider m_rangeSlider;
    QmlRangeSliderView m_popup;
    QHBoxLayout m_layout;
};

/// The widgets of a condition's row.
class BareRow : public QHBoxLayout
{
public:
    BareRow(const BareValues& values, const QString& sheet, QWidget* parent);
    ~BareRow() override;

private:
    QLabel m_name;
    QLineEdit m_note;
    ButtonSelecterView m_selecter;
    BareStrip* m_strip;
    QPushButton m_delete;
};
