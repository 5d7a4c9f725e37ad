#include "QIfModuleExports.h"

#include "QIfModuleMainView.h"

#include <new>

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
