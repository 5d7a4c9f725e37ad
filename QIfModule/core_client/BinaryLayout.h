// The binary contract in numbers: layouts, values and virtual functions that plug-in and core share across
// the library boundary, the same on every 64-bit platform with the Itanium C++ ABI. It is included with the
// macros defined, more than once. scripts/update_contract.sh writes the numbers; a new entry is added by
// hand, in the order of the fields, with any number.
//
// clang-format off
//   QIF_RECORD(type, size, alignment)            all of its fields follow, behind its base
//   QIF_BASE(type, base, size)
//   QIF_FIELD(type, field, offset, size)
//   QIF_OPAQUE(type, size, alignment)            its fields are private, but inline functions use them
//   QIF_VALUE(enumeration, enumerator, value)
//   QIF_SLOT(type, function, signature, slot)    place in the virtual table; a destructor takes the first two

QIF_RECORD(CommandResult, 1032, 4)
QIF_FIELD(CommandResult, Message, 0, 1024)
QIF_FIELD(CommandResult, Status, 1024, 4)
QIF_FIELD(CommandResult, ErrorCode, 1028, 4)

QIF_RECORD(ZEL_VALUE_CONTAINER__<char>, 24, 8)
QIF_FIELD(ZEL_VALUE_CONTAINER__<char>, m_Num, 8, 4)
QIF_FIELD(ZEL_VALUE_CONTAINER__<char>, m_Items, 16, 8)

QIF_RECORD(KADO_MODULE_PARAM__, 656, 4)
QIF_FIELD(KADO_MODULE_PARAM__, strParamName, 0, 128)
QIF_FIELD(KADO_MODULE_PARAM__, strParamValue, 128, 512)
QIF_FIELD(KADO_MODULE_PARAM__, nReserved, 640, 16)

QIF_RECORD(SUBSCRIBE_NODE__, 416, 8)
QIF_BASE(SUBSCRIBE_NODE__, ZEL_VALUE_CONTAINER__<SUBSCRIBE_NODE__>, 24)
QIF_FIELD(SUBSCRIBE_NODE__, ModuleID, 24, 4)
QIF_FIELD(SUBSCRIBE_NODE__, NodeName, 28, 128)
QIF_FIELD(SUBSCRIBE_NODE__, SubscribeName, 156, 256)

QIF_RECORD(SUBSCRIBE_TREE__, 24, 8)
QIF_BASE(SUBSCRIBE_TREE__, ZEL_VALUE_CONTAINER__<SUBSCRIBE_NODE__>, 24)

QIF_RECORD(BINARY_DATA__, 288, 8)
QIF_BASE(BINARY_DATA__, ZEL_VALUE_CONTAINER__<char>, 24)
QIF_FIELD(BINARY_DATA__, ModuleID, 24, 4)
QIF_FIELD(BINARY_DATA__, ParamName, 28, 256)

QIF_RECORD(UI_OBJECT_PARAM_INFO__, 152, 8)
QIF_BASE(UI_OBJECT_PARAM_INFO__, ZEL_VALUE_CONTAINER__<char>, 24)
QIF_FIELD(UI_OBJECT_PARAM_INFO__, ParamName, 24, 128)

QIF_RECORD(IO_EXTRA_DATA__, 11, 1)
QIF_FIELD(IO_EXTRA_DATA__, CanSubscribe, 0, 1)
QIF_FIELD(IO_EXTRA_DATA__, IsPrefer, 1, 1)
QIF_FIELD(IO_EXTRA_DATA__, Visible, 2, 1)
QIF_FIELD(IO_EXTRA_DATA__, VisibleInResultTree, 3, 1)
QIF_FIELD(IO_EXTRA_DATA__, IsPrivate, 4, 1)
QIF_FIELD(IO_EXTRA_DATA__, CustomVisible, 5, 1)
QIF_FIELD(IO_EXTRA_DATA__, IsForce, 6, 1)
QIF_FIELD(IO_EXTRA_DATA__, IsReturnRelateValue, 7, 1)
QIF_FIELD(IO_EXTRA_DATA__, AllowAutoSubscribe, 8, 1)
QIF_FIELD(IO_EXTRA_DATA__, AllowAutoSubscribeByOther, 9, 1)
QIF_FIELD(IO_EXTRA_DATA__, IsResultShow, 10, 1)

QIF_RECORD(IO_INFO__, 296, 8)
QIF_BASE(IO_INFO__, ZEL_VALUE_CONTAINER__<IO_INFO__>, 24)
QIF_FIELD(IO_INFO__, ParamName, 24, 128)
QIF_FIELD(IO_INFO__, VauleType, 152, 128)
QIF_FIELD(IO_INFO__, ExtraData, 280, 11)

QIF_RECORD(SUBSCRIBE_CONDITION__, 396, 4)
QIF_FIELD(SUBSCRIBE_CONDITION__, ModuleID, 0, 4)
QIF_FIELD(SUBSCRIBE_CONDITION__, ModuleRange, 4, 4)
QIF_FIELD(SUBSCRIBE_CONDITION__, VarTypeNum, 8, 4)
QIF_FIELD(SUBSCRIBE_CONDITION__, VauleTypes, 12, 384)

QIF_RECORD(BINARY_DATA_CONDITION__, 260, 4)
QIF_FIELD(BINARY_DATA_CONDITION__, ModuleID, 0, 4)
QIF_FIELD(BINARY_DATA_CONDITION__, ParamName, 4, 256)

QIF_RECORD(RUN_PARAM_CONDITION__, 132, 4)
QIF_FIELD(RUN_PARAM_CONDITION__, ModuleID, 0, 4)
QIF_FIELD(RUN_PARAM_CONDITION__, ParamName, 4, 128)

QIF_RECORD(UI_OBJECT_PARAM_INFO_CONDITION__, 132, 4)
QIF_FIELD(UI_OBJECT_PARAM_INFO_CONDITION__, ObjectID, 0, 4)
QIF_FIELD(UI_OBJECT_PARAM_INFO_CONDITION__, ParamName, 4, 128)

QIF_RECORD(ICommand, 8, 8)
QIF_SLOT(ICommand, Key, const char*(), 2)

QIF_RECORD(Command, 8, 8)
QIF_BASE(Command, ICommand, 8)

QIF_RECORD(AddIOCommand, 32, 8)
QIF_BASE(AddIOCommand, Command, 8)
QIF_FIELD(AddIOCommand, ModuleID, 8, 4)
QIF_FIELD(AddIOCommand, IOInfo, 16, 8)
QIF_FIELD(AddIOCommand, IoClass, 24, 4)

QIF_RECORD(SetRunParamCommand, 656, 8)
QIF_BASE(SetRunParamCommand, Command, 8)
QIF_FIELD(SetRunParamCommand, ModuleID, 8, 4)
QIF_FIELD(SetRunParamCommand, ParamName, 12, 128)
QIF_FIELD(SetRunParamCommand, Val, 140, 512)

QIF_RECORD(SetBinaryDataCommand, 288, 8)
QIF_BASE(SetBinaryDataCommand, Command, 8)
QIF_FIELD(SetBinaryDataCommand, ModuleID, 8, 4)
QIF_FIELD(SetBinaryDataCommand, ParamName, 12, 256)
QIF_FIELD(SetBinaryDataCommand, DataLen, 268, 4)
QIF_FIELD(SetBinaryDataCommand, Data, 272, 8)
QIF_FIELD(SetBinaryDataCommand, TimeOut, 280, 4)

QIF_RECORD(SetUIDataCommand, 152, 8)
QIF_BASE(SetUIDataCommand, Command, 8)
QIF_FIELD(SetUIDataCommand, ModuleID, 8, 4)
QIF_FIELD(SetUIDataCommand, ParamName, 12, 128)
QIF_FIELD(SetUIDataCommand, DataLen, 140, 4)
QIF_FIELD(SetUIDataCommand, Data, 144, 8)

QIF_RECORD(DeleteUIDataCommand, 144, 8)
QIF_BASE(DeleteUIDataCommand, Command, 8)
QIF_FIELD(DeleteUIDataCommand, ModuleID, 8, 4)
QIF_FIELD(DeleteUIDataCommand, ParamName, 12, 128)

QIF_RECORD(AnyQuery, 24, 8)
QIF_BASE(AnyQuery, Command, 8)
QIF_FIELD(AnyQuery, Condition, 8, 8)
QIF_FIELD(AnyQuery, Result, 16, 8)

QIF_RECORD(ICommandService, 8, 8)
QIF_SLOT(ICommandService, Execute, CommandResult(ICommand&), 2)
QIF_SLOT(ICommandService, Execute, CommandResult(const void*, ICommand&), 3)
QIF_SLOT(ICommandService, ExecuteAsync, std::future<CommandResult>(const void*, ICommand&), 4)

QIF_OPAQUE(ZelCommon::Any, 8, 8)
QIF_SLOT(ZelCommon::Any::Base, Type, const std::type_info&() const, 2)
QIF_SLOT(ZelCommon::Any::Base, Clone, ZelCommon::Any::Base*() const, 3)

QIF_RECORD(ServiceHolder, 40, 8)
QIF_BASE(ServiceHolder, ZelCommon::Any::Base, 8)
QIF_FIELD(ServiceHolder, m_held, 8, 32)

QIF_OPAQUE(ZelCommon::IocContainar, 56, 8)

QIF_OPAQUE(ZelCommon::ZelException, 1040, 8)

QIF_RECORD(CommandStatus, 4, 4)
QIF_VALUE(CommandStatus, None, 0)
QIF_VALUE(CommandStatus, Success, 1)
QIF_VALUE(CommandStatus, NothingChanged, 2)
QIF_VALUE(CommandStatus, Failed, 3)

QIF_RECORD(SUBSCRIBE_RANGE, 4, 4)
QIF_VALUE(SUBSCRIBE_RANGE, PreModules, 1)
QIF_VALUE(SUBSCRIBE_RANGE, CurModule, 2)
QIF_VALUE(SUBSCRIBE_RANGE, PreAndCur, 3)
QIF_VALUE(SUBSCRIBE_RANGE, InternalModules, 4)
QIF_VALUE(SUBSCRIBE_RANGE, InternalAndCur, 6)
QIF_VALUE(SUBSCRIBE_RANGE, PreAndInternalAndCur, 7)
QIF_VALUE(SUBSCRIBE_RANGE, ParentModule, 16)
QIF_VALUE(SUBSCRIBE_RANGE, ParentAndPre, 17)
QIF_VALUE(SUBSCRIBE_RANGE, ParentAndPreAndCur, 19)

QIF_RECORD(IOClass, 4, 4)
QIF_VALUE(IOClass, Input, 1)
QIF_VALUE(IOClass, Output, 2)
QIF_VALUE(IOClass, Unknown, 3)

QIF_RECORD(ENUM_IO_SUBSCRIBE_TYPE_, 4, 4)
QIF_VALUE(ENUM_IO_SUBSCRIBE_TYPE_, SUBSCRIBE_TYPE_RUNPARAM, 0)
QIF_VALUE(ENUM_IO_SUBSCRIBE_TYPE_, SUBSCRIBE_TYPE_IO, 1)

QIF_RECORD(KADO_ENUM_SUBSCRIBE_VAR_TYPE__, 4, 4)
QIF_VALUE(KADO_ENUM_SUBSCRIBE_VAR_TYPE__, SUBSCRIBE_VAR_INVAlID, 0)
QIF_VALUE(KADO_ENUM_SUBSCRIBE_VAR_TYPE__, SUBSCRIBE_VAR_CONSTANT, 1)
QIF_VALUE(KADO_ENUM_SUBSCRIBE_VAR_TYPE__, SUBSCRIBE_VAR_GLOBAL, 2)
QIF_VALUE(KADO_ENUM_SUBSCRIBE_VAR_TYPE__, SUBSCRIBE_VAR_VARIABLE, 3)

QIF_RECORD(KADO_ENUM_SUBSCRIBE_INDEX_TYPE__, 4, 4)
QIF_VALUE(KADO_ENUM_SUBSCRIBE_INDEX_TYPE__, SUBSCRIBE_INDEX_INVALID, 0)
QIF_VALUE(KADO_ENUM_SUBSCRIBE_INDEX_TYPE__, SUBSCRIBE_INDEX_ALL, 1)
QIF_VALUE(KADO_ENUM_SUBSCRIBE_INDEX_TYPE__, SUBSCRIBE_INDEX_CONSTANT, 2)
QIF_VALUE(KADO_ENUM_SUBSCRIBE_INDEX_TYPE__, SUBSCRIBE_INDEX_VARIABLE, 3)
