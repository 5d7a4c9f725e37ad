#include "commands/CommandLogModel.h"

#include <QColor>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>

void CommandLogModel::append(QVector<CommandEntry> entries)
{
    if (entries.size() > capacity) {
        entries.remove(0, entries.size() - capacity);
    }
    const int surplus = static_cast<int>(m_entries.size()) + entries.size() - capacity;
    if (surplus > 0) {
        beginRemoveRows({}, 0, surplus - 1);
        m_entries.erase(m_entries.begin(), m_entries.begin() + surplus);
        endRemoveRows();
    }
    if (!entries.isEmpty()) {
        const int first = rowCount();
        beginInsertRows({}, first, first + entries.size() - 1);
        m_entries.insert(m_entries.end(), entries.cbegin(), entries.cend());
        endInsertRows();
    }
}

void CommandLogModel::clear()
{
    beginResetModel();
    m_entries.clear();
    endResetModel();
}

void CommandLogModel::retranslate()
{
    emit headerDataChanged(Qt::Horizontal, 0, ColumnCount - 1);
}

QByteArray CommandLogModel::jsonOf(int row) const
{
    const CommandEntry& entry = m_entries[static_cast<std::size_t>(row)];
    QJsonObject object = {{QStringLiteral("number"), entry.number},
                          {QStringLiteral("time"), entry.time.toString(Qt::ISODateWithMs)},
                          {QStringLiteral("kind"), entry.text.kind},
                          {QStringLiteral("parameter"), entry.text.parameter},
                          {QStringLiteral("content"), entry.text.content},
                          {QStringLiteral("status"), entry.outcome()},
                          {QStringLiteral("message"), entry.message},
                          {QStringLiteral("microseconds"), entry.microseconds}};
    if (entry.text.module) {
        object.insert(QStringLiteral("module"), static_cast<qint64>(*entry.text.module));
    }
    return QJsonDocument(object).toJson(QJsonDocument::Compact);
}

int CommandLogModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_entries.size());
}

int CommandLogModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(ColumnCount);
}

QVariant CommandLogModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid()) {
        return {};
    }
    const CommandEntry& entry = m_entries[static_cast<std::size_t>(index.row())];
    if (role == Qt::ForegroundRole) {
        return entry.isWrong() ? QColor(176, 32, 32) : QVariant();
    }
    if (role != Qt::DisplayRole && role != Qt::ToolTipRole) {
        return {};
    }
    switch (index.column()) {
    case Number:
        return entry.number;
    case Time:
        return entry.time.toString(QStringLiteral("HH:mm:ss.zzz"));
    case Kind:
        return entry.text.kind;
    case Module:
        return entry.text.module ? QVariant(*entry.text.module) : QVariant();
    case Parameter:
        return entry.text.parameter;
    case Content:
        return entry.text.content;
    case Status:
        return entry.outcome();
    case Message:
        return entry.message;
    case Microseconds:
        return entry.microseconds;
    default:
        return {};
    }
}

QVariant CommandLogModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole) {
        return {};
    }
    const QStringList titles = {tr("No."),     tr("Time"),   tr("Kind"),    tr("Module"), tr("Parameter"),
                                tr("Content"), tr("Status"), tr("Message"), tr("µs")};
    return titles.value(section);
}
