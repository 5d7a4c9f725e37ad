#pragma once

#include "Conditions.h"
#include "FixedText.h"
#include "ICommandService.h"
#include "Records.h"
#include "ZelException.h"

#include <cstring>

namespace ZelCore {

/// The platform's wording for a null text; the commands that own data and DeleteUIDataCommand share it.
inline const char* CheckedUIDataText(const char* text, const char* argument)
{
    return ZelCommon::CheckedText(text,
                                  "SetUIDataCommand(const UInt& moduleID, const char* paramName, "
                                  "const char* data, UInt& dataLen) [%s] is nullptr",
                                  argument);
}

/// A copy of length bytes in a new array, which the caller owns; for 0 an empty array that is not freed.
inline char* CopyOfData(const char* data, const UInt& length)
{
    static char empty[1] = {};
    CheckedUIDataText(data, "data");
    return length == 0 ? empty : static_cast<char*>(std::memcpy(new char[length], data, length));
}

/// Frees what CopyOfData() returned for the length.
inline void FreeData(char* data, const UInt& length)
{
    if (length != 0) {
        delete[] data;
    }
}

/// Gives a module an input or an output. IOInfo stays the caller's and must outlive the execution.
struct AddIOCommand : Command
{
    AddIOCommand(const UInt& moduleID, IO_INFO* ioInfo, const IOClass& ioClass)
        : ModuleID(moduleID)
        , IOInfo(ioInfo)
        , IoClass(ioClass)
    {}
    const char* Key() override { return "AddIO"; }

    UInt ModuleID;
    IO_INFO__* IOInfo;
    IOClass IoClass;
};

/// Sets a run parameter, a text, of a module.
struct SetRunParamCommand : Command
{
    /// Throws ZelException when paramName or val is null.
    SetRunParamCommand(const UInt& moduleID, const char* paramName, const char* val)
        : ModuleID(moduleID)
    {
        constexpr char format[] =
            "SetRunParamCommand(UInt& moduleID, char* paramName,char* val) [%s] is nullptr";
        FillText(ParamName, ZelCommon::CheckedText(paramName, format, "paramName"));
        FillText(Val, ZelCommon::CheckedText(val, format, "val"));
    }
    const char* Key() override { return "SetRunParam"; }

    UInt ModuleID;
    char ParamName[128];
    char Val[512];
};

/// Sets a binary-data parameter of a module to a copy of the given bytes.
struct SetBinaryDataCommand : Command
{
    /// Throws ZelException when paramName or data is null.
    SetBinaryDataCommand(const UInt& moduleID, const char* paramName, const char* data, const UInt& dataLen)
        : SetBinaryDataCommand(moduleID, paramName, data, dataLen, 0)
    {}
    /// The same with a time-out in milliseconds, 0 for the core's own.
    SetBinaryDataCommand(const UInt& moduleID, const char* paramName, const char* data, const UInt& dataLen,
                         const UInt& timeOut)
        : ModuleID(moduleID)
        , TimeOut(timeOut)
    {
        FillText(ParamName, CheckedUIDataText(paramName, "paramName"));
        Data = CopyOfData(data, dataLen);
        DataLen = dataLen;
    }
    ~SetBinaryDataCommand() override { FreeData(Data, DataLen); }
    SetBinaryDataCommand(const SetBinaryDataCommand&) = delete;
    SetBinaryDataCommand& operator=(const SetBinaryDataCommand&) = delete;
    const char* Key() override { return "SetBinaryData"; }

    UInt ModuleID;
    char ParamName[256];
    UInt DataLen = 0;
    char* Data = nullptr;
    UInt TimeOut;
};

/// Sets a UI datum of a module, which only its panel reads, to a copy of the given bytes.
struct SetUIDataCommand : Command
{
    /// Throws ZelException when paramName or data is null.
    SetUIDataCommand(const UInt& moduleID, const char* paramName, const char* data, UInt& dataLen)
        : ModuleID(moduleID)
    {
        FillText(ParamName, CheckedUIDataText(paramName, "paramName"));
        Data = CopyOfData(data, dataLen);
        DataLen = dataLen;
    }
    ~SetUIDataCommand() override { FreeData(Data, DataLen); }
    SetUIDataCommand(const SetUIDataCommand&) = delete;
    SetUIDataCommand& operator=(const SetUIDataCommand&) = delete;
    const char* Key() override { return "SetUIData"; }

    UInt ModuleID;
    char ParamName[128];
    UInt DataLen = 0;
    char* Data = nullptr;
};

/// Removes a UI datum of a module.
struct DeleteUIDataCommand : Command
{
    /// Throws ZelException when paramName is null.
    DeleteUIDataCommand(const UInt& moduleID, const char* paramName)
        : ModuleID(moduleID)
    {
        FillText(ParamName, CheckedUIDataText(paramName, "paramName"));
    }
    const char* Key() override { return "DeleteUIData"; }

    UInt ModuleID;
    char ParamName[128];
};

/// The Key() of a query, by its condition.
template <typename Condition>
inline constexpr const char* QueryKey = "Query";
template <>
inline constexpr const char* QueryKey<SUBSCRIBE_CONDITION__> = "QuerySubscribeTree";
template <>
inline constexpr const char* QueryKey<BINARY_DATA_CONDITION__> = "QueryBinaryData";
template <>
inline constexpr const char* QueryKey<RUN_PARAM_CONDITION__> = "QueryRunParam";
template <>
inline constexpr const char* QueryKey<UI_OBJECT_PARAM_INFO_CONDITION__> = "QueryUIData";

/// Asks the core for what a condition names. Neither condition nor result is owned; both must outlive
/// the execution. The result is written on success only.
template <typename Cond, typename ResultRecord>
struct QueryCommand : Command
{
    QueryCommand(const Cond& condition, ResultRecord* result)
        : Condition(&condition)
        , Result(result)
    {}
    const char* Key() override { return QueryKey<Cond>; }

    const Cond* Condition;
    ResultRecord* Result;
};

} // namespace ZelCore
