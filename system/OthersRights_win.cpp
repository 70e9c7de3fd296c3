#include "system/OthersRights_win.h"

#include "system/Handle_win.h"

#include <aclapi.h>
#include <algorithm>
#include <array>
#include <cstddef>
#include <memory>

namespace pevrix {
namespace {

struct LocalMemoryFree
{
    void operator()(void* memory) const { LocalFree(memory); }
};
using UniqueLocal = std::unique_ptr<void, LocalMemoryFree>;

// The account that Windows installs and updates its own files with.
constexpr std::array<DWORD, 6> kTrustedInstaller = {80,         956008885,  3418522649,
                                                    1831038044, 1853292631, 2271478464};

bool isPresentUser(PSID account)
{
    HANDLE opened = nullptr;
    if (!OpenProcessToken(GetCurrentProcess(), TOKEN_QUERY, &opened)) {
        return false;
    }
    const UniqueHandle token(opened);
    alignas(TOKEN_USER) std::array<std::byte, sizeof(TOKEN_USER) + SECURITY_MAX_SID_SIZE> user{};
    DWORD length = 0;
    return GetTokenInformation(token.get(), TokenUser, user.data(), static_cast<DWORD>(user.size()),
                               &length) &&
           EqualSid(account, reinterpret_cast<const TOKEN_USER*>(user.data())->User.Sid);
}

// Of a computer or a domain: its first administrator and the groups of its administrators.
bool isAdministratorOfDomain(PSID account, DWORD parts)
{
    if (parts != 5 || *GetSidSubAuthority(account, 0) != SECURITY_NT_NON_UNIQUE) {
        return false;
    }
    const DWORD last = *GetSidSubAuthority(account, parts - 1);
    return last == DOMAIN_USER_RID_ADMIN || last == DOMAIN_GROUP_RID_ADMINS ||
           last == DOMAIN_GROUP_RID_ENTERPRISE_ADMINS;
}

bool isTrustedInstaller(PSID account, DWORD parts)
{
    for (DWORD i = 0; i < parts && i < kTrustedInstaller.size(); ++i) {
        if (*GetSidSubAuthority(account, i) != kTrustedInstaller[i]) {
            return false;
        }
    }
    return parts == kTrustedInstaller.size();
}

bool isOther(PSID account)
{
    constexpr BYTE kNtAuthority = 5;
    constexpr BYTE kAppPackages = 15; // narrow what the user of a program has, and give nothing
    const BYTE authority = GetSidIdentifierAuthority(account)->Value[5];
    const DWORD parts = *GetSidSubAuthorityCount(account);
    if (authority == kAppPackages) {
        return false;
    }
    // The owner is looked at for itself. "Creator" stands for whoever makes something in there.
    constexpr std::array kOurs = {WinBuiltinAdministratorsSid, WinLocalSystemSid,
                                  WinCreatorOwnerRightsSid, WinCreatorOwnerSid};
    if (std::ranges::any_of(kOurs, [&](auto kind) { return IsWellKnownSid(account, kind); })) {
        return false;
    }
    return !(authority == kNtAuthority &&
             (isAdministratorOfDomain(account, parts) || isTrustedInstaller(account, parts))) &&
           !isPresentUser(account);
}

ACCESS_MASK asFileRights(ACCESS_MASK rights)
{
    GENERIC_MAPPING mapping{.GenericRead = FILE_GENERIC_READ,
                            .GenericWrite = FILE_GENERIC_WRITE,
                            .GenericExecute = FILE_GENERIC_EXECUTE,
                            .GenericAll = FILE_ALL_ACCESS};
    MapGenericMask(&rights, &mapping);
    return rights;
}

bool entryGrantsOthers(const ACE_HEADER& header, ACCESS_MASK rights)
{
    // Those that may hold a condition begin the same way; the condition counts as met.
    const bool allows = header.AceType == ACCESS_ALLOWED_ACE_TYPE ||
                        header.AceType == ACCESS_ALLOWED_CALLBACK_ACE_TYPE;
    if (!allows || (header.AceFlags & INHERIT_ONLY_ACE) != 0) {
        return false;
    }
    const auto& entry = reinterpret_cast<const ACCESS_ALLOWED_ACE&>(header);
    const auto account = const_cast<DWORD*>(&entry.SidStart);
    return (asFileRights(entry.Mask) & rights) != 0 && isOther(account);
}

bool isOpen(const std::filesystem::path& path, ACCESS_MASK rights)
{
    PSECURITY_DESCRIPTOR descriptor = nullptr;
    const DWORD status = GetNamedSecurityInfoW(
        path.c_str(), SE_FILE_OBJECT, OWNER_SECURITY_INFORMATION | DACL_SECURITY_INFORMATION,
        nullptr, nullptr, nullptr, nullptr, &descriptor);
    const UniqueLocal freed(descriptor);
    return status != ERROR_SUCCESS || grantsOthers(descriptor, rights);
}

} // namespace

bool grantsOthers(PSECURITY_DESCRIPTOR descriptor, ACCESS_MASK rights)
{
    PSID owner = nullptr;
    PACL list = nullptr;
    BOOL isDefault = FALSE;
    BOOL isPresent = FALSE;
    if (!GetSecurityDescriptorOwner(descriptor, &owner, &isDefault) || owner == nullptr ||
        isOther(owner) || // who may change the list
        !GetSecurityDescriptorDacl(descriptor, &isPresent, &list, &isDefault) || !isPresent ||
        list == nullptr) {
        return true;
    }
    for (DWORD i = 0; i < list->AceCount; ++i) {
        void* entry = nullptr;
        if (!GetAce(list, i, &entry) ||
            entryGrantsOthers(*static_cast<const ACE_HEADER*>(entry), rights)) {
            return true;
        }
    }
    return false;
}

bool canOthersChange(const std::filesystem::path& path)
{
    if (isOpen(path, kRightsToChange)) {
        return true;
    }
    for (auto folder = path; folder.has_relative_path();) {
        folder = folder.parent_path();
        if (isOpen(folder, kRightsToReplace)) {
            return true;
        }
    }
    return false;
}

} // namespace pevrix
