#pragma once

// What makes this library a COM server, and what its objects have in common. Nothing here throws.

#include <atomic>
#include <exception>
#include <utility>
#include <windows.h>
// After windows.h, whose types it uses.
#include <strmif.h>

namespace pevrix {

// Programs remember a camera by these, in their settings: neither ever changes.
inline constexpr CLSID kCameraClass{
    0x276143AA, 0xB755, 0x440E, {0x83, 0x4A, 0x93, 0xCD, 0xEB, 0xCA, 0x33, 0x4B}};
inline constexpr wchar_t kCameraClassText[] = L"{276143AA-B755-440E-834A-93CDEBCA334B}";
inline constexpr wchar_t kCameraName[] = L"Pevrix";
inline constexpr wchar_t kDevicePath[] = L"pevrix:camera:276143AA-B755-440E-834A-93CDEBCA334B";

// The library stays loaded while one of these lives.
class ModuleUse
{
public:
    ModuleUse();
    ~ModuleUse();
    ModuleUse(const ModuleUse&) = delete;
    ModuleUse& operator=(const ModuleUse&) = delete;
};

// This library as a loaded file.
[[nodiscard]] HMODULE thisModule();

// What call() returns, or E_OUTOFMEMORY where it throws: for what allocates below COM's functions.
template <typename Call>
HRESULT withoutThrowing(const Call& call)
{
    try {
        return call();
    } catch (const std::exception&) {
        return E_OUTOFMEMORY;
    }
}

// Which interfaces a pointer to this one stands for.
template <typename Interface>
bool isOneOf(REFIID iid)
{
    return iid == __uuidof(Interface);
}
template <>
inline bool isOneOf<IBaseFilter>(REFIID iid)
{
    return iid == __uuidof(IBaseFilter) || iid == __uuidof(IMediaFilter) ||
           iid == __uuidof(IPersist);
}

// QueryInterface() of an object that implements these; the first stands for its identity.
template <typename First, typename... Rest, typename Object>
HRESULT queryInterface(Object* object, REFIID iid, void** found)
{
    if (found == nullptr) {
        return E_POINTER;
    }
    *found = nullptr;
    const auto take = [&](bool asked, void* part) {
        *found = *found == nullptr && asked ? part : *found;
    };
    take(iid == __uuidof(IUnknown) || isOneOf<First>(iid), static_cast<First*>(object));
    (take(isOneOf<Rest>(iid), static_cast<Rest*>(object)), ...);
    if (*found == nullptr) {
        return E_NOINTERFACE;
    }
    object->AddRef();
    return S_OK;
}

// An object of its own: counts its references, starting with its maker's.
template <typename... Interfaces>
class ComObject : public Interfaces...
{
public:
    ComObject() = default;
    ComObject(const ComObject&) = delete;
    ComObject& operator=(const ComObject&) = delete;

    STDMETHODIMP QueryInterface(REFIID iid, void** found) override
    {
        return queryInterface<Interfaces...>(this, iid, found);
    }
    STDMETHODIMP_(ULONG) AddRef() override { return ++m_references; }
    STDMETHODIMP_(ULONG) Release() override
    {
        const ULONG left = --m_references;
        if (left == 0) {
            delete this;
        }
        return left;
    }

protected:
    virtual ~ComObject() = default;

private:
    std::atomic<ULONG> m_references = 1;
    ModuleUse m_moduleUse;
};

} // namespace pevrix
