#pragma once

#include <string>
#include <vector>
#include <windows.h>
// After windows.h, whose types it uses.
#include <dshow.h>
#include <wrl/client.h>

namespace pevrix {

// A camera as a list of cameras has it: nothing of it is loaded.
struct Device
{
    std::string name;
    std::string description;
    std::string path;
    Microsoft::WRL::ComPtr<IMoniker> moniker;
};

// The video input devices of this machine that programs of this process's bits see.
[[nodiscard]] std::vector<Device> listDevices();

[[nodiscard]] std::string toUtf8(const std::wstring& text);

} // namespace pevrix
