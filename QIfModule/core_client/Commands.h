#pragma once

#include "Conditions.h"
#include "FixedText.h"
#include "ICommandService.h"
#include "Records.h"
#include "ZelException.h"

#include <cstring>

namespace ZelCore {

/// The platform's wording for a null text; several commands share it.
inline constexpr char SetUIDataNullFormat[] =
    "SetUIDataCommand(const UInt& moduleID, const char* paramName, const char* data, UInt& dataLen) "
    "[%s] is nullptr";

/// A copy of length bytes in a new array, zeroed first; the caller owns it.
inline char* CopyOfData(const char* data, const UInt& length)
{
    if (!data) {
        throw ZelCommon::ZelException(SetUIDataNullFormat, "data");
    }
    char* const copy = new char[length]();
    std::memcpy(copy, data, length);
    return copy;
}

/// Gives a module an input or an output. IOInfo stays the caller's and must outlive the execution.
class AddIOCommand : public Command
{
public:
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
class SetRunParamCommand : public Command
{
public:
    /// Throws ZelException when val is null; a null name reads as an empty one.
    SetRunParamCommand(const UInt& moduleID, const char* paramName, const char* val)
        : ModuleID(moduleID)
    {
        if (!val) {
            throw ZelCommon::ZelException(
                "SetRunParamCommand(UInt& moduleID, char* paramName,char* val) [%s] is nullptr", "val");
        }
        FillText(ParamName, paramName);
        FillText(Val, val);
    }
    const char* Key() override { return "SetRunParam"; }

    UInt ModuleID;
    char ParamName[128];
    char Val[512];
};

/// Sets a binary-data parameter of a module to a copy of the given bytes.
class SetBinaryDataCommand : public Command
{
public:
    /// Throws ZelException when data is null; a null name reads as an empty one.
    SetBinaryDataCommand(const UInt& moduleID, const char* paramName, const char* data, const UInt& dataLen)
        : SetBinaryDataCommand(moduleID, paramName, data, dataLen, 0)
    {}
    /// The same with a time-out in milliseconds, 0 for the core's own.
    SetBinaryDataCommand(const UInt& moduleID, const char* paramName, const char* data, const UInt& dataLen,
                         const UInt& timeOut)
        : ModuleID(moduleID)
        , DataLen(dataLen)
        , Data(CopyOfData(data, dataLen))
        , TimeOut(timeOut)
    {
        FillText(ParamName, paramName);
    }
    ~SetBinaryDataCommand() override { delete[] Data; }
    SetBinaryDataCommand(const SetBinaryDataCommand&) = delete;
    SetBinaryDataCommand& operator=(const SetBinaryDataCommand&) = delete;
    const char* Key() override { return "SetBinaryData"; }

    UInt ModuleID;
    char ParamName[256];
    UInt DataLen;
    char* Data;
    UInt TimeOut;
};

/// Sets a UI datum of a module, something only its panel reads, to a copy of the given bytes.
class SetUIDataCommand : public Command
{
public:
    /// Throws ZelException when paramName or data is null.
    SetUIDataCommand(const UInt& moduleID, const char* paramName, const char* data, UInt& dataLen)
        : ModuleID(moduleID)
        , DataLen(dataLen)
    {
        if (!paramName) {
            throw ZelCommon::ZelException(SetUIDataNullFormat, "paramName");
        }
        FillText(ParamName, paramName);
        Data = CopyOfData(data, dataLen);
    }
    ~SetUIDataCommand() override { delete[] Data; }
    SetUIDataCommand(const SetUIDataCommand&) = delete;
    SetUIDataCommand& operator=(const SetUIDataCommand&) = delete;
    const char* Key() override { return "SetUIData"; }

    UInt ModuleID;
    char ParamName[128];
    UInt DataLen;
    char* Data = nullptr;
};

/// Removes a UI datum of a module.
class DeleteUIDataCommand : public Command
{
public:
    /// Throws ZelException when paramName is null.
    DeleteUIDataCommand(const UInt& moduleID, const char* paramName)
        : ModuleID(moduleID)
    {
        if (!paramName) {
            throw ZelCommon::ZelException(SetUIDataNullFormat, "paramName");
        }
        FillText(ParamName, paramName);
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
class QueryCommand : public Command
{
public:
    QueryCommand(const Cond& condition, ResultRecord* result)
        : Condition(&condition)
        , Result(result)
    {}
    const char* Key() override { return QueryKey<Cond>; }

    const Cond* Condition;
    ResultRecord* Result;
};

} // namespace ZelCore
