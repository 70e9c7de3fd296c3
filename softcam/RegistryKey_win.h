#pragma once

#include <cstddef>
#include <string>
#include <utility>
#include <vector>
#include <windows.h>

namespace pevrix {

// Which of the registry's two faces is meant: programs of 32 and of 64 bits see different classes.
enum class RegistryView : REGSAM
{
    Own = 0,
    Bits32 = KEY_WOW64_32KEY
};

// An open key. The functions return the system's error codes.
class RegistryKey
{
public:
    struct Value
    {
        std::wstring name;
        DWORD type = REG_NONE;
        std::vector<BYTE> data;
    };

    RegistryKey() = default;
    RegistryKey(RegistryKey&& other) noexcept
        : m_key(std::exchange(other.m_key, nullptr))
    {}
    ~RegistryKey()
    {
        if (m_key != nullptr) {
            RegCloseKey(m_key);
        }
    }

    // Below HKEY_CLASSES_ROOT.
    LSTATUS create(const wchar_t* path, RegistryView view)
    {
        return RegCreateKeyExW(HKEY_CLASSES_ROOT, path, 0, nullptr, 0,
                               KEY_READ | KEY_WRITE | static_cast<REGSAM>(view), nullptr, &m_key,
                               nullptr);
    }
    LSTATUS open(const wchar_t* path, RegistryView view)
    {
        return RegOpenKeyExW(HKEY_CLASSES_ROOT, path, 0, KEY_READ | static_cast<REGSAM>(view),
                             &m_key);
    }

    // A null name is the key's default value.
    LSTATUS setText(const wchar_t* name, const std::wstring& text)
    {
        return RegSetValueExW(m_key, name, 0, REG_SZ, reinterpret_cast<const BYTE*>(text.c_str()),
                              static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t)));
    }
    LSTATUS set(const Value& value)
    {
        return RegSetValueExW(m_key, value.name.c_str(), 0, value.type, value.data.data(),
                              static_cast<DWORD>(value.data.size()));
    }

    // The value at this place; ERROR_NO_MORE_ITEMS past the end.
    LSTATUS value(DWORD index, Value& value) const
    {
        DWORD longestName = 0;
        DWORD largest = 0;
        LSTATUS status =
            RegQueryInfoKeyW(m_key, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr,
                             &longestName, &largest, nullptr, nullptr);
        if (status != ERROR_SUCCESS) {
            return status;
        }
        DWORD nameLength = longestName + 1;
        value = {std::wstring(nameLength, L'\0'), REG_NONE, std::vector<BYTE>(largest)};
        status = RegEnumValueW(m_key, index, value.name.data(), &nameLength, nullptr, &value.type,
                               value.data.data(), &largest);
        if (status == ERROR_SUCCESS) {
            value.name.resize(nameLength);
            value.data.resize(largest);
        }
        return status;
    }

    [[nodiscard]] bool isEmpty() const
    {
        DWORD keys = 0;
        DWORD values = 0;
        return RegQueryInfoKeyW(m_key, nullptr, nullptr, nullptr, &keys, nullptr, nullptr, &values,
                                nullptr, nullptr, nullptr, nullptr) == ERROR_SUCCESS &&
               keys == 0 && values == 0;
    }

private:
    HKEY m_key = nullptr;
};

} // namespace pevrix
