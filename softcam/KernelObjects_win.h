#pragma once

// Owners for objects of the kernel, and who else may open those with a name.

#include "softcam/PictureFormat.h"
#include "system/Handle_win.h"

#include <cstddef>
#include <memory>
#include <span>
#include <string>
#include <windows.h>

namespace pevrix {

struct ViewUnmap
{
    void operator()(void* view) const { UnmapViewOfFile(view); }
};

// A section's bytes in this process. Keeps its handle, too: with the last handle a section loses
// its name, however many map it.
class MappedView
{
public:
    MappedView() = default;

    // All of the section with this name, read-only; empty when there is none that may be read.
    [[nodiscard]] static MappedView openForReading(const wchar_t* name);

    // All of a section; empty when there is none or it cannot be mapped.
    [[nodiscard]] static MappedView map(UniqueHandle section, DWORD access);

    // As many as the system mapped: whole pages.
    [[nodiscard]] std::span<std::byte> bytes() const
    {
        return {static_cast<std::byte*>(m_view.get()), m_size};
    }
    [[nodiscard]] explicit operator bool() const { return m_view != nullptr; }

private:
    UniqueHandle m_section;
    std::unique_ptr<void, ViewUnmap> m_view;
    std::size_t m_size = 0;
};

// Security attributes for objects with a name.
class SharedWith
{
public:
    enum class Writers
    {
        ThisLevel, // what the sender makes: the programs of a sandbox (low integrity) may read only
        AnyLevel   // a reader's event: a reader with administrator rights is woken by a sender
                   // without
    };

    // This user and the system, in both cases. Readers in an app container would need more than an
    // entry here: their Local\ names are not the session's.
    explicit SharedWith(Writers writers);

    // Null, the system's default, when the description could not be made.
    [[nodiscard]] SECURITY_ATTRIBUTES* get()
    {
        return m_attributes.lpSecurityDescriptor == nullptr ? nullptr : &m_attributes;
    }

private:
    struct Free
    {
        void operator()(void* memory) const { LocalFree(memory); }
    };
    std::unique_ptr<void, Free> m_descriptor;
    SECURITY_ATTRIBUTES m_attributes{sizeof(SECURITY_ATTRIBUTES), nullptr, FALSE};
};

// Name of a camera's section of pictures.
[[nodiscard]] std::wstring picturesName(std::uint64_t id);

// Name of a reader's event, 0 to kMaxReaders - 1.
[[nodiscard]] std::wstring readerName(std::size_t index);

} // namespace pevrix
