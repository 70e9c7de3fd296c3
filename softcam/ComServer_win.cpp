#include "softcam/ComServer_win.h"

#include "softcam/CameraFilter_win.h"

#include <new>
#include <wrl/client.h>

namespace pevrix {
namespace {

using Microsoft::WRL::ComPtr;

std::atomic<long> s_uses = 0;
HMODULE s_module = nullptr;

class CameraFactory final : public ComObject<IClassFactory>
{
public:
    STDMETHODIMP CreateInstance(IUnknown* outer, REFIID iid, void** object) override
    {
        if (object == nullptr) {
            return E_POINTER;
        }
        *object = nullptr;
        if (outer != nullptr) {
            return CLASS_E_NOAGGREGATION;
        }
        ComPtr<CameraFilter> filter;
        filter.Attach(new (std::nothrow) CameraFilter);
        return filter ? filter->QueryInterface(iid, object) : E_OUTOFMEMORY;
    }

    STDMETHODIMP LockServer(BOOL lock) override
    {
        s_uses += lock != FALSE ? 1 : -1;
        return S_OK;
    }
};

} // namespace

ModuleUse::ModuleUse()
{
    ++s_uses;
}

ModuleUse::~ModuleUse()
{
    --s_uses;
}

HMODULE thisModule()
{
    return s_module;
}

} // namespace pevrix

extern "C" BOOL WINAPI DllMain(HINSTANCE module, DWORD reason, void* /*reserved*/)
{
    if (reason == DLL_PROCESS_ATTACH) {
        pevrix::s_module = module;
    }
    return TRUE;
}

STDAPI DllGetClassObject(REFCLSID classId, REFIID iid, void** object)
{
    if (object == nullptr) {
        return E_POINTER;
    }
    *object = nullptr;
    if (classId != pevrix::kCameraClass) {
        return CLASS_E_CLASSNOTAVAILABLE;
    }
    Microsoft::WRL::ComPtr<pevrix::CameraFactory> factory;
    factory.Attach(new (std::nothrow) pevrix::CameraFactory);
    return factory ? factory->QueryInterface(iid, object) : E_OUTOFMEMORY;
}

STDAPI DllCanUnloadNow()
{
    return pevrix::s_uses == 0 ? S_OK : S_FALSE;
}
