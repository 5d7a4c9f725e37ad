#include "BareRow.h"

BareStrip::BareStrip(const BareValues& values, const QString& sheet, QWidget* parent)
    : QDialog(parent)
    , m_rangeSlider(Qt::Horizontal, RangeSlider::DoubleHandles)
{
    setLayout(&m_layout);
    for (QWidget* const widget : std::initializer_list<QWidget*>{&m_line, &m_minimum, &m_maximum,
                                                                 &m_minimumSwitch, &m_maximumSwitch}) {
        widget->setParent(this);
    }
    m_line.setObjectName(QStringLiteral("m_btnLine"));
    m_minimum.setObjectName(QStringLiteral("m_spbMinPullBar"));
    m_maximum.setObjectName(QStringLiteral("m_spbMaxPullBar"));
    m_minimumSwitch.setObjectName(QStringLiteral("m_btnMinSwitch"));
    m_maximumSwitch.setObjectName(QStringLiteral("m_btnMaxSwitch"));

    setWindowFlags(windowFlags() | Qt::FramelessWindowHint);
    setFixedSize(230, 30);
    m_layout.setContentsMargins(0, 0, 0, 0);
    m_layout.setSpacing(0);
    m_line.setMaximumSize(10, 1);
    m_line.setFocusPolicy(Qt::NoFocus);
    const int limit = values.isFloat() ? 100000 : 999999999;
    for (QDoubleSpinBox* const spinBox : {&m_minimum, &m_maximum}) {
        spinBox->setFixedSize(80, 30);
        spinBox->setDecimals(3);
        spinBox->setLocale(QLocale::c());
        spinBox->setRange(-limit, limit);
    }
    m_minimum.setValue(values.minimum);
    m_maximum.setValue(values.maximum);
    m_minimumSwitch.setFixedSize(30, 30);
    m_maximumSwitch.setFixedSize(30, 30);
    m_minimumSelecter.SetFixedSize(80, 30);
    m_maximumSelecter.SetFixedSize(80, 30);
    for (QWidget* const widget :
         std::initializer_list<QWidget*>{&m_minimum, &m_minimumSelecter, &m_minimumSwitch, &m_line,
                                         &m_maximum, &m_maximumSelecter, &m_maximumSwitch}) {
        m_layout.addWidget(widget, 1);
    }
    m_minimumSelecter.hide();
    m_maximumSelecter.hide();
    setStyleSheet(sheet);
    m_line.setStyleSheet(sheet);
    m_minimum.setStyleSheet(sheet);
    m_maximum.setStyleSheet(sheet);
}

BareRow::BareRow(const BareValues& values, const QString& sheet, QWidget* parent)
    : m_name(values.name, parent)
    , m_note(values.note, parent)
    , m_selecter(parent)
    , m_delete(parent)
{
    m_name.setObjectName(QStringLiteral("m_labName"));
    m_note.setObjectName(QStringLiteral("m_ediNote"));
    m_delete.setObjectName(QStringLiteral("m_btnDelete"));
    setContentsMargins(0, 5, 0, 0);
    setSpacing(7);
    m_name.setFixedSize(50, 30);
    m_note.setFixedSize(100, 30);
    m_selecter.SetFixedSize(100, 30);
    m_delete.setFixedSize(25, 30);
    addWidget(&m_name, 0);
    addWidget(&m_note, 5);
    addWidget(&m_selecter, 5);
    m_strip = new BareStrip(values, sheet, parent);
    addWidget(m_strip, 8);
    addWidget(&m_delete, 1);
    addSpacerItem(new QSpacerItem(10, 20, QSizePolicy::Expanding, QSizePolicy::Minimum));
    m_note.setStyleSheet(sheet);
    m_name.setStyleSheet(sheet);
    m_delete.setStyleSheet(sheet);
}

BareRow::~BareRow()
{
    delete m_strip;
}
