#pragma once

#include "SubscribeMenu.h"

#include <QZelCommonControl/ButtonSelecterView.h>
#include <QZelCommonControl/QmlRangeSliderView.h>
#include <QZelCommonControl/RangeSlider.h>

#include <QDialog>
#include <QDoubleSpinBox>
#include <QHBoxLayout>
#include <QPushButton>

class QLineEdit;

/// The valid-range strip of one condition: a lower and an upper bound, each either a constant in a spin
/// box, with a pop-up slider under the two, or a subscription to a value of an earlier module.
///
/// Bounds are doubles with three decimals within [minRange, maxRange]. The strip is owned by its row.
class RangeSelectControlIM : public QDialog
{
    Q_OBJECT

public:
    /// Restores from the core whether each bound is subscribed. Throws ZelException without a core.
    RangeSelectControlIM(int moduleId, int minRange, int maxRange, QString name, QWidget* parent);
    ~RangeSelectControlIM() override;

    /// The steps of the construction.
    void InitParent();
    void InitObjectName();
    void InitRange();
    void InitUI();
    void InitConnect();
    void InstallEventFilter();
    /// Restores from the core whether each bound is subscribed.
    void QueryIfModuUIParamScribeInfo();

    /// Limits what the spin boxes take; slider and stored range stay as they are.
    void SetRange(int min, int max);
    void SetMinRange(int min) { m_iMinRange = min; }
    int GetMinRange() const { return m_iMinRange; }
    void SetMaxRange(int max) { m_iMaxRange = max; }
    int GetMaxRange() const { return m_iMaxRange; }

    void SetFixedSize(int width, int height) { setFixedSize(width, height); }
    void SetHide() { hide(); }

    /// Set a bound as accepted: a later edit with minimum > maximum falls back to it.
    void SetCurrentMin(int value);
    void SetCurrentMax(int value);
    void SetCurrentMinD(double value);
    void SetCurrentMaxD(double value);

    /// The bounds as shown; the int ones are truncated toward zero.
    int GetCurrentMin() const;
    int GetCurrentMax() const;
    double GetCurrentMinD() const { return m_spbMinPullBar.value(); }
    double GetCurrentMaxD() const { return m_spbMaxPullBar.value(); }

    ButtonSelecterView* GetBsvMinNumSubscribe() { return &m_bsvMinNumSubscribe; }
    ButtonSelecterView* GetBsvMaxNumSubscribe() { return &m_bsvMaxNumSubscribe; }

    void ParseTreeNode(ZelCore::SUBSCRIBE_NODE__& node, QJsonObject& out, int level)
    {
        SubscribeMenu::ParseTreeNode(node, out, level);
    }

    /// To be called before the strip's widgets are hidden or destroyed: that finishes edits.
    void disconnectParts();

    /// The last of the strip's widgets that Tab leads to.
    QWidget* lastInTabOrder() { return &m_btnMaxSwitch; }

    void setVisible(bool visible) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

signals:
    void sigMinRangeChanged();
    void sigMaxRangeChanged();
    void sigRangeEditFinish();

public slots:
    void onFocusIn();
    void onFocusOut();
    void onRangeSliderLowerValueChanged(int value);
    void onRangeSliderUpperValueChanged(int value);
    void onRangeEditFinish();
    void onQmlRangeSliderValueChanged(int lower, int upper);
    void onBtnMinSwitch();
    void onBtnMaxSwitch();
    void onQuerySubscribeMenuInfo(QString varType);
    void onSubscribeValueChanged2SetParam(QString info);

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    /// All that one bound consists of, so that one function serves both.
    struct Bound
    {
        QDoubleSpinBox& spinBox;
        ButtonSelecterView& selecter;
        QPushButton& switchButton;
        QString bindingKey;
        QString sourceKey;
    };
    Bound lowerBound();
    Bound upperBound();

    void switchSource(const Bound& bound, const QString& failureText);
    void restoreSource(const Bound& bound, const QString& word);
    void showSubscription(const Bound& bound);

    int m_iModuId = 0;
    int m_iMinRange = 0;
    int m_iMaxRange = 0;
    QString m_labName;
    bool m_bMinSwitchType = false;
    bool m_bMaxSwitchType = false;
    double m_dOldMinValue = 0.0;
    double m_dOldMaxValue = 0.0;
    QPushButton m_btnLine;
    QDoubleSpinBox m_spbMinPullBar;
    QDoubleSpinBox m_spbMaxPullBar;
    QLineEdit* m_pEdiMinPullBar = nullptr;
    QLineEdit* m_pEdiMaxPullBar = nullptr;
    ButtonSelecterView m_bsvMinNumSubscribe;
    ButtonSelecterView m_bsvMaxNumSubscribe;
    QPushButton m_btnMinSwitch;
    QPushButton m_btnMaxSwitch;
    RangeSlider m_rsRangeSlider;
    QmlRangeSliderView m_qmlRangeSlider;
    QHBoxLayout m_hRangeSelectLayout;
    QWidget* m_pParentArea = nullptr;
    // By onFocusOut(), since it was last opened.
    bool m_bIsSliderClosed = false;
};
