#include "tools/camreader/Devices_win.h"

namespace pevrix {

using Microsoft::WRL::ComPtr;

namespace {

std::string property(IPropertyBag& bag, const wchar_t* name)
{
    VARIANT value;
    VariantInit(&value);
    std::string text;
    if (SUCCEEDED(bag.Read(name, &value, nullptr)) && V_VT(&value) == VT_BSTR) {
        text = toUtf8(std::wstring(V_BSTR(&value), SysStringLen(V_BSTR(&value))));
    }
    VariantClear(&value);
    return text;
}

} // namespace

std::vector<Device> listDevices()
{
    std::vector<Device> devices;
    ComPtr<ICreateDevEnum> creator;
    ComPtr<IEnumMoniker> monikers;
    // S_FALSE and no enumerator where there is no camera.
    if (FAILED(CoCreateInstance(CLSID_SystemDeviceEnum, nullptr, CLSCTX_INPROC_SERVER,
                                IID_PPV_ARGS(&creator))) ||
        creator->CreateClassEnumerator(CLSID_VideoInputDeviceCategory, &monikers, 0) != S_OK) {
        return devices;
    }
    ComPtr<IMoniker> moniker;
    while (monikers->Next(1, &moniker, nullptr) == S_OK) {
        ComPtr<IPropertyBag> bag;
        if (SUCCEEDED(moniker->BindToStorage(nullptr, nullptr, IID_PPV_ARGS(&bag)))) {
            devices.push_back({property(*bag.Get(), L"FriendlyName"),
                               property(*bag.Get(), L"Description"),
                               property(*bag.Get(), L"DevicePath"), moniker});
        }
        moniker.Reset();
    }
    return devices;
}

std::string toUtf8(const std::wstring& text)
{
    const int length = static_cast<int>(text.size());
    const int needed =
        WideCharToMultiByte(CP_UTF8, 0, text.data(), length, nullptr, 0, nullptr, nullptr);
    std::string bytes(static_cast<std::size_t>(needed), '\0');
    WideCharToMultiByte(CP_UTF8, 0, text.data(), length, bytes.data(), needed, nullptr, nullptr);
    return bytes;
}

} // namespace pevrix
