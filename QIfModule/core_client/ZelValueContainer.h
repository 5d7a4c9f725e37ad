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

    ZEL_VALUE_CONTAINER__(const ZEL_VALUE_CONTAINER__& other)
    {
        CreateList(other.m_Num);
        try {
            std::copy_n(other.m_Items, m_Num, m_Items);
        } catch (...) {
            Clear();
            throw;
        }
    }

    ZEL_VALUE_CONTAINER__& operator=(const ZEL_VALUE_CONTAINER__& other)
    {
        if (this != &other) {
            ZEL_VALUE_CONTAINER__ copy(other);
            std::swap(m_Num, copy.m_Num);
            std::swap(m_Items, copy.m_Items);
        }
        return *this;
    }

    /// The first of Num() items, null when there is none. The container keeps them.
    T* Items() { return m_Items; }
    const T* Items() const { return m_Items; }
    UInt Num() const { return m_Num; }

    /// Throws ZelException when there is no such item.
    T& At(const int& index) { return const_cast<T&>(std::as_const(*this).At(index)); }
    const T& At(const int& index) const
    {
        if (index < 0 || static_cast<UInt>(index) >= m_Num) {
            throw ZelCommon::ZelException("ZEL_VALUE_CONTAINER__ At index [%d] of [%u] items", index, m_Num);
        }
        return m_Items[index];
    }

    /// Replaces the content by num default items; none for 0.
    void CreateList(const UInt& num)
    {
        const UInt count = num; // num may be a field of an item that Clear() destroys
        Clear();
        if (count != 0) {
            m_Items = new T[count]();
            m_Num = count;
        }
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
};

} // namespace ZelCore
