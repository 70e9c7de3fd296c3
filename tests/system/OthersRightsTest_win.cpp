// Access lists as Windows, its installer and administrators make them, judged by whom they let in.
#include "system/OthersRights_win.h"

#include <gtest/gtest.h>

#include <array>
#include <cstddef>
#include <sddl.h>

namespace pevrix {
namespace {

std::wstring presentUser()
{
    HANDLE token = nullptr;
    alignas(TOKEN_USER) std::array<std::byte, sizeof(TOKEN_USER) + SECURITY_MAX_SID_SIZE> user{};
    DWORD length = 0;
    wchar_t* text = nullptr;
    if (!OpenProcessToken(GetCurrentProcess(), TOKEN_QUERY, &token) ||
        !GetTokenInformation(token, TokenUser, user.data(), static_cast<DWORD>(user.size()),
                             &length) ||
        !ConvertSidToStringSidW(reinterpret_cast<TOKEN_USER*>(user.data())->User.Sid, &text)) {
        return L"the present user is not known";
    }
    std::wstring result(text);
    LocalFree(text);
    CloseHandle(token);
    return result;
}

TEST(OthersRightsTest, TellsOthersFromTheUserAndAdministrators)
{
    const std::wstring me = presentUser();
    const std::wstring installer =
        L"S-1-5-80-956008885-3418522649-1831038044-1853292631-2271478464";
    const std::wstring ours = L"(A;;FA;;;SY)(A;;FA;;;BA)";
    const struct
    {
        const char* name;
        std::wstring descriptor;
        bool canChange;
        bool canReplace;
    } rows[] = {
        {"Program Files",
         L"O:" + installer + L"D:(A;OICI;FA;;;" + installer + L")" + ours +
             L"(A;OICIIO;GA;;;CO)(A;;0x1200a9;;;BU)(A;;FA;;;S-1-15-2-1)",
         false, false},
        {"a folder of the user", L"O:" + me + L"D:" + ours + L"(A;OICI;FA;;;" + me + L")", false,
         false},
        {"a new folder on C:", L"O:BAD:" + ours + L"(A;OICIID;0x1301bf;;;AU)", true, true},
        {"C: itself", L"O:" + installer + L"D:" + ours + L"(A;OICIIO;SDGXGWGR;;;AU)(A;;LC;;;AU)",
         true, false},
        {"generic rights", L"O:BAD:(A;;GW;;;WD)", true, false},
        {"a folder whose files can be deleted", L"O:BAD:(A;;0x40;;;IU)", true, true},
        {"the list itself", L"O:BAD:(A;;WD;;;BU)", true, true},
        {"another user", L"O:BAD:(A;;0x2;;;S-1-5-21-1-2-3-1001)", true, false},
        {"administrators of a domain", L"O:BAD:(A;;FA;;;S-1-5-21-1-2-3-512)", false, false},
        {"another owner", L"O:S-1-5-21-1-2-3-1001D:(A;;FA;;;BA)", true, true},
        {"nobody", L"O:BAD:(D;;FA;;;WD)", false, false},
        {"no list", L"O:BA", true, true},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        PSECURITY_DESCRIPTOR descriptor = nullptr;
        ASSERT_TRUE(ConvertStringSecurityDescriptorToSecurityDescriptorW(
            row.descriptor.c_str(), SDDL_REVISION_1, &descriptor, nullptr))
            << GetLastError();
        EXPECT_EQ(grantsOthers(descriptor, kRightsToChange), row.canChange);
        EXPECT_EQ(grantsOthers(descriptor, kRightsToReplace), row.canReplace);
        LocalFree(descriptor);
    }
}

} // namespace
} // namespace pevrix
