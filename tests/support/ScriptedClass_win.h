#pragma once

// COM objects of the tests' own, in the place of the system's.

#include <functional>
#include <windows.h>
// After windows.h, whose types they use.
#include <objbase.h>
#include <wrl/client.h>

namespace pevrix {

// The reference counting of a COM object with one interface.
template <typename Interface>
class ComObject : public Interface
{
public:
    virtual ~ComObject() = default;

    STDMETHODIMP QueryInterface(REFIID id, void** object) override
    {
        const bool known = id == __uuidof(IUnknown) || id == __uuidof(Interface);
        *object = known ? static_cast<Interface*>(this) : nullptr;
        if (known) {
            AddRef();
        }
        return known ? S_OK : E_NOINTERFACE;
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

private:
    ULONG m_references = 1;
};

// While it lives, CoCreateInstance() makes an object of this class with `make`, which returns null
// and sets a result where it shall fail. The thread must be in an apartment.
class ScriptedClass
{
public:
    using Make = std::function<IUnknown*(HRESULT& result)>;

    ScriptedClass(REFCLSID id, Make make)
    {
        Microsoft::WRL::ComPtr<IClassFactory> factory;
        factory.Attach(new Factory(std::move(make)));
        m_registered = SUCCEEDED(CoRegisterClassObject(id, factory.Get(), CLSCTX_INPROC_SERVER,
                                                       REGCLS_MULTIPLEUSE, &m_cookie));
    }
    ~ScriptedClass()
    {
        if (m_registered) {
            CoRevokeClassObject(m_cookie);
        }
    }
    ScriptedClass(const ScriptedClass&) = delete;
    ScriptedClass& operator=(const ScriptedClass&) = delete;

private:
    class Factory final : public ComObject<IClassFactory>
    {
    public:
        explicit Factory(Make make)
            : m_make(std::move(make))
        {}
        STDMETHODIMP CreateInstance(IUnknown*, REFIID id, void** object) override
        {
            *object = nullptr;
            HRESULT result = S_OK;
            Microsoft::WRL::ComPtr<IUnknown> made;
            made.Attach(m_make(result));
            return made == nullptr ? result : made->QueryInterface(id, object);
        }
        STDMETHODIMP LockServer(BOOL) override { return S_OK; }

    private:
        const Make m_make;
    };

    DWORD m_cookie = 0;
    bool m_registered = false;
};

} // namespace pevrix
