#pragma once

#include "Any.h"
#include "ZelException.h"

#include <functional>
#include <map>
#include <string>
#include <typeinfo>
#include <utility>

namespace ZelCommon {

/// The process-wide container from which services are resolved. The host registers a function per
/// service, calls Build() once, and only then lets clients resolve; nothing is locked, so all of it
/// belongs on the GUI thread.
class IocContainar
{
public:
    /// The one object of the process, kept by libZelCommon.
    static IocContainar& Instance();

    IocContainar(const IocContainar&) = delete;
    IocContainar& operator=(const IocContainar&) = delete;

    /// The key under which a service of type T is registered and looked up.
    template <typename T>
    static std::string KeyOf()
    {
        return std::to_string(typeid(T).hash_code());
    }

    bool IsRegister(const char* key) const { return key && m_Constructors_Map.count(key) != 0; }

    /// Registers, or replaces, the function behind a key: an Any holding std::function<T*()>.
    void RegisterType(std::string&& key, Any&& constructor)
    {
        m_Constructors_Map.insert_or_assign(std::move(key), std::move(constructor));
    }

    /// Ends the registration: from now on Resolve() answers.
    void Build() { m_IsBuild = true; }

    /// Forgets every registration; Build() has to be called again.
    void Clear()
    {
        m_Constructors_Map.clear();
        m_IsBuild = false;
    }

    /// The service of type T, not owned by the caller; null when none is registered.
    /// Throws ZelException before Build() and when the key holds a value of another type.
    template <typename T>
    T* Resolve() const
    {
        return IntermalResolveNoKey<T, std::function<T*()>>();
    }

    template <typename T, typename Function>
    T* IntermalResolveNoKey() const
    {
        CheckBuild();
        return IntermalResolve<T, Function>(KeyOf<T>());
    }

    template <typename T, typename Function>
    T* IntermalResolve(const std::string& key) const
    {
        CheckBuild();
        const auto found = m_Constructors_Map.find(key);
        if (found == m_Constructors_Map.end()) {
            return nullptr;
        }
        const std::type_info& held = found->second.Type();
        if (held.hash_code() != typeid(Function).hash_code()) {
            throw ZelException("Can not cast TypeName:[%s] to  TypeName:[%s]", PlainName(held),
                               PlainName(typeid(Function)));
        }
        const Function function = found->second.Cast<Function>();
        return function ? function() : nullptr;
    }

    std::map<std::string, Any> m_Constructors_Map;
    bool m_IsBuild = false;

private:
    IocContainar() = default;
    ~IocContainar() = default;

    void CheckBuild() const
    {
        if (!m_IsBuild) {
            throw ZelException("Containar is not Build");
        }
    }

    // Compilers mark types that are local to one library with a leading "*".
    static const char* PlainName(const std::type_info& type)
    {
        const char* const name = type.name();
        return *name == '*' ? name + 1 : name;
    }
};

} // namespace ZelCommon
