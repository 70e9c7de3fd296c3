#pragma once

#include <filesystem>
#include <windows.h>

namespace pevrix {

// Who can change a file can have whatever loads it run other code: with the rights of an
// administrator, or in the programs of another person. Others are all accounts but the present
// user, administrators and the system itself.

// Whether others can change this file or what is in this folder, or put another in its place by
// way of a folder above. Also true where that cannot be told, and on drives that know no rights.
[[nodiscard]] bool canOthersChange(const std::filesystem::path& path);

// Whether owner and access list give others one of these rights, which are those of files: generic
// ones are counted as what they mean there. Entries that refuse rights are not counted, so that it
// may say yes too often, never no. A missing access list gives everything to everybody.
[[nodiscard]] bool grantsOthers(PSECURITY_DESCRIPTOR descriptor, ACCESS_MASK rights);

// The right to change, replace or add something, or to give oneself that right.
inline constexpr ACCESS_MASK kRightsToReplace =
    DELETE | WRITE_DAC | WRITE_OWNER | FILE_DELETE_CHILD;
inline constexpr ACCESS_MASK kRightsToChange =
    kRightsToReplace | FILE_WRITE_DATA | FILE_APPEND_DATA;

} // namespace pevrix
