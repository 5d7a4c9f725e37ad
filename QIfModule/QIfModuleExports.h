#pragma once

#include <QtGlobal>

class QWidget;

/// What a host looks up in the plug-in by name. GUI thread only.
extern "C" {

/// Builds the panel of a module and stores it through out; the caller owns it, or the parent when there
/// is one. False, and null through out, when memory runs out; false when out is null.
Q_DECL_EXPORT bool CreateModuParamConfigInstance(unsigned int moduleId, QWidget* parent, QWidget** out);

/// To be called after a change of language, with a panel made by the function above. False for anything
/// else.
Q_DECL_EXPORT bool LangChanged(QWidget* view);
}
