// libpevrix-shortage.so: makes large allocations of the program it is preloaded into fail, as the
// soak tells it (Shortage.h).
//
// Only those count that our own code asks for, directly or through the containers of Qt and of the
// C++ library, and those of FFmpeg and its encoder: messages, access units, pictures, frames, the
// tables of decoder and encoder. What Qt, the graphics driver and PipeWire take for themselves is
// not failed: their answer to it, which often is to end, is not ours to mend.
#include "tools/soak/Shortage.h"

#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <cstdlib>
#include <dlfcn.h>
#include <execinfo.h>
#include <fcntl.h>
#include <optional>
#include <span>
#include <string_view>
#include <sys/mman.h>
#include <unistd.h>

// The allocator of glibc, below the names that this library takes over.
// NOLINTBEGIN(bugprone-reserved-identifier)
extern "C" {
void* __libc_malloc(std::size_t size);
void* __libc_calloc(std::size_t count, std::size_t size);
void* __libc_realloc(void* memory, std::size_t size);
void* __libc_memalign(std::size_t alignment, std::size_t size);
}
// NOLINTEND(bugprone-reserved-identifier)

namespace {

using pevrix::Shortage;

constexpr std::size_t kLarge = std::size_t{64} * 1024;
constexpr int kFramesLookedAt = 16;
constexpr std::size_t kFramesOfAPlace = 8;

struct Module
{
    std::string_view name; // how its file's begins
    std::optional<Shortage::Owner> owner;
};

// Who passes on what others ask for.
constexpr std::array<std::string_view, 4> kContainers{"libpevrix-shortage.so", "libstdc++.so",
                                                      "libQt6Core.so", "libQt6Gui.so"};
constexpr std::array<Module, 6> kModules{{{"pevrix", Shortage::kProgram},
                                          {"libpevrix-ffmpeg.so", Shortage::kVideo},
                                          {"libav", Shortage::kVideo},
                                          {"libswresample", Shortage::kVideo},
                                          {"libx264", Shortage::kVideo},
                                          {"libsoftcam.so", Shortage::kCamera}}};

Shortage* mapFile()
{
    const char* path = std::getenv(Shortage::kFileVariable);
    const int file = path != nullptr ? ::open(path, O_RDWR | O_CLOEXEC) : -1;
    if (file < 0) {
        return nullptr;
    }
    void* memory = ::mmap(nullptr, sizeof(Shortage), PROT_READ | PROT_WRITE, MAP_SHARED, file, 0);
    ::close(file);
    return memory != MAP_FAILED ? static_cast<Shortage*>(memory) : nullptr;
}

std::atomic<Shortage*> g_shortage;

[[gnu::constructor]] void begin()
{
    // The first use of backtrace() loads a library.
    std::array<void*, 1> frame{};
    ::backtrace(frame.data(), 1);
    g_shortage = mapFile();
}

std::string_view moduleOf(void* address)
{
    Dl_info info{};
    if (::dladdr(address, &info) == 0 || info.dli_fname == nullptr) {
        return {};
    }
    const std::string_view path(info.dli_fname);
    return path.substr(path.rfind('/') + 1);
}

// The first caller that is no container.
std::optional<Shortage::Owner> ownerOf(std::span<void* const> callers)
{
    for (void* caller : callers) {
        const std::string_view file = moduleOf(caller);
        if (std::ranges::none_of(kContainers, [&](auto name) { return file.starts_with(name); })) {
            const auto known = std::ranges::find_if(
                kModules, [&](const Module& module) { return file.starts_with(module.name); });
            return known != kModules.end() ? known->owner : std::nullopt;
        }
    }
    return {};
}

void notePlace(Shortage& shortage, std::span<void* const> callers)
{
    std::uint64_t place = 0;
    for (void* caller : callers.first(std::min(callers.size(), kFramesOfAPlace))) {
        place = (place ^ reinterpret_cast<std::uintptr_t>(caller)) * 0x9E3779B97F4A7C15U;
    }
    place |= 1U;
    for (std::size_t i = 0; i < shortage.places.size(); ++i) {
        std::uint64_t found = 0;
        auto& slot = shortage.places[(place + i) % shortage.places.size()];
        if (slot.compare_exchange_strong(found, place) || found == place) {
            return;
        }
    }
}

// Whether this one is to fail.
bool fails(std::size_t size)
{
    Shortage* shortage = g_shortage;
    const int every = size >= kLarge && shortage != nullptr ? shortage->every.load() : 0;
    if (every == 0) {
        return false;
    }
    std::array<void*, kFramesLookedAt> frames{};
    const int count = ::backtrace(frames.data(), kFramesLookedAt);
    const std::span callers = std::span(frames).first(static_cast<std::size_t>(count));
    const auto owner = ownerOf(callers);
    if (!owner || ++shortage->passed < every) {
        return false;
    }
    shortage->passed = 0;
    ++shortage->failed[*owner];
    notePlace(*shortage, callers);
    errno = ENOMEM;
    return true;
}

} // namespace

extern "C" {

void* malloc(std::size_t size) noexcept
{
    return fails(size) ? nullptr : __libc_malloc(size);
}

void* calloc(std::size_t count, std::size_t size) noexcept
{
    std::size_t bytes = 0;
    const bool overflows = __builtin_mul_overflow(count, size, &bytes);
    return !overflows && fails(bytes) ? nullptr : __libc_calloc(count, size);
}

void* realloc(void* memory, std::size_t size) noexcept
{
    return fails(size) ? nullptr : __libc_realloc(memory, size);
}

void* memalign(std::size_t alignment, std::size_t size) noexcept
{
    return fails(size) ? nullptr : __libc_memalign(alignment, size);
}

void* aligned_alloc(std::size_t alignment, std::size_t size) noexcept
{
    return fails(size) ? nullptr : __libc_memalign(alignment, size);
}

int posix_memalign(void** memory, std::size_t alignment, std::size_t size) noexcept
{
    void* const made = fails(size) ? nullptr : __libc_memalign(alignment, size);
    if (made == nullptr) {
        return ENOMEM;
    }
    *memory = made;
    return 0;
}

} // extern "C"
