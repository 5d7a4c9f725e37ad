#pragma once

#include "Commands.h"
#include "Conditions.h"
#include "Enumerations.h"
#include "Records.h"

#include <cstddef>

// Layouts shared with the core across the library boundary, as an LP64 machine lays them out: a
// virtual pointer first where a type has one, then the fields at their natural alignment.

// offsetof is used on types with a virtual pointer; GCC and Clang define it for single inheritance.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Winvalid-offsetof"

namespace ZelCore::BinaryContract {

static_assert(sizeof(void*) == 8, "the layouts below are those of a 64-bit platform");

static_assert(sizeof(CommandStatus) == 4);
static_assert(sizeof(SUBSCRIBE_RANGE) == 4);
static_assert(sizeof(IOClass) == 4);
static_assert(sizeof(ENUM_IO_SUBSCRIBE_TYPE_) == 4);
static_assert(sizeof(KADO_ENUM_SUBSCRIBE_VAR_TYPE__) == 4);
static_assert(sizeof(KADO_ENUM_SUBSCRIBE_INDEX_TYPE__) == 4);

static_assert(sizeof(CommandResult) == 1032);
static_assert(offsetof(CommandResult, Message) == 0);
static_assert(offsetof(CommandResult, Status) == 1024);
static_assert(offsetof(CommandResult, ErrorCode) == 1028);

static_assert(sizeof(ZEL_VALUE_CONTAINER__<char>) == 24);
static_assert(offsetof(ZEL_VALUE_CONTAINER__<char>, m_Num) == 8);
static_assert(offsetof(ZEL_VALUE_CONTAINER__<char>, m_Items) == 16);

static_assert(sizeof(KADO_MODULE_PARAM__) == 656);
static_assert(offsetof(KADO_MODULE_PARAM__, strParamName) == 0);
static_assert(offsetof(KADO_MODULE_PARAM__, strParamValue) == 128);
static_assert(offsetof(KADO_MODULE_PARAM__, nReserved) == 640);

static_assert(sizeof(SUBSCRIBE_TREE__) == 24);
static_assert(sizeof(SUBSCRIBE_NODE__) == 416);
static_assert(offsetof(SUBSCRIBE_NODE__, ModuleID) == 24);
static_assert(offsetof(SUBSCRIBE_NODE__, NodeName) == 28);
static_assert(offsetof(SUBSCRIBE_NODE__, SubscribeName) == 156);

static_assert(sizeof(BINARY_DATA__) == 288);
static_assert(offsetof(BINARY_DATA__, ModuleID) == 24);
static_assert(offsetof(BINARY_DATA__, ParamName) == 28);

static_assert(sizeof(UI_OBJECT_PARAM_INFO__) == 152);
static_assert(offsetof(UI_OBJECT_PARAM_INFO__, ParamName) == 24);

static_assert(sizeof(IO_EXTRA_DATA__) == 11);
static_assert(offsetof(IO_EXTRA_DATA__, CanSubscribe) == 0);
static_assert(offsetof(IO_EXTRA_DATA__, IsPrefer) == 1);
static_assert(offsetof(IO_EXTRA_DATA__, Visible) == 2);
static_assert(offsetof(IO_EXTRA_DATA__, VisibleInResultTree) == 3);
static_assert(offsetof(IO_EXTRA_DATA__, IsPrivate) == 4);
static_assert(offsetof(IO_EXTRA_DATA__, CustomVisible) == 5);
static_assert(offsetof(IO_EXTRA_DATA__, IsForce) == 6);
static_assert(offsetof(IO_EXTRA_DATA__, IsReturnRelateValue) == 7);
static_assert(offsetof(IO_EXTRA_DATA__, AllowAutoSubscribe) == 8);
static_assert(offsetof(IO_EXTRA_DATA__, AllowAutoSubscribeByOther) == 9);
static_assert(offsetof(IO_EXTRA_DATA__, IsResultShow) == 10);

static_assert(sizeof(IO_INFO__) == 296);
static_assert(offsetof(IO_INFO__, ParamName) == 24);
static_assert(offsetof(IO_INFO__, VauleType) == 152);
static_assert(offsetof(IO_INFO__, ExtraData) == 280);

static_assert(sizeof(SUBSCRIBE_CONDITION__) == 396);
static_assert(offsetof(SUBSCRIBE_CONDITION__, ModuleID) == 0);
static_assert(offsetof(SUBSCRIBE_CONDITION__, ModuleRange) == 4);
static_assert(offsetof(SUBSCRIBE_CONDITION__, VarTypeNum) == 8);
static_assert(offsetof(SUBSCRIBE_CONDITION__, VauleTypes) == 12);

static_assert(sizeof(BINARY_DATA_CONDITION__) == 260);
static_assert(offsetof(BINARY_DATA_CONDITION__, ParamName) == 4);
static_assert(sizeof(RUN_PARAM_CONDITION__) == 132);
static_assert(offsetof(RUN_PARAM_CONDITION__, ParamName) == 4);
static_assert(sizeof(UI_OBJECT_PARAM_INFO_CONDITION__) == 132);
static_assert(offsetof(UI_OBJECT_PARAM_INFO_CONDITION__, ParamName) == 4);

static_assert(sizeof(Command) == 8);

static_assert(sizeof(AddIOCommand) == 32);
static_assert(offsetof(AddIOCommand, ModuleID) == 8);
static_assert(offsetof(AddIOCommand, IOInfo) == 16);
static_assert(offsetof(AddIOCommand, IoClass) == 24);

static_assert(sizeof(SetRunParamCommand) == 656);
static_assert(offsetof(SetRunParamCommand, ModuleID) == 8);
static_assert(offsetof(SetRunParamCommand, ParamName) == 12);
static_assert(offsetof(SetRunParamCommand, Val) == 140);

static_assert(sizeof(SetBinaryDataCommand) == 288);
static_assert(offsetof(SetBinaryDataCommand, ModuleID) == 8);
static_assert(offsetof(SetBinaryDataCommand, ParamName) == 12);
static_assert(offsetof(SetBinaryDataCommand, DataLen) == 268);
static_assert(offsetof(SetBinaryDataCommand, Data) == 272);
static_assert(offsetof(SetBinaryDataCommand, TimeOut) == 280);

static_assert(sizeof(SetUIDataCommand) == 152);
static_assert(offsetof(SetUIDataCommand, ModuleID) == 8);
static_assert(offsetof(SetUIDataCommand, ParamName) == 12);
static_assert(offsetof(SetUIDataCommand, DataLen) == 140);
static_assert(offsetof(SetUIDataCommand, Data) == 144);

static_assert(sizeof(DeleteUIDataCommand) == 144);
static_assert(offsetof(DeleteUIDataCommand, ModuleID) == 8);
static_assert(offsetof(DeleteUIDataCommand, ParamName) == 12);

using AnyQuery = QueryCommand<BINARY_DATA_CONDITION__, BINARY_DATA__>;
static_assert(sizeof(AnyQuery) == 24);
static_assert(offsetof(AnyQuery, Condition) == 8);
static_assert(offsetof(AnyQuery, Result) == 16);

} // namespace ZelCore::BinaryContract

#pragma GCC diagnostic pop
