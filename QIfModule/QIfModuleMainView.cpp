#include "QIfModuleMainView.h"

#include "ClickOnEnter.h"
#include "HorizontalControlIM.h"
#include "StyleSheet.h"
#include "WarningBox.h"
#include "condition/ConditionName.h"
#include "condition/ConditionRecord.h"
#include "condition/ModuleParameter.h"
#include "ui_QIfModuleMainView.h"

#include <QApplication>
#include <QDebug>
#include <QEvent>
#include <QListView>
#include <QPointer>
#include <QScopeGuard>
#include <QStyledItemDelegate>

#include <algorithm>
#include <utility>

using namespace ZelCore;

namespace {

constexpr int maximumConditions = 32;
constexpr UInt saveTimeOut = 5000; // ms

// Hides the area until the end of the scope: what is added to a visible one is shown, laid out and painted
// widget by widget.
auto shownAtOnce(QWidget& area)
{
    QWidget* const focus = QApplication::focusWidget();
    QPointer<QWidget> inside = area.isAncestorOf(focus) ? focus : nullptr;
    area.hide();
    return qScopeGuard([&area, inside = std::move(inside)] {
        area.show();
        if (inside) {
            inside->setFocus();
        }
    });
}

} // namespace

QIfModuleMainView::QIfModuleMainView(int moduleId, QWidget* parent)
    : QWidget(parent)
{
    auto form = std::make_unique<Ui_QIfModuleMainView>();
    ui = form.get();
    ui->setupUi(this);
    m_iModuId = moduleId;
    InitUI();
    InitConnect();
    InitInstallFilter();
    static_cast<void>(form.release()); // the destructor's from here on
}

QIfModuleMainView::~QIfModuleMainView()
{
    // The rows go with the layouts, after this object: what they still say must not reach it.
    for (const auto& entry : std::as_const(m_mapIMHorControls)) {
        for (HorizontalControlIM* const row : entry) {
            row->disconnect(this);
        }
    }
    m_qsName.clear();
    delete ui;
}

void QIfModuleMainView::InitUI()
{
    ui->widget->setFixedHeight(80);

    if (const auto sheet = StyleSheet::read(QStringLiteral(":/qss_im/QIfModuleMainView.qss"))) {
        ui->lab_determineType->setStyleSheet(*sheet);
        ui->lab_help->setStyleSheet(*sheet);
        ui->cbox_determineType->setStyleSheet(*sheet);
        ui->cbox_typeSelect->setStyleSheet(*sheet);
        for (QComboBox* const combo : {ui->cbox_typeSelect, ui->cbox_determineType}) {
            combo->setView(new QListView(combo));
            // A combo's own delegate ignores the sheet's rules for items.
            combo->setItemDelegate(new QStyledItemDelegate(combo));
        }
        ui->lab_help->setStyleSheet(*sheet);
        ui->lab_name->setStyleSheet(*sheet);
        ui->lab_note->setStyleSheet(*sheet);
        ui->lab_condition->setStyleSheet(*sheet);
        ui->lab_effectRange->setStyleSheet(*sheet);
        ui->btn_add->setStyleSheet(*sheet);
        ui->scrollArea->setStyleSheet(*sheet);
        setStyleSheet(*sheet);
    } else {
        qDebug("[QIfModuleMainView]: InitUI QIfModuleMainView qss file open failed.");
    }

    ui->verL_infoList->setContentsMargins(0, 10, 0, 0);
    // A row's columns keep their widths however wide the panel is; so do the headings over them.
    const int gap = HorizontalControlIM::columnSpacing - ui->horizontalLayout_4->spacing();
    ui->lab_name->setFixedWidth(HorizontalControlIM::nameWidth + gap);
    ui->lab_note->setFixedWidth(HorizontalControlIM::noteWidth + gap);
    ui->lab_condition->setFixedWidth(HorizontalControlIM::selecterWidth + gap);
    // In a host's dialog Enter in a field must not add a condition.
    ui->btn_add->setAutoDefault(false);
    new ClickOnEnter(ui->btn_add);
}

void QIfModuleMainView::InitConnect()
{
    // The form connects the panel's slots by their names.
}

void QIfModuleMainView::InitInstallFilter()
{
    installEventFilter(this);
}

bool QIfModuleMainView::RetranslateUi()
{
    ui->retranslateUi(this);
    return true;
}

bool QIfModuleMainView::eventFilter(QObject* watched, QEvent* event)
{
    if (watched != this) {
        return false;
    }
    switch (event->type()) {
    case QEvent::Show:
        QueryIfModuleInfo();
        break;
    case QEvent::MouseButtonPress:
    case QEvent::Hide:
        for (const auto& entry : std::as_const(m_mapIMHorControls)) {
            for (HorizontalControlIM* const row : entry) {
                row->closeMenus();
            }
        }
        if (event->type() == QEvent::Hide) {
            finishEdit();
        }
        break;
    default:
        break;
    }
    return false;
}

void QIfModuleMainView::finishEdit()
{
    // A window that has nothing else to focus leaves the focus in a hidden field, and the edit open until
    // the next load forgets it.
    QWidget* const focus = QApplication::focusWidget();
    if (focus && isAncestorOf(focus)) {
        focus->clearFocus();
    }
}

void QIfModuleMainView::QueryIfModuleInfo()
{
    const auto moduleId = static_cast<UInt>(m_iModuId);
    const BINARY_DATA_CONDITION__ listCondition(moduleId, ModuleParameter::conditionList);
    BINARY_DATA__ list;
    QueryCommand<BINARY_DATA_CONDITION__, BINARY_DATA__> listQuery(listCondition, &list);
    if (!ExecuteOrLog(listQuery,
                      QStringLiteral("[QIfModuleMainView]: QueryIfModuleInfo IFText id[%1] failed. errmeg=")
                          .arg(m_iModuId))) {
        return;
    }
    const QString text = ToQString(TextOf(list));
    qDebug().noquote().nospace() << "[QIfModuleMainView]: QueryIfModuleInfo IFText data=" << text;

    removeAllRows();
    const auto shown = shownAtOnce(*ui->widget_2);
    const QList<StoredCondition> conditions = StoredCondition::fromText(text);
    for (const StoredCondition& condition : conditions) {
        auto row = createRow(condition.name);
        if (condition.isFloat) {
            qDebug().noquote().nospace() << "float:[" << condition.minimumText << ']';
            row->SetCurrentMinD(condition.minimum);
            row->SetCurrentMaxD(condition.maximum);
        } else {
            qDebug().noquote().nospace() << "int:[" << condition.minimumText << ']';
            row->SetCurrentMin(static_cast<int>(condition.minimum));
            row->SetCurrentMax(static_cast<int>(condition.maximum));
        }
        if (!condition.hasValidMaximum) {
            qDebug("[QIfModuleMainView]: SetRangeSelect num trans failed.");
        }
        row->SetLabNote(condition.note);
        appendToRegistry(condition.name, row.get());
        appendToList(std::move(row));
    }

    const RUN_PARAM_CONDITION__ modeCondition(moduleId, ModuleParameter::judgementMode);
    KADO_MODULE_PARAM__ mode;
    QueryCommand<RUN_PARAM_CONDITION__, KADO_MODULE_PARAM__> modeQuery(modeCondition, &mode);
    if (!ExecuteOrLog(
            modeQuery,
            QStringLiteral("[QIfModuleMainView]: QueryIfModuleInfo LogicalMode id[%1] failed. errmeg=")
                .arg(m_iModuId))) {
        return;
    }
    const std::string modeText(TextOf(mode.strParamValue));
    ui->cbox_determineType->setCurrentIndex(ModuleParameter::needsAll(modeText.c_str()) ? 0 : 1);
}

void QIfModuleMainView::onLogicValueChanged2SetParam()
{
    qDebug("[QIfModuleMainView]: onLogicValueChanged2SetParam start.");
    QList<ConditionRecord> conditions;
    for (const auto& entry : std::as_const(m_mapIMHorControls)) {
        for (auto it = entry.cbegin(); it != entry.cend(); ++it) {
            conditions << ConditionRecord{it.key(), it.value()->GetCurrentMinD(),
                                          it.value()->GetCurrentMaxD(), it.value()->GetLabNote()};
        }
    }
    const QString text = ConditionRecord::toText(conditions);
    qDebug().noquote().nospace() << "[QIfModuleMainView]: onLogicValueChanged2SetParam send=" << text;

    const QByteArray stored = ConditionRecord::toStored(text);
    SetBinaryDataCommand command(static_cast<UInt>(m_iModuId), ModuleParameter::conditionList,
                                 stored.constData(), static_cast<UInt>(stored.size()), saveTimeOut);
    if (ExecuteOrLog(command,
                     QStringLiteral("[QIfModuleMainView]: onLogicValueChanged2SetParam failed. errmeg="))) {
        qDebug("[QIfModuleMainView]: onLogicValueChanged2SetParam end.");
    } else {
        qDebug().noquote().nospace() << "[QIfModuleMainView]: onLogicValueChanged2SetParam failed send = "
                                     << text;
    }
}

void QIfModuleMainView::on_cbox_determineType_currentIndexChanged(int index)
{
    const QByteArray value = QByteArray::number(index + 1);
    SetRunParamCommand command(static_cast<UInt>(m_iModuId), ModuleParameter::judgementMode,
                               value.constData());
    ExecuteOrLog(
        command,
        QStringLiteral("[QIfModuleMainView]: on_cbox_determineType_currentIndexChanged failed. errmeg="));
}

void QIfModuleMainView::on_btn_add_clicked()
{
    if (m_mapIMHorControls.size() >= maximumConditions) {
        WarningBox::show(this, tr("最多添加") + QLatin1String(": ") + QString::number(maximumConditions));
        return;
    }

    m_qsName.clear();
    const ConditionName::Type type = ConditionName::typeOf(ui->cbox_typeSelect->currentText());
    const QString valueType = ConditionName::typeWord(type);
    if (type != ConditionName::Type::None) {
        qDebug().noquote() << QStringLiteral("on_btn_add_clicked %1 start.").arg(valueType);
        QStringList names;
        for (const auto& entry : std::as_const(m_mapIMHorControls)) {
            for (auto it = entry.cbegin(); it != entry.cend(); ++it) {
                qDebug().noquote() << it.key();
                if (it.key().contains(valueType)) {
                    names << it.key();
                }
            }
        }
        qDebug().noquote() << QStringLiteral("on_btn_add_clicked %1 end.").arg(valueType);
        names = ConditionName::sorted(names);
        if (type == ConditionName::Type::Int) {
            qDebug() << names;
        } else {
            qDebug().nospace() << "on_btn_add_clicked sort res=" << names;
        }
        m_qsName = ConditionName::lowestFree(type, names);
    }

    auto row = createRow(m_qsName);
    appendToRegistry(m_qsName, row.get());
    qDebug("m_mapIMHorControls info start.");
    for (const auto& entry : std::as_const(m_mapIMHorControls)) {
        for (auto it = entry.cbegin(); it != entry.cend(); ++it) {
            qDebug().noquote() << it.key();
        }
    }
    qDebug("m_mapIMHorControls info end.");
    appendToList(std::move(row));

    if (addIo(ConditionName::inputIo(m_qsName), valueType, Input) &&
        addIo(ConditionName::valueOutputIo(m_qsName), valueType, Output) &&
        addIo(ConditionName::minimumOutputIo(m_qsName), valueType, Output) &&
        addIo(ConditionName::maximumOutputIo(m_qsName), valueType, Output)) {
        onLogicValueChanged2SetParam();
    }
}

bool QIfModuleMainView::addIo(const QString& ioName, const QString& valueType, IOClass ioClass)
{
    IO_INFO io(ioName.toUtf8().constData(), valueType.toUtf8().constData());
    io.ExtraData.CanSubscribe = false;
    AddIOCommand command(static_cast<UInt>(m_iModuId), &io, ioClass);
    return ExecuteOrLog(
        command, QStringLiteral("[QIfModuleMainView]: on_btn_add_clicked AddIOCommand %1 failed. errmeg=")
                     .arg(ioClass == Input ? QLatin1String("input") : QLatin1String("output")));
}

void QIfModuleMainView::onBtnDeleteOpt(QString name)
{
    qDebug().noquote().nospace() << "onBtnDeleteOpt name = " << name;
    // An entry that goes makes the scan skip the next one, up to the end fixed here; names are unique,
    // so there is one entry at most.
    const int end = m_mapIMHorControls.size();
    for (int i = 0; i < end && i < m_mapIMHorControls.size(); ++i) {
        const auto& entry = m_mapIMHorControls.at(i);
        const auto found = entry.constFind(name);
        if (found == entry.constEnd()) {
            continue;
        }
        HorizontalControlIM* const row = found.value();
        qDebug().noquote() << QStringLiteral("onBtnDeleteOpt find name=[%1] index=[%2]").arg(name).arg(i);
        row->DelIO(name);
        ui->verL_infoList->removeItem(row);
        qDebug("onBtnDeleteOpt removeItem success.");
        m_mapIMHorControls.removeAt(i);
        qDebug("onBtnDeleteOpt removeAt success.");
        delete row;
        qDebug("onBtnDeleteOpt delete ptr success.");
    }
    onLogicValueChanged2SetParam();
}

void QIfModuleMainView::on_btn_close_clicked()
{
    hide();
}

void QIfModuleMainView::on_btn_continueRun_clicked() {}

void QIfModuleMainView::on_btn_onceRun_clicked() {}

void QIfModuleMainView::on_btn_OK_clicked() {}

void QIfModuleMainView::onSubscribeValueChanged2SetParam(QString) {}

std::unique_ptr<HorizontalControlIM> QIfModuleMainView::createRow(const QString& name)
{
    auto row = std::make_unique<HorizontalControlIM>(m_iModuId, name, this);
    connect(row.get(), &HorizontalControlIM::sigBtnDeleteOpt, this, &QIfModuleMainView::onBtnDeleteOpt);
    connect(row.get(), &HorizontalControlIM::sigLogicValueChanged2SetParam, this,
            &QIfModuleMainView::onLogicValueChanged2SetParam);
    connect(row.get(), &HorizontalControlIM::sigSubscribeValueChanged2SetParam, this,
            &QIfModuleMainView::onSubscribeValueChanged2SetParam);
    return row;
}

void QIfModuleMainView::appendToRegistry(const QString& name, HorizontalControlIM* row)
{
    m_mapIMHorControls.append({{name, row}});
}

void QIfModuleMainView::appendToList(std::unique_ptr<HorizontalControlIM> row)
{
    ui->verL_infoList->addLayout(row.release(), 0);
}

void QIfModuleMainView::removeAllRows()
{
    // Dead before they are gone: a row that loses the focus must not store half a list.
    const auto registry = std::exchange(m_mapIMHorControls, {});
    for (const auto& entry : registry) {
        for (HorizontalControlIM* const row : entry) {
            row->disconnect(this);
        }
    }
    while (const std::unique_ptr<QLayoutItem> item{ui->verL_infoList->takeAt(0)}) {
    }
}
