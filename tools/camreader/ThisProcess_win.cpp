#include "tools/camreader/ThisProcess_win.h"

#include <windows.h>
// After windows.h, whose types they use.
#include <psapi.h>
#include <vector>
#include <winternl.h>

namespace pevrix {

namespace {

// The extended list of handles, which winternl.h does not declare.
constexpr auto kHandleInformation = static_cast<SYSTEM_INFORMATION_CLASS>(64);
struct HandleEntry
{
    void* object;
    ULONG_PTR process;
    ULONG_PTR handle;
    ULONG access;
    USHORT creator;
    USHORT type;
    ULONG attributes;
    ULONG reserved;
};

// Wine counts no handles of one process, but it lists those of all.
std::size_t listedHandles()
{
    using Query = NTSTATUS(NTAPI*)(SYSTEM_INFORMATION_CLASS, void*, ULONG, ULONG*);
    const auto query = reinterpret_cast<Query>(reinterpret_cast<void*>(
        GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "NtQuerySystemInformation")));
    std::vector<std::uint8_t> buffer(1U << 20);
    ULONG needed = 0;
    while (query(kHandleInformation, buffer.data(), static_cast<ULONG>(buffer.size()), &needed) <
           0) {
        if (buffer.size() >= (1U << 26)) {
            return 0;
        }
        buffer.resize(2 * buffer.size());
    }
    const ULONG_PTR count = *reinterpret_cast<const ULONG_PTR*>(buffer.data());
    const auto* entries =
        reinterpret_cast<const HandleEntry*>(buffer.data() + 2 * sizeof(ULONG_PTR));
    std::size_t own = 0;
    for (ULONG_PTR index = 0; index < count; ++index) {
        own += entries[index].process == GetCurrentProcessId() ? 1U : 0U;
    }
    return own;
}

} // namespace

std::int64_t sharedMicroseconds()
{
    static const std::int64_t frequency = [] {
        LARGE_INTEGER value;
        QueryPerformanceFrequency(&value);
        return value.QuadPart;
    }();
    LARGE_INTEGER now;
    QueryPerformanceCounter(&now);
    return now.QuadPart / frequency * 1'000'000 + now.QuadPart % frequency * 1'000'000 / frequency;
}

ProcessUse processUse()
{
    ProcessUse use;
    DWORD handles = 0;
    use.handles = GetProcessHandleCount(GetCurrentProcess(), &handles) && handles != 0
                      ? handles
                      : listedHandles();
    PROCESS_MEMORY_COUNTERS memory{};
    if (GetProcessMemoryInfo(GetCurrentProcess(), &memory, sizeof memory)) {
        use.privateKilobytes = memory.PagefileUsage / 1024;
    }
    return use;
}

} // namespace pevrix
