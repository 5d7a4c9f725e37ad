#include "BarePanel.h"

#include "StyleSheet.h"

#include <QListView>
#include <QStyledItemDelegate>

BarePanel::BarePanel(QWidget* parent)
    : QWidget(parent)
    , m_panelSheet(StyleSheet::read(QStringLiteral(":/qss_im/QIfModuleMainView.qss")).value())
    , m_rowSheet(StyleSheet::read(QStringLiteral(":/qss_im/HorizontalControlIM.qss")).value())
{
    m_form.setupUi(this);
    m_form.widget->setFixedHeight(80);
    for (QComboBox* const combo : {m_form.cbox_typeSelect, m_form.cbox_determineType}) {
        combo->setStyleSheet(m_panelSheet);
        combo->setView(new QListView(combo));
        combo->setItemDelegate(new QStyledItemDelegate(combo));
    }
    for (QWidget* const widget : std::initializer_list<QWidget*>{
             m_form.lab_determineType, m_form.lab_help, m_form.lab_name, m_form.lab_note,
             m_form.lab_condition, m_form.lab_effectRange, m_form.btn_add, m_form.scrollArea, this}) {
        widget->setStyleSheet(m_panelSheet);
    }
    m_form.verL_infoList->setContentsMargins(0, 10, 0, 0);
    m_form.lab_name->setFixedWidth(50);
    m_form.lab_note->setFixedWidth(100);
    m_form.lab_condition->setFixedWidth(100);
}

BarePanel::~BarePanel()
{
    removeRows();
}

void BarePanel::addRow(const BareValues& values)
{
    m_form.verL_infoList->addLayout(new BareRow(values, m_rowSheet, this));
}

void BarePanel::removeRows()
{
    while (const std::unique_ptr<QLayoutItem> item{m_form.verL_infoList->takeAt(0)}) {
    }
}

void BarePanel::removeLast()
{
    delete m_form.verL_infoList->takeAt(m_form.verL_infoList->count() - 1);
}
