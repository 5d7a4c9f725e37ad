#pragma once

#include "core_client/core_client.h"

#include <QList>
#include <QMap>
#include <QPoint>
#include <QString>
#include <QWidget>

#include <memory>

class HorizontalControlIM;
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

    /// Sets every text anew in the present language; true.
    bool RetranslateUi();

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
    void InitUI();
    void InitConnect();
    void InitInstallFilter();
    void QueryIfModuleInfo();

    std::unique_ptr<HorizontalControlIM> createRow(const QString& name);
    void appendToRegistry(const QString& name, HorizontalControlIM* row);
    /// The registry owns no row; the list's layout takes it.
    void appendToList(std::unique_ptr<HorizontalControlIM> row);
    void removeAllRows();
    void finishEdit();
    bool addIo(const QString& ioName, const QString& valueType, ZelCore::IOClass ioClass);

    Ui_QIfModuleMainView* ui = nullptr;
    int m_iModuId = 0;
    QString m_qsName;
    QPoint m_qpClickPos;
    QList<QMap<QString, HorizontalControlIM*>> m_mapIMHorControls;
};
