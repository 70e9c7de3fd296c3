#include "tools/doubles/ThisProcess.h"

#include <windows.h>
// After windows.h, whose types they use.
#include <psapi.h>
#include <tlhelp32.h>
#include <vector>
#include <winternl.h>

namespace pevrix {

namespace {

FARPROC systemFunction(const char* name)
{
    return GetProcAddress(GetModuleHandleW(L"ntdll.dll"), name);
}

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
int listedHandles()
{
    using Query = NTSTATUS(NTAPI*)(SYSTEM_INFORMATION_CLASS, void*, ULONG, ULONG*);
    const auto query = reinterpret_cast<Query>(
        reinterpret_cast<void*>(systemFunction("NtQuerySystemInformation")));
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
    int own = 0;
    for (ULONG_PTR index = 0; index < count; ++index) {
        own += entries[index].process == GetCurrentProcessId() ? 1 : 0;
    }
    return own;
}

} // namespace

bool runsUnderWine()
{
    return systemFunction("wine_get_version") != nullptr;
}

std::int64_t heapBytes()
{
    PROCESS_MEMORY_COUNTERS memory{};
    const BOOL known = GetProcessMemoryInfo(GetCurrentProcess(), &memory, sizeof memory);
    return known ? static_cast<std::int64_t>(memory.PagefileUsage) : 0;
}

int openHandles()
{
    DWORD count = 0;
    const bool known = GetProcessHandleCount(GetCurrentProcess(), &count) && count != 0;
    return known ? static_cast<int>(count) : listedHandles();
}

int runningThreads()
{
    const HANDLE snapshot = CreateToolhelp32Snapshot(TH32CS_SNAPTHREAD, 0);
    THREADENTRY32 entry{};
    entry.dwSize = sizeof entry;
    int own = 0;
    for (BOOL more = Thread32First(snapshot, &entry); more; more = Thread32Next(snapshot, &entry)) {
        own += entry.th32OwnerProcessID == GetCurrentProcessId() ? 1 : 0;
    }
    CloseHandle(snapshot);
    return own;
}

} // namespace pevrix
