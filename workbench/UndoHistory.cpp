#include "UndoHistory.h"

#include "ConditionsFile.h"
#include "CoreSession.h"
#include "inspector/ModuleInspection.h"

#include <QSignalBlocker>

#include <utility>

UndoHistory::UndoHistory(CurrentModule& module, QObject* parent)
    : QObject(parent)
    , m_module(module)
{
    connect(&module, &CurrentModule::changed, this, &UndoHistory::note);
}

void UndoHistory::note()
{
    const auto& now = m_module.configuration();
    const auto present = m_present.find(m_module.id());
    if (now && present == m_present.end()) {
        m_present.insert(m_module.id(), *now);
    } else if (now && !ModuleInspection::judgeAlike(*present, *now)) {
        auto& past = m_past[m_module.id()];
        past << std::exchange(*present, *now);
        past = past.mid(past.size() - longest);
    }
    emit changed();
}

bool UndoHistory::undo(QString* error)
{
    m_module.refresh();
    bool isUndone = true;
    if (m_module.configuration() && canUndo()) {
        const QSignalBlocker blocker(m_module);
        isUndone = ConditionsFile::apply(m_past[m_module.id()].last(), m_module.session().core(),
                                         m_module.id(), error);
        m_module.refresh();
        if (isUndone) {
            m_present[m_module.id()] = m_past[m_module.id()].takeLast();
        }
    }
    m_module.refresh();
    return isUndone;
}
