#pragma once

// Owners for what COM hands out besides references to objects.

#include <string>
#include <string_view>
#include <windows.h>
// After windows.h, whose types they use.
#include <oleauto.h>

namespace pevrix {

// Keeps the calling thread in a single-threaded apartment, or in the one that it is in already.
// Everything that came from COM must be released before this object ends.
class Apartment
{
public:
    Apartment()
        : m_result(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED))
    {}
    ~Apartment()
    {
        if (SUCCEEDED(m_result)) {
            CoUninitialize();
        }
    }
    Apartment(const Apartment&) = delete;
    Apartment& operator=(const Apartment&) = delete;

    [[nodiscard]] bool usable() const
    {
        return SUCCEEDED(m_result) || m_result == RPC_E_CHANGED_MODE;
    }

private:
    const HRESULT m_result;
};

class Bstr
{
public:
    Bstr() = default;
    explicit Bstr(const std::wstring& text)
        : m_text(SysAllocString(text.c_str()))
    {}
    ~Bstr() { SysFreeString(m_text); }
    Bstr(const Bstr&) = delete;
    Bstr& operator=(const Bstr&) = delete;

    // Null when there was no memory for it.
    [[nodiscard]] BSTR get() const { return m_text; }

    // For a call that returns a string; once only.
    [[nodiscard]] BSTR* put() { return &m_text; }

    [[nodiscard]] std::wstring_view view() const { return {m_text, SysStringLen(m_text)}; }

private:
    BSTR m_text = nullptr; // which stands for an empty one
};

class Variant
{
public:
    Variant() { VariantInit(&m_value); }
    ~Variant() { VariantClear(&m_value); }
    Variant(const Variant&) = delete;
    Variant& operator=(const Variant&) = delete;

    // For a call that returns a value; once only.
    [[nodiscard]] VARIANT* put() { return &m_value; }

    // Null when the value is no object.
    [[nodiscard]] IDispatch* object() const
    {
        return V_VT(&m_value) == VT_DISPATCH ? V_DISPATCH(&m_value) : nullptr;
    }

private:
    VARIANT m_value;
};

} // namespace pevrix
