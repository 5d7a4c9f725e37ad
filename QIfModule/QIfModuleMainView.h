#pragma once

#include <QList>
#include <QMap>
#include <QPoint>
#include <QString>
#include <QWidget>

#include <memory>

class HorizontalControlIM;
struct ConditionRecord;
class Ui_QIfModuleMainView;

/// The configuration panel of one If module: its conditions, a row each, and how they are combined.
///
/// Every Show event reloads everything from the core, and every finished edit is stored at once.
/// ZelException of the core client leaves the slots. GUI thread only.
class QIfModuleMainView : public QWidget
{
    Q_OBJECT

public:
    /// Builds widgets only; the core is first asked when the panel is shown.
    QIfModuleMainView(int moduleId, QWidget* parent);
    ~QIfModuleMainView() override;

    /// The steps of the construction.
    void InitUI();
    void InitConnect();
    void InitInstallFilter();

    /// Sets every text anew in the present language; true.
    bool RetranslateUi();

    /// Rebuilds the rows and the mode from what the core stores.
    void QueryIfModuleInfo();

    bool eventFilter(QObject* watched, QEvent* event) override;

public slots:
    void on_btn_close_clicked();
    void on_btn_add_clicked();
    void on_btn_continueRun_clicked();
    void on_btn_onceRun_clicked();
    void on_btn_OK_clicked();
    void onBtnDeleteOpt(QString name);
    void onLogicValueChanged2SetParam();
    void onSubscribeValueChanged2SetParam(QString info);
    void on_cbox_determineType_currentIndexChanged(int index);

private:
    std::unique_ptr<HorizontalControlIM> createRow(const QString& name);
    /// In the list, whose layout takes the row; the registry owns none.
    void showRow(std::unique_ptr<HorizontalControlIM> row);
    /// In the order of the registry.
    QList<HorizontalControlIM*> rows() const;
    QStringList registeredNames() const;
    void removeAllRows();
    void disconnectRows();
    void layOutList();
    void finishEdit();
    QList<ConditionRecord> shownConditions() const;
    void showLosses();

    Ui_QIfModuleMainView* ui = nullptr;
    int m_iModuId = 0;
    QString m_qsName;
    QPoint m_qpClickPos;
    QList<QMap<QString, HorizontalControlIM*>> m_mapIMHorControls;
};
