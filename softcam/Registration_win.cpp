// Tells the system about the camera and takes it back: what regsvr32 calls, with administrator
// rights.
#include "softcam/ComServer_win.h"
#include "softcam/RegistryKey_win.h"
#include "system/Com_win.h"

#include <wrl/client.h>
// After windows.h, whose types it uses.
#include <dshow.h>

namespace pevrix {
namespace {

using Microsoft::WRL::ComPtr;

// The longest that the system has.
constexpr DWORD kMaxPath = 32'768;

#define PEVRIX_CLASS L"CLSID\\{276143AA-B755-440E-834A-93CDEBCA334B}"
#define PEVRIX_CATEGORY L"CLSID\\{860BB310-5D01-11D0-BD3B-00A0C911CE86}"
constexpr wchar_t kClassKey[] = PEVRIX_CLASS;
constexpr wchar_t kServerKey[] = PEVRIX_CLASS L"\\InprocServer32";
constexpr wchar_t kCategoryKey[] = PEVRIX_CATEGORY;
constexpr wchar_t kInstancesKey[] = PEVRIX_CATEGORY L"\\Instance";
constexpr wchar_t kInstanceKey[] =
    PEVRIX_CATEGORY L"\\Instance\\{276143AA-B755-440E-834A-93CDEBCA334B}";

std::wstring pathOfThisLibrary()
{
    std::wstring path(kMaxPath, L'\0');
    path.resize(GetModuleFileNameW(thisModule(), path.data(), kMaxPath));
    return path;
}

// The library for 32-bit programs that lies beside this one; empty when this is one itself, or
// when there is none.
std::wstring sibling(const std::wstring& library)
{
    const std::size_t folder = library.find_last_of(L'\\') + 1;
    const std::wstring path = library.substr(0, folder) + L"x86\\" + library.substr(folder);
    const bool is64Bit = sizeof(void*) == 8;
    return is64Bit && GetFileAttributesW(path.c_str()) != INVALID_FILE_ATTRIBUTES ? path
                                                                                  : std::wstring();
}

HRESULT resultOf(LSTATUS status)
{
    return HRESULT_FROM_WIN32(static_cast<DWORD>(status));
}

// What COM needs to load a library for the camera's class.
HRESULT registerClass(const std::wstring& library, RegistryView view)
{
    RegistryKey classKey;
    RegistryKey server;
    LSTATUS status = classKey.create(kClassKey, view);
    status = status != ERROR_SUCCESS ? status : classKey.setText(nullptr, kCameraName);
    status = status != ERROR_SUCCESS ? status : server.create(kServerKey, view);
    status = status != ERROR_SUCCESS ? status : server.setText(nullptr, library);
    status = status != ERROR_SUCCESS ? status : server.setText(L"ThreadingModel", L"Both");
    return resultOf(status);
}

// Puts the class into the list of cameras. Programs read that without loading the library.
HRESULT registerFilter(IFilterMapper2& mapper)
{
    const REGPINTYPES type{&MEDIATYPE_Video, &MEDIASUBTYPE_YUY2};
    REGFILTERPINS2 pin{};
    pin.dwFlags = REG_PINFLAG_B_OUTPUT;
    pin.cInstances = 1;
    pin.nMediaTypes = 1;
    pin.lpMediaType = &type;
    pin.clsPinCategory = &PIN_CATEGORY_CAPTURE;
    REGFILTER2 filter{};
    filter.dwVersion = 2;
    filter.dwMerit = MERIT_DO_NOT_USE; // nobody shall get a camera unasked
    filter.cPins2 = 1;
    filter.rgPins2 = &pin;
    ComPtr<IMoniker> noMoniker;
    const HRESULT result =
        mapper.RegisterFilter(kCameraClass, kCameraName, &noMoniker,
                              &CLSID_VideoInputDeviceCategory, kCameraClassText, &filter);
    if (FAILED(result)) {
        return result;
    }
    RegistryKey instance;
    const LSTATUS status = instance.create(kInstanceKey, RegistryView::Own);
    return resultOf(status != ERROR_SUCCESS ? status
                                            : instance.setText(L"DevicePath", kDevicePath));
}

// The list's entry is the same for programs of 32 bits, so it needs no process with 32 bits.
HRESULT copyFilterTo(RegistryView view)
{
    RegistryKey from;
    RegistryKey to;
    LSTATUS status = from.open(kInstanceKey, RegistryView::Own);
    status = status != ERROR_SUCCESS ? status : to.create(kInstanceKey, view);
    for (DWORD index = 0; status == ERROR_SUCCESS; ++index) {
        RegistryKey::Value value;
        status = from.value(index, value);
        if (status == ERROR_NO_MORE_ITEMS) {
            return S_OK;
        }
        status = status != ERROR_SUCCESS ? status : to.set(value);
    }
    return resultOf(status);
}

// Takes the key away when it is there and holds nothing.
void removeIfEmpty(const wchar_t* path, RegistryView view)
{
    RegistryKey key;
    if (key.open(path, view) == ERROR_SUCCESS && key.isEmpty()) {
        RegDeleteKeyExW(HKEY_CLASSES_ROOT, path, static_cast<REGSAM>(view), 0);
    }
}

// Removes everything that registering creates. A missing key is not an error.
HRESULT removeKeys(RegistryView view)
{
    HRESULT result = S_OK;
    for (const wchar_t* path : {kInstanceKey, kServerKey, kClassKey}) {
        const LSTATUS status =
            RegDeleteKeyExW(HKEY_CLASSES_ROOT, path, static_cast<REGSAM>(view), 0);
        if (status != ERROR_SUCCESS && status != ERROR_FILE_NOT_FOUND) {
            result = resultOf(status);
        }
    }
    removeIfEmpty(kInstancesKey, view);
    removeIfEmpty(kCategoryKey, view);
    return result;
}

HRESULT removeAll()
{
    const HRESULT own = removeKeys(RegistryView::Own);
    const HRESULT other = sizeof(void*) == 4 ? S_OK : removeKeys(RegistryView::Bits32);
    return FAILED(own) ? own : other;
}

HRESULT registerAll()
{
    const std::wstring library = pathOfThisLibrary();
    const Apartment apartment;
    ComPtr<IFilterMapper2> mapper;
    HRESULT result = apartment.usable()
                         ? CoCreateInstance(CLSID_FilterMapper2, nullptr, CLSCTX_INPROC_SERVER,
                                            IID_PPV_ARGS(&mapper))
                         : E_FAIL;
    result = FAILED(result) ? result : registerClass(library, RegistryView::Own);
    result = FAILED(result) ? result : registerFilter(*mapper.Get());
    const std::wstring other = sibling(library);
    if (SUCCEEDED(result) && !other.empty()) {
        result = registerClass(other, RegistryView::Bits32);
        result = FAILED(result) ? result : copyFilterTo(RegistryView::Bits32);
    }
    return result;
}

} // namespace
} // namespace pevrix

STDAPI DllRegisterServer()
{
    return pevrix::withoutThrowing([] {
        const HRESULT result = pevrix::registerAll();
        if (FAILED(result)) {
            pevrix::removeAll(); // leave no half-registered camera
        }
        return result;
    });
}

STDAPI DllUnregisterServer()
{
    return pevrix::withoutThrowing([] { return pevrix::removeAll(); });
}
