#pragma once

#include "Enumerations.h"
#include "FixedText.h"
#include "ZelValueContainer.h"

#include <utility>

/// A run parameter as the core stores it: both fields are texts.
struct KADO_MODULE_PARAM__
{
    char strParamName[128] = {};
    char strParamValue[512] = {};
    unsigned int nReserved[4] = {};
};

namespace ZelCore {

/// A value, or a group of values, that a module may subscribe to. Names are UTF-8.
struct SUBSCRIBE_NODE__ : ZEL_VALUE_CONTAINER__<SUBSCRIBE_NODE__>
{
    UInt ModuleID = 0;
    char NodeName[128] = {};
    char SubscribeName[256] = {};

    SUBSCRIBE_NODE__() = default;
    SUBSCRIBE_NODE__(const SUBSCRIBE_NODE__&) = default;
    SUBSCRIBE_NODE__& operator=(SUBSCRIBE_NODE__ other)
    {
        SwapItems(other);
        std::swap(ModuleID, other.ModuleID);
        std::swap(NodeName, other.NodeName);
        std::swap(SubscribeName, other.SubscribeName);
        return *this;
    }
};

/// The top-level nodes: one for each module that offers something.
struct SUBSCRIBE_TREE__ : ZEL_VALUE_CONTAINER__<SUBSCRIBE_NODE__>
{};

/// The bytes of a binary-data parameter; the core appends a NUL that Num() counts.
struct BINARY_DATA__ : ZEL_VALUE_CONTAINER__<char>
{
    UInt ModuleID = 0;
    char ParamName[256] = {};
};

/// The bytes of a UI datum.
struct UI_OBJECT_PARAM_INFO__ : ZEL_VALUE_CONTAINER__<char>
{
    char ParamName[128] = {};
};

/// The text in a byte record: up to the first NUL, never past the record.
inline std::string_view TextOf(const ZEL_VALUE_CONTAINER__<char>& bytes)
{
    return bytes.Items() ? std::string_view(bytes.Items(), ::strnlen(bytes.Items(), bytes.Num()))
                         : std::string_view();
}

/// How a module IO is offered and shown.
struct IO_EXTRA_DATA__
{
    bool CanSubscribe = true;
    bool IsPrefer = true;
    bool Visible = true;
    bool VisibleInResultTree = true;
    bool IsPrivate = false;
    bool CustomVisible = true;
    bool IsForce = false;
    bool IsReturnRelateValue = true;
    bool AllowAutoSubscribe = true;
    bool AllowAutoSubscribeByOther = true;
    bool IsResultShow = true;
};
using IO_EXTRA_DATA = IO_EXTRA_DATA__;

/// A module IO: its name, its value type ("int", "float", ...), its flags, and its sub-items.
struct IO_INFO__ : ZEL_VALUE_CONTAINER__<IO_INFO__>
{
    char ParamName[128] = {};
    char VauleType[128] = {};
    IO_EXTRA_DATA__ ExtraData;

    IO_INFO__() = default;
    IO_INFO__(const IO_INFO__&) = default;
    IO_INFO__& operator=(IO_INFO__ other)
    {
        SwapItems(other);
        std::swap(ParamName, other.ParamName);
        std::swap(VauleType, other.VauleType);
        std::swap(ExtraData, other.ExtraData);
        return *this;
    }
    IO_INFO__(const char* name, const char* type) { Init(name, type, nullptr); }

    /// Sets name, type and flags; null flags are the default ones. The sub-items stay.
    void Init(const char* name, const char* type, IO_EXTRA_DATA* extraData)
    {
        FillText(ParamName, name);
        FillText(VauleType, type);
        ExtraData = extraData ? *extraData : IO_EXTRA_DATA__();
    }
};
using IO_INFO = IO_INFO__;

} // namespace ZelCore
