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
        FillText(VauleTypes[0],
                 ZelCommon::CheckedText(varType, "SUBSCRIBE_CONDITION__ [%s] is nullptr", "varType"));
    }
};

/// Asks for a binary-data parameter of a module.
struct BINARY_DATA_CONDITION__
{
    UInt ModuleID = 0;
    char ParamName[256] = {};

    /// Throws ZelException when paramName is null.
    BINARY_DATA_CONDITION__(const UInt& moduleID, const char* paramName)
        : ModuleID(moduleID)
    {
        FillText(ParamName,
                 ZelCommon::CheckedText(paramName, "BINARY_DATA_CONDITION__ [%s] is nullptr", "paramName"));
    }
};

/// Asks for a run parameter of a module.
struct RUN_PARAM_CONDITION__
{
    UInt ModuleID = 0;
    char ParamName[128] = {};

    /// Throws ZelException when paramName is null.
    RUN_PARAM_CONDITION__(const UInt& moduleID, const char* paramName)
        : ModuleID(moduleID)
    {
        FillText(ParamName,
                 ZelCommon::CheckedText(paramName, "RUN_PARAM_CONDITION__ [%s] is nullptr", "paramName"));
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
        FillText(ParamName,
                 ZelCommon::CheckedText(paramName, "IOUnSubscribeCommand [%s] is nullptr", "paramName"));
    }
};

} // namespace ZelCore
