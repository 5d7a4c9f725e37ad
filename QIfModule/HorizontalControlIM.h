#pragma once

#include "RangeSelectControlIM.h"
#include "SubscribeMenu.h"

#include <QZelCommonControl/ButtonSelecterView.h>

#include <QDebug>
#include <QHBoxLayout>
#include <QJsonArray>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

/// One condition of the panel as one line of widgets: name, note, the selector of the value under test,
/// the valid-range strip and a delete button.
///
/// The row is a layout. It owns its widgets; the panel shows them. Who takes the row out of its list
/// deletes it. A name without "int" and "float" has no strip: its bounds
/// read 0.
class HorizontalControlIM : public QHBoxLayout
{
    Q_OBJECT

public:
    /// Widths of the columns, left to right up to the strip, and the space between two; in pixels.
    static constexpr int nameWidth = 50;
    static constexpr int noteWidth = 100;
    static constexpr int selecterWidth = 100;
    static constexpr int columnSpacing = 7;

    /// Restores binding and bound sources from the core. Throws ZelException without a core.
    HorizontalControlIM(int moduleId, QString name, QWidget* parent);
    ~HorizontalControlIM() override;

    /// The steps of the construction.
    void InitParent();
    void InitObjectName();
    void InitUI();
    void InitConnect();
    /// Shows the input's present binding in its selector.
    void QueryIfModuSubScribeInfo();

    void ParseTreeNode(ZelCore::SUBSCRIBE_NODE__& node, QJsonObject& out, int level)
    {
        SubscribeMenu::ParseTreeNode(node, out, level);
    }

    QString GetLabName() const { return m_labName.text(); }
    QString GetLabNote() const { return m_ediNote.text(); }
    void SetLabNote(QString note) { m_ediNote.setText(note); }

    /// Set a bound as accepted, with a line in the log.
    void SetCurrentMin(int value) { set("SetCurrentMin min", &RangeSelectControlIM::SetCurrentMin, value); }
    void SetCurrentMax(int value) { set("SetCurrentMax max", &RangeSelectControlIM::SetCurrentMax, value); }
    void SetCurrentMinD(double value)
    {
        set("SetCurrentMinD min", &RangeSelectControlIM::SetCurrentMinD, value);
    }
    // Programs that read the log expect the minimum's name in this line.
    void SetCurrentMaxD(double value)
    {
        set("SetCurrentMinD max", &RangeSelectControlIM::SetCurrentMaxD, value);
    }

    /// The bounds as shown; the int ones are truncated toward zero.
    int GetCurrentMin() const { return m_prscpRangeSelect ? m_prscpRangeSelect->GetCurrentMin() : 0; }
    int GetCurrentMax() const { return m_prscpRangeSelect ? m_prscpRangeSelect->GetCurrentMax() : 0; }
    double GetCurrentMinD() const { return m_prscpRangeSelect ? m_prscpRangeSelect->GetCurrentMinD() : 0.0; }
    double GetCurrentMaxD() const { return m_prscpRangeSelect ? m_prscpRangeSelect->GetCurrentMaxD() : 0.0; }

    /// Closes the selector's menu and hides the strip.
    void SetHide();
    /// Closes the menus of the row's three selectors.
    void closeMenus();

    int GetRangeSelectMin() const { return m_prscpRangeSelect ? m_prscpRangeSelect->GetMinRange() : 0; }
    int GetRangeSelectMax() const { return m_prscpRangeSelect ? m_prscpRangeSelect->GetMaxRange() : 0; }
    void SetRangeSelectMin(int min) { forward(&RangeSelectControlIM::SetMinRange, min); }
    void SetRangeSelectMax(int max) { forward(&RangeSelectControlIM::SetMaxRange, max); }

    /// Removes from the core every binding and UI datum of the condition; its IOs stay. Failures are
    /// logged and do not stop the removal.
    void DelIO(QString name);

    /// To be called when the list has the row: shows its widgets, and puts them into the tab order.
    void showInList();
    QLineEdit* noteField() { return &m_ediNote; }
    /// Marks the note with a warning sign, whose tool tip this is; no sign for an empty text.
    void showLoss(const QString& text);

signals:
    void sigBtnDeleteOpt(QString name);
    void sigLogicValueChanged2SetParam();
    void sigSubscribeValueChanged2SetParam(QString info);

public slots:
    void onBtnDeleteOpt();
    void onQuerySubscribeMenuInfo(QString varType);
    void onLogicValueChanged2SetParam();
    void onSubscribeValueChanged2SetParam(QString info);

private:
    template <typename Value>
    void set(const char* logged, void (RangeSelectControlIM::*setter)(Value), Value value)
    {
        qDebug().noquote().nospace() << "HorizontalControlIM " << logged << ":[" << value << ']';
        forward(setter, value);
    }
    template <typename Value>
    void forward(void (RangeSelectControlIM::*setter)(Value), Value value)
    {
        if (m_prscpRangeSelect) {
            (m_prscpRangeSelect->*setter)(value);
        }
    }

    int m_indexName = 0;
    int m_iModuId = 0;
    QWidget* m_horlcParent = nullptr;
    QLabel m_labName;
    QLineEdit m_ediNote;
    ButtonSelecterView m_bsvButtonSelecter;
    RangeSelectControlIM* m_prscpRangeSelect = nullptr;
    QPushButton m_btnDelete;
    QJsonArray m_oModelViewJsonData;
};
