#pragma once

// COM objects of the tests' own, in the place of the system's.

#include "tools/doubles/ComObject_win.h"

#include <functional>
#include <windows.h>
// After windows.h, whose types they use.
#include <objbase.h>
#include <wrl/client.h>

namespace pevrix {

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
    class Factory final : public CountedObject<IClassFactory>
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
