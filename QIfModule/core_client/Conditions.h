#pragma once

#include "Enumerations.h"
#include "FixedText.h"
#include "ZelException.h"

namespace ZelCore {

/// Asks for the values of the given types that a module may subscribe to.
struct SUBSCRIBE_CONDITION__
{
    UInt ModuleID = 0;
    SUBSCRIBE_RANGE ModuleRange = PreModules;
    UInt VarTypeNum = 0;
    char VauleTypes[3][128] = {};

    SUBSCRIBE_CONDITION__(const UInt& moduleID, const SUBSCRIBE_RANGE& range)
        : ModuleID(moduleID)
        , ModuleRange(range)
    {}
    SUBSCRIBE_CONDITION__(const UInt& moduleID, const char* varType)
        : SUBSCRIBE_CONDITION__(moduleID, varType, PreModules)
    {}
    /// Throws ZelException when varType is null.
    SUBSCRIBE_CONDITION__(const UInt& moduleID, const char* varType, const SUBSCRIBE_RANGE& range)
        : ModuleID(moduleID)
        , ModuleRange(range)
        , VarTypeNum(1)
    {
        if (!varType) {
            throw ZelCommon::ZelException("SUBSCRIBE_CONDITION__ [%s] is nullptr", "varType");
        }
        FillText(VauleTypes[0], varType);
    }
};

/// Asks for a binary-data parameter of a module. A null name reads as an empty one.
struct BINARY_DATA_CONDITION__
{
    UInt ModuleID = 0;
    char ParamName[256] = {};

    BINARY_DATA_CONDITION__(const UInt& moduleID, const char* paramName)
        : ModuleID(moduleID)
    {
        FillText(ParamName, paramName);
    }
};

/// Asks for a run parameter of a module. A null name reads as an empty one.
struct RUN_PARAM_CONDITION__
{
    UInt ModuleID = 0;
    char ParamName[128] = {};

    RUN_PARAM_CONDITION__(const UInt& moduleID, const char* paramName)
        : ModuleID(moduleID)
    {
        FillText(ParamName, paramName);
    }
};

/// Asks for a UI datum of a module.
struct UI_OBJECT_PARAM_INFO_CONDITION__
{
    UInt ObjectID = 0;
    char ParamName[128] = {};

    /// Throws ZelException when paramName is null.
    UI_OBJECT_PARAM_INFO_CONDITION__(const UInt& objectID, const char* paramName)
        : ObjectID(objectID)
    {
        if (!paramName) {
            throw ZelCommon::ZelException("IOUnSubscribeCommand [%s] is nullptr", "paramName");
        }
        FillText(ParamName, paramName);
    }
};

} // namespace ZelCore
