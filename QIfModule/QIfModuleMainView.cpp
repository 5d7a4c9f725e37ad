#include "QIfModuleMainView.h"

#include "FocusedWheel.h"
#include "HorizontalControlIM.h"
#include "QIfModuleExports.h"
#include "StoredLoss.h"
#include "StyleSheet.h"
#include "WarningBox.h"
#include "condition/ConditionName.h"
#include "condition/ConditionRecord.h"
#include "condition/ModuleParameter.h"
#include "core_client/core_client.h"
#include "ui_QIfModuleMainView.h"

#include <QApplication>
#include <QDebug>
#include <QFocusEvent>
#include <QListView>
#include <QScopeGuard>
#include <QTimer>

#include <algorithm>
#include <new>
#include <utility>

using namespace ZelCore;

namespace {

constexpr int maximumConditions = 32;
constexpr UInt saveTimeOut = 5000; // ms

// Whether a note makes the record shorter than its text, and whether it is cut itself when it is read.
bool costsBytes(const QString& note)
{
    return note.toUtf8().size() > note.size();
}

bool isCut(const QString& note)
{
    return note.contains(QLatin1Char(':')) || note.contains(QLatin1Char(';'));
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
    static_cast<void>(form.release()); // deleted by the destructor from here on
}

QIfModuleMainView::~QIfModuleMainView()
{
    // The layouts delete the rows after this destructor; rows emit signals then.
    disconnectRows();
    m_qsName.clear();
    delete ui;
}

void QIfModuleMainView::InitUI()
{
    ui->widget->setFixedHeight(80);

    const QString sheet = QStringLiteral(":/qss_im/QIfModuleMainView.qss");
    if (StyleSheet::set(sheet,
                        {ui->lab_determineType, ui->lab_help, ui->cbox_determineType, ui->cbox_typeSelect})) {
        ui->cbox_typeSelect->setView(new QListView);
        ui->cbox_determineType->setView(new QListView);
        StyleSheet::set(sheet, {ui->lab_help, ui->lab_name, ui->lab_note, ui->lab_condition,
                                ui->lab_effectRange, ui->btn_add, ui->scrollArea, this});
    } else {
        qDebug("[QIfModuleMainView]: InitUI QIfModuleMainView qss file open failed.");
    }

    ui->verL_infoList->setContentsMargins(0, 10, 0, 0);
    // A row's columns keep their widths however wide the panel is; so do the headings over them.
    const int gap = HorizontalControlIM::columnSpacing - ui->horizontalLayout_4->spacing();
    ui->lab_name->setFixedWidth(HorizontalControlIM::nameWidth + gap);
    ui->lab_note->setFixedWidth(HorizontalControlIM::noteWidth + gap);
    ui->lab_condition->setFixedWidth(HorizontalControlIM::selecterWidth + gap);
    // In a host's dialog Return in a field must not add a condition.
    ui->btn_add->setAutoDefault(false);
    new FocusedWheel(ui->cbox_determineType);
    new FocusedWheel(ui->cbox_typeSelect);
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
    showLosses();
    return true;
}

bool QIfModuleMainView::eventFilter(QObject*, QEvent* event)
{
    switch (event->type()) {
    case QEvent::Show:
        QueryIfModuleInfo();
        break;
    case QEvent::MouseButtonPress:
    case QEvent::Hide:
        for (HorizontalControlIM* const row : rows()) {
            row->closeMenus();
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

// An edit ends when Qt moves the focus out of what is hidden. In a hidden window, or when no other widget can
// take the focus, it stays in the field, and the next load would discard the edit.
void QIfModuleMainView::finishEdit()
{
    QWidget* const focus = QApplication::focusWidget();
    if (!focus || !isAncestorOf(focus) || !focus->property("modified").toBool()) {
        return;
    }
    for (auto* next = focus->nextInFocusChain(); next != focus; next = next->nextInFocusChain()) {
        if (!window()->isHidden() && (next->focusPolicy() & Qt::TabFocus) && next->isEnabled() &&
            next->isVisibleTo(window())) {
            return;
        }
    }
    QFocusEvent focusOut(QEvent::FocusOut);
    QApplication::sendEvent(focus, &focusOut);
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
        m_mapIMHorControls.append({{condition.name, row.get()}});
        showRow(std::move(row));
    }
    layOutList();
    showLosses();

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
    const QString text = ConditionRecord::toText(shownConditions());
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
    showLosses();
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
        const QStringList all = registeredNames();
        for (const QString& name : all) {
            qDebug().noquote() << name;
            if (name.contains(valueType)) {
                names << name;
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
    QLineEdit* const note = row->noteField();
    m_mapIMHorControls.append({{m_qsName, row.get()}});
    {
        // Also when the log throws: the registry must not refer to a row without an owner.
        const auto show = qScopeGuard([&] { showRow(std::move(row)); });
        qDebug("m_mapIMHorControls info start.");
        const QStringList registered = registeredNames();
        for (const QString& name : registered) {
            qDebug().noquote() << name;
        }
        qDebug("m_mapIMHorControls info end.");
    }
    // Not now: a list that moves closes an open slider, which stores the list.
    QTimer::singleShot(0, note, [this, note] {
        layOutList();
        ui->scrollArea->ensureWidgetVisible(note);
    });

    IO_INFO io;
    const auto addIo = [&](const QString& ioName, IOClass ioClass) {
        io.Clear();
        FillText(io.ParamName, ioName.toUtf8().constData());
        FillText(io.VauleType, valueType.toUtf8().constData());
        io.ExtraData.CanSubscribe = false;
        AddIOCommand command(static_cast<UInt>(m_iModuId), &io, ioClass);
        return ExecuteOrLog(
            command, QStringLiteral("[QIfModuleMainView]: on_btn_add_clicked AddIOCommand %1 failed. errmeg=")
                         .arg(ioClass == Input ? QLatin1String("input") : QLatin1String("output")));
    };
    if (addIo(ConditionName::inputIo(m_qsName), Input) &&
        addIo(ConditionName::valueOutputIo(m_qsName), Output) &&
        addIo(ConditionName::minimumOutputIo(m_qsName), Output) &&
        addIo(ConditionName::maximumOutputIo(m_qsName), Output)) {
        onLogicValueChanged2SetParam();
    }
}

void QIfModuleMainView::onBtnDeleteOpt(QString name)
{
    qDebug().noquote().nospace() << "onBtnDeleteOpt name = " << name;
    // Removing while iterating skips the following entry; names are unique, so that one entry at most goes.
    const int end = m_mapIMHorControls.size();
    for (int i = 0; i < end && i < m_mapIMHorControls.size(); ++i) {
        const auto& entry = m_mapIMHorControls.at(i);
        const auto found = entry.constFind(name);
        if (found == entry.constEnd()) {
            continue;
        }
        HorizontalControlIM* const row = found.value();
        qDebug().noquote()
            << QStringLiteral("onBtnDeleteOpt find name=[%1] index=[%2]").arg(name, QString::number(i));
        if (row) {
            row->DelIO(name);
        }
        ui->verL_infoList->removeItem(row);
        qDebug("onBtnDeleteOpt removeItem success.");
        m_mapIMHorControls.removeAt(i);
        qDebug("onBtnDeleteOpt removeAt success.");
        if (row) {
            delete row;
            qDebug("onBtnDeleteOpt delete ptr success.");
        }
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

void QIfModuleMainView::showRow(std::unique_ptr<HorizontalControlIM> row)
{
    HorizontalControlIM* const shown = row.get();
    {
        const StyleSheet::Suspension suspension(*shown);
        ui->verL_infoList->addLayout(row.release(), 0);
    }
    {
        // Shown and laid out at once; Qt would do it later, widget by widget.
        ui->gridLayout_9->setEnabled(false);
        const auto enable = qScopeGuard([this] { ui->gridLayout_9->setEnabled(true); });
        shown->showInList();
    }
    connect(shown->noteField(), &QLineEdit::textChanged, this, &QIfModuleMainView::showLosses);
    // A row that the host destroys.
    connect(shown, &QObject::destroyed, this, [this](const QObject* destroyed) {
        auto& registry = m_mapIMHorControls;
        const auto isOfRow = [=](const auto& entry) { return entry.values().value(0) == destroyed; };
        registry.erase(std::remove_if(registry.begin(), registry.end(), isOfRow), registry.end());
    });
}

void QIfModuleMainView::layOutList()
{
    ui->gridLayout_9->activate();
    ui->verticalLayout_2->activate();
    QEvent layoutRequest(QEvent::LayoutRequest);
    QApplication::sendEvent(ui->scrollArea, &layoutRequest);
}

QList<ConditionRecord> QIfModuleMainView::shownConditions() const
{
    QList<ConditionRecord> conditions;
    for (const auto& entry : m_mapIMHorControls) {
        for (auto it = entry.cbegin(); it != entry.cend(); ++it) {
            if (const HorizontalControlIM* const row = it.value()) {
                conditions << ConditionRecord{it.key(), row->GetCurrentMinD(), row->GetCurrentMaxD(),
                                              row->GetLabNote()};
            }
        }
    }
    return conditions;
}

// Marks the notes that make the stored list lose text.
void QIfModuleMainView::showLosses()
{
    const QList<HorizontalControlIM*> all = rows();
    const bool isComplete = std::none_of(all.begin(), all.end(), [](const HorizontalControlIM* row) {
        return costsBytes(row->GetLabNote()) || isCut(row->GetLabNote());
    });
    if (isComplete) {
        for (HorizontalControlIM* const row : all) {
            row->showLoss({});
        }
        return;
    }
    const QList<ConditionRecord> conditions = shownConditions();
    const StoredLoss loss(conditions);
    auto condition = conditions.begin();
    for (HorizontalControlIM* const row : all) {
        const auto& [name, minimum, maximum, note] = *condition++;
        QStringList lines;
        if (costsBytes(note)) {
            lines << tr("保存时末尾丢失的字节数：%1").arg(loss.bytes);
            if (!loss.names.isEmpty()) {
                lines << tr("不再恢复的条件：%1").arg(loss.names.join(QLatin1String(", ")));
            }
        }
        if ((!lines.isEmpty() || isCut(note)) && loss.cutNotes.contains(name)) {
            lines << tr("注释只恢复为：%1").arg(loss.cutNotes[name]);
        }
        if (note.contains(QLatin1Char(';')) && !loss.addedNames.isEmpty()) {
            lines << tr("另外恢复的条件：%1").arg(loss.addedNames.join(QLatin1String(", ")));
        }
        row->showLoss(lines.join(QLatin1Char('\n')));
    }
}

QList<HorizontalControlIM*> QIfModuleMainView::rows() const
{
    QList<HorizontalControlIM*> all;
    for (const auto& entry : m_mapIMHorControls) {
        all << entry.values();
    }
    all.removeAll(nullptr);
    return all;
}

QStringList QIfModuleMainView::registeredNames() const
{
    QStringList names;
    for (const auto& entry : m_mapIMHorControls) {
        names << entry.keys();
    }
    return names;
}

void QIfModuleMainView::removeAllRows()
{
    // A row that loses the focus while it is deleted must not store an incomplete list.
    disconnectRows();
    m_mapIMHorControls.clear();
    while (const std::unique_ptr<QLayoutItem> item{ui->verL_infoList->takeAt(0)}) {
    }
}

void QIfModuleMainView::disconnectRows()
{
    for (int i = 0; i < ui->verL_infoList->count(); ++i) {
        if (auto* const row = qobject_cast<HorizontalControlIM*>(ui->verL_infoList->itemAt(i)->layout())) {
            row->disconnect(this);
            row->noteField()->disconnect(this);
        }
    }
}

bool CreateModuParamConfigInstance(unsigned int moduleId, QWidget* parent, QWidget** out)
{
    if (!out) {
        return false;
    }
    *out = new (std::nothrow) QIfModuleMainView(static_cast<int>(moduleId), parent);
    return *out != nullptr;
}

bool LangChanged(QWidget* view)
{
    auto* const panel = qobject_cast<QIfModuleMainView*>(view);
    return panel && panel->RetranslateUi();
}
