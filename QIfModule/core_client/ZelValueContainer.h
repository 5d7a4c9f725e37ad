#pragma once

#include "Enumerations.h"
#include "ZelException.h"

#include <algorithm>
#include <utility>

namespace ZelCore {

/// An owned array of records, part of the binary contract with the core. Copies are deep.
template <typename T>
class ZEL_VALUE_CONTAINER__
{
public:
    ZEL_VALUE_CONTAINER__() = default;
    virtual ~ZEL_VALUE_CONTAINER__() { Clear(); }

    // Delegates, so that the destructor frees the items when copying one of them throws.
    ZEL_VALUE_CONTAINER__(const ZEL_VALUE_CONTAINER__& other)
        : ZEL_VALUE_CONTAINER__()
    {
        CreateList(other.Num());
        std::copy_n(other.m_Items, m_Num, m_Items);
    }

    // By value: the other container may be in one of the items.
    ZEL_VALUE_CONTAINER__& operator=(ZEL_VALUE_CONTAINER__ other)
    {
        SwapItems(other);
        return *this;
    }

    /// The first of Num() items, null when there is none. The container keeps them.
    T* Items() { return m_Items; }
    const T* Items() const { return m_Items; }
    /// The number of items; 0 while m_Items is null, whatever m_Num is.
    UInt Num() const { return m_Items ? m_Num : 0; }

    /// Throws ZelException when there is no such item.
    T& At(const int& index) { return const_cast<T&>(std::as_const(*this).At(index)); }
    const T& At(const int& index) const
    {
        if (index < 0 || static_cast<UInt>(index) >= Num()) {
            throw ZelCommon::ZelException("ZEL_VALUE_CONTAINER__ At index [%d] of [%u] items", index, Num());
        }
        return m_Items[index];
    }

    /// Replaces the content by num default items; none for 0.
    void CreateList(const UInt& num)
    {
        const UInt count = num; // num may be a field of an item that Clear() destroys
        Clear();
        m_Items = count != 0 ? new T[count]() : nullptr;
        m_Num = count;
    }

    void Clear()
    {
        if (m_Num != 0 && m_Items) {
            delete[] std::exchange(m_Items, nullptr);
            m_Num = 0;
        }
    }

    UInt m_Num = 0;
    T* m_Items = nullptr;

protected:
    void SwapItems(ZEL_VALUE_CONTAINER__& other) noexcept
    {
        std::swap(m_Num, other.m_Num);
        std::swap(m_Items, other.m_Items);
    }
};

} // namespace ZelCore
