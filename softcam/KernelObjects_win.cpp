#include "softcam/KernelObjects_win.h"

#include "softcam/SharedPictures.h"

#include <array>
#include <cwchar>
#include <utility>
// After windows.h, whose types it uses.
#include <sddl.h>

namespace pevrix {
namespace {

// The calling process's user as text; empty when it cannot be told.
std::wstring userSid()
{
    HANDLE opened = nullptr;
    if (OpenProcessToken(GetCurrentProcess(), TOKEN_QUERY, &opened) == FALSE) {
        return {};
    }
    const UniqueHandle token(opened);
    alignas(TOKEN_USER) std::array<std::byte, sizeof(TOKEN_USER) + SECURITY_MAX_SID_SIZE> bytes{};
    DWORD size = 0;
    LPWSTR text = nullptr;
    if (GetTokenInformation(token.get(), TokenUser, bytes.data(), sizeof(bytes), &size) == FALSE ||
        ConvertSidToStringSidW(reinterpret_cast<TOKEN_USER*>(bytes.data())->User.Sid, &text) ==
            FALSE) {
        return {};
    }
    std::wstring sid(text);
    LocalFree(text);
    return sid;
}

} // namespace

MappedView MappedView::openForReading(const wchar_t* name)
{
    return map(UniqueHandle(OpenFileMappingW(FILE_MAP_READ, FALSE, name)), FILE_MAP_READ);
}

MappedView MappedView::map(UniqueHandle section, DWORD access)
{
    MappedView view;
    MEMORY_BASIC_INFORMATION information{};
    if (!section) {
        return view;
    }
    view.m_section = std::move(section);
    view.m_view.reset(MapViewOfFile(view.m_section.get(), access, 0, 0, 0));
    if (view.m_view && VirtualQuery(view.m_view.get(), &information, sizeof(information)) != 0 &&
        information.State == MEM_COMMIT) {
        view.m_size = information.RegionSize;
    }
    return view;
}

SharedWith::SharedWith(Writers writers)
{
    const std::wstring sid = userSid();
    if (sid.empty()) {
        return;
    }
    // GA: everything; ML: nobody below the level writes (NW). Without the label an object made with
    // administrator rights could be written with those only, and the directory outlives its maker.
    const std::wstring description = L"D:P(A;;GA;;;SY)(A;;GA;;;" + sid + L")S:(ML;;NW;;;" +
                                     (writers == Writers::AnyLevel ? L"LW" : L"ME") + L")";
    PSECURITY_DESCRIPTOR descriptor = nullptr;
    if (ConvertStringSecurityDescriptorToSecurityDescriptorW(description.c_str(), SDDL_REVISION_1,
                                                             &descriptor, nullptr) != FALSE) {
        m_descriptor.reset(descriptor);
        m_attributes.lpSecurityDescriptor = descriptor;
    }
}

std::wstring picturesName(std::uint64_t id)
{
    std::array<wchar_t, 17> hex{};
    std::swprintf(hex.data(), hex.size(), L"%08x%08x", static_cast<unsigned>(id >> 32U),
                  static_cast<unsigned>(id));
    return std::wstring(kPicturesPrefix) + hex.data();
}

std::wstring readerName(std::size_t index)
{
    return std::wstring(kReaderPrefix) + std::to_wstring(index);
}

} // namespace pevrix
