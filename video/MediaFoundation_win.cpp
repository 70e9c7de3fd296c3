#include "video/MediaFoundation_win.h"

namespace pevrix {
namespace {

HMODULE systemLibrary(const wchar_t* name)
{
    return LoadLibraryExW(name, nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32);
}

template <typename... Arguments>
HRESULT WINAPI missing(Arguments... /*arguments*/)
{
    return E_NOTIMPL;
}

// False when it is missing.
template <typename... Arguments>
bool find(HRESULT(WINAPI*& function)(Arguments...), HMODULE library, const char* name)
{
    const FARPROC found = library == nullptr ? nullptr : GetProcAddress(library, name);
    function =
        found == nullptr
            ? missing<Arguments...>
            : reinterpret_cast<HRESULT(WINAPI*)(Arguments...)>(reinterpret_cast<void*>(found));
    return found != nullptr;
}

// The libraries stay loaded until the program ends.
MediaFunctions findAll()
{
    const HMODULE platform = systemLibrary(L"mfplat.dll");
    const HMODULE readWrite = systemLibrary(L"mfreadwrite.dll");
    MediaFunctions all;
    all.complete &= find(all.startup, platform, "MFStartup");
    all.complete &= find(all.shutdown, platform, "MFShutdown");
    all.complete &= find(all.createAttributes, platform, "MFCreateAttributes");
    all.complete &= find(all.createMediaType, platform, "MFCreateMediaType");
    all.complete &= find(all.createMemoryBuffer, platform, "MFCreateMemoryBuffer");
    all.complete &= find(all.createSample, platform, "MFCreateSample");
    all.complete &= find(all.createSinkWriter, readWrite, "MFCreateSinkWriterFromURL");
    return all;
}

} // namespace

const MediaFunctions& mediaFunctions()
{
    static const MediaFunctions functions = findAll();
    return functions;
}

} // namespace pevrix
