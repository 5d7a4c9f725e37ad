#pragma once

#include <type_traits>
#include <typeinfo>
#include <utility>

namespace ZelCommon {

/// Holds one copyable value of any type, or nothing.
class Any
{
public:
    class Base
    {
    public:
        virtual ~Base() = default;
        virtual const std::type_info& Type() const = 0;
        /// The caller owns the copy.
        virtual Base* Clone() const = 0;
    };

    template <typename T>
    class Holder : public Base
    {
    public:
        explicit Holder(T value)
            : m_held(std::move(value))
        {}
        const std::type_info& Type() const override { return typeid(T); }
        Base* Clone() const override { return new Holder(m_held); }

        T m_held;
    };

    Any() = default;

    template <typename T, typename = std::enable_if_t<!std::is_same_v<std::decay_t<T>, Any>>>
    Any(T&& value)
        : m_contentPtr(new Holder<std::decay_t<T>>(std::forward<T>(value)))
    {}

    Any(const Any& other)
        : m_contentPtr(other.m_contentPtr ? other.m_contentPtr->Clone() : nullptr)
    {}

    Any(Any&& other) noexcept
        : m_contentPtr(std::exchange(other.m_contentPtr, nullptr))
    {}

    Any& operator=(Any other) noexcept
    {
        std::swap(m_contentPtr, other.m_contentPtr);
        return *this;
    }

    ~Any() { delete m_contentPtr; }

    /// The type of the held value; void while there is none.
    const std::type_info& Type() const { return m_contentPtr ? m_contentPtr->Type() : typeid(void); }

    /// The held value. T must be the type that Type() names.
    template <typename T>
    const T& Cast() const
    {
        return static_cast<const Holder<T>*>(m_contentPtr)->m_held;
    }

    Base* m_contentPtr = nullptr;
};

} // namespace ZelCommon
