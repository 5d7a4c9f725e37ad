#pragma once

#include "Commands.h"
#include "Conditions.h"
#include "Enumerations.h"
#include "IocContainar.h"
#include "Records.h"

#include <cstddef>
#include <functional>

// The binary contract: layouts and values that plug-in and core share across the library boundary, the same
// on every 64-bit platform with the Itanium C++ ABI. They are checked wherever the client is included;
// offsets and size together fix the width of every field.
namespace ZelCore::BinaryLayout {

// offsetof is used on types with a virtual pointer; GCC and Clang define it for single inheritance.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Winvalid-offsetof"

static_assert(sizeof(void*) == 8);

static_assert(sizeof(CommandResult) == 1032 && offsetof(CommandResult, Message) == 0 &&
              offsetof(CommandResult, Status) == 1024 && offsetof(CommandResult, ErrorCode) == 1028);

using Bytes = ZEL_VALUE_CONTAINER__<char>;
static_assert(sizeof(Bytes) == 24 && offsetof(Bytes, m_Num) == 8 && offsetof(Bytes, m_Items) == 16);
static_assert(sizeof(KADO_MODULE_PARAM__) == 656 && offsetof(KADO_MODULE_PARAM__, strParamName) == 0 &&
              offsetof(KADO_MODULE_PARAM__, strParamValue) == 128 &&
              offsetof(KADO_MODULE_PARAM__, nReserved) == 640);
static_assert(sizeof(SUBSCRIBE_TREE__) == 24);
static_assert(sizeof(SUBSCRIBE_NODE__) == 416 && offsetof(SUBSCRIBE_NODE__, ModuleID) == 24 &&
              offsetof(SUBSCRIBE_NODE__, NodeName) == 28 && offsetof(SUBSCRIBE_NODE__, SubscribeName) == 156);
static_assert(sizeof(BINARY_DATA__) == 288 && offsetof(BINARY_DATA__, ModuleID) == 24 &&
              offsetof(BINARY_DATA__, ParamName) == 28);
static_assert(sizeof(UI_OBJECT_PARAM_INFO__) == 152 && offsetof(UI_OBJECT_PARAM_INFO__, ParamName) == 24);
static_assert(sizeof(IO_EXTRA_DATA__) == 11 && offsetof(IO_EXTRA_DATA__, CanSubscribe) == 0 &&
              offsetof(IO_EXTRA_DATA__, IsPrefer) == 1 && offsetof(IO_EXTRA_DATA__, Visible) == 2 &&
              offsetof(IO_EXTRA_DATA__, VisibleInResultTree) == 3 &&
              offsetof(IO_EXTRA_DATA__, IsPrivate) == 4 && offsetof(IO_EXTRA_DATA__, CustomVisible) == 5 &&
              offsetof(IO_EXTRA_DATA__, IsForce) == 6 &&
              offsetof(IO_EXTRA_DATA__, IsReturnRelateValue) == 7 &&
              offsetof(IO_EXTRA_DATA__, AllowAutoSubscribe) == 8 &&
              offsetof(IO_EXTRA_DATA__, AllowAutoSubscribeByOther) == 9 &&
              offsetof(IO_EXTRA_DATA__, IsResultShow) == 10);
static_assert(sizeof(IO_INFO__) == 296 && offsetof(IO_INFO__, ParamName) == 24 &&
              offsetof(IO_INFO__, VauleType) == 152 && offsetof(IO_INFO__, ExtraData) == 280);

static_assert(sizeof(SUBSCRIBE_CONDITION__) == 396 && offsetof(SUBSCRIBE_CONDITION__, ModuleID) == 0 &&
              offsetof(SUBSCRIBE_CONDITION__, ModuleRange) == 4 &&
              offsetof(SUBSCRIBE_CONDITION__, VarTypeNum) == 8 &&
              offsetof(SUBSCRIBE_CONDITION__, VauleTypes) == 12);
static_assert(sizeof(BINARY_DATA_CONDITION__) == 260 && offsetof(BINARY_DATA_CONDITION__, ParamName) == 4);
static_assert(sizeof(RUN_PARAM_CONDITION__) == 132 && offsetof(RUN_PARAM_CONDITION__, ParamName) == 4);
static_assert(sizeof(UI_OBJECT_PARAM_INFO_CONDITION__) == 132 &&
              offsetof(UI_OBJECT_PARAM_INFO_CONDITION__, ParamName) == 4);

static_assert(sizeof(Command) == 8);
static_assert(sizeof(AddIOCommand) == 32 && offsetof(AddIOCommand, ModuleID) == 8 &&
              offsetof(AddIOCommand, IOInfo) == 16 && offsetof(AddIOCommand, IoClass) == 24);
static_assert(sizeof(SetRunParamCommand) == 656 && offsetof(SetRunParamCommand, ModuleID) == 8 &&
              offsetof(SetRunParamCommand, ParamName) == 12 && offsetof(SetRunParamCommand, Val) == 140);
static_assert(sizeof(SetBinaryDataCommand) == 288 && offsetof(SetBinaryDataCommand, ModuleID) == 8 &&
              offsetof(SetBinaryDataCommand, ParamName) == 12 &&
              offsetof(SetBinaryDataCommand, DataLen) == 268 && offsetof(SetBinaryDataCommand, Data) == 272 &&
              offsetof(SetBinaryDataCommand, TimeOut) == 280);
static_assert(sizeof(SetUIDataCommand) == 152 && offsetof(SetUIDataCommand, ModuleID) == 8 &&
              offsetof(SetUIDataCommand, ParamName) == 12 && offsetof(SetUIDataCommand, DataLen) == 140 &&
              offsetof(SetUIDataCommand, Data) == 144);
static_assert(sizeof(DeleteUIDataCommand) == 144 && offsetof(DeleteUIDataCommand, ModuleID) == 8 &&
              offsetof(DeleteUIDataCommand, ParamName) == 12);
using AnyQuery = QueryCommand<BINARY_DATA_CONDITION__, BINARY_DATA__>;
static_assert(sizeof(AnyQuery) == 24 && offsetof(AnyQuery, Condition) == 8 &&
              offsetof(AnyQuery, Result) == 16);

using ServiceHolder = ZelCommon::Any::Holder<std::function<ICommandService*()>>;
static_assert(sizeof(ICommandService) == 8 && sizeof(ZelCommon::Any) == 8 && sizeof(ServiceHolder) == 40 &&
              offsetof(ServiceHolder, m_held) == 8);
static_assert(sizeof(ZelCommon::IocContainar) == 56 && sizeof(ZelCommon::ZelException) == 1040);
static_assert(offsetof(ZelCommon::IocContainar, m_Constructors_Map) == 0 &&
              offsetof(ZelCommon::IocContainar, m_IsBuild) == 48);

#pragma GCC diagnostic pop

static_assert(None == 0 && Success == 1 && NothingChanged == 2 && Failed == 3);
static_assert(PreModules == 1 && CurModule == 2 && PreAndCur == 3 && InternalModules == 4 &&
              InternalAndCur == 6 && PreAndInternalAndCur == 7 && ParentModule == 16 && ParentAndPre == 17 &&
              ParentAndPreAndCur == 19);
static_assert(Input == 1 && Output == 2 && Unknown == 3);
static_assert(SUBSCRIBE_TYPE_RUNPARAM == 0 && SUBSCRIBE_TYPE_IO == 1);
static_assert(SUBSCRIBE_VAR_INVAlID == 0 && SUBSCRIBE_VAR_CONSTANT == 1 && SUBSCRIBE_VAR_GLOBAL == 2 &&
              SUBSCRIBE_VAR_VARIABLE == 3);
static_assert(SUBSCRIBE_INDEX_INVALID == 0 && SUBSCRIBE_INDEX_ALL == 1 && SUBSCRIBE_INDEX_CONSTANT == 2 &&
              SUBSCRIBE_INDEX_VARIABLE == 3);
static_assert(sizeof(CommandStatus) == 4 && sizeof(SUBSCRIBE_RANGE) == 4 && sizeof(IOClass) == 4 &&
              sizeof(ENUM_IO_SUBSCRIBE_TYPE_) == 4 && sizeof(KADO_ENUM_SUBSCRIBE_VAR_TYPE__) == 4 &&
              sizeof(KADO_ENUM_SUBSCRIBE_INDEX_TYPE__) == 4);

} // namespace ZelCore::BinaryLayout
