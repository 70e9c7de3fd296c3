// The launches of elevated programs, and registering with the system's own tool and registry.
#include "camera/CameraRegistration_win.h"
#include "tests/camera/RegistrationKey_win.h"

#include <gmock/gmock.h>

#include <filesystem>
#include <optional>
#include <random>
#include <sddl.h>

namespace pevrix {
namespace {

// The executable's folder for the launches, with a name that needs its quotes.
class LaunchTest : public testing::Test
{
protected:
    LaunchTest()
    {
        std::filesystem::create_directories(folder);
        calls.executableFolder = [this] {
            return folder.native() + L'\\';
        };
    }
    ~LaunchTest() override
    {
        std::error_code ignored;
        std::filesystem::remove_all(folder, ignored);
    }

    void copyTo(const wchar_t* name)
    {
        std::filesystem::copy_file(executableFolder() + L"registering_library.dll", folder / name);
    }

    std::filesystem::path folder = std::filesystem::temp_directory_path() /
                                   (L"pevrix ü " + std::to_wstring(std::random_device()()));
    LaunchCalls calls;
};

struct Launch
{
    std::wstring verb;
    std::wstring file;
    std::wstring parameters;
    ULONG mask = 0;
    DWORD wait = 0;

    bool operator==(const Launch&) const = default;
};

TEST_F(LaunchTest, AsksForRightsAndWaitsForTheProgram)
{
    std::optional<Launch> launch;
    HANDLE process = nullptr;
    BOOL started = TRUE;
    calls.shellExecute = [&](SHELLEXECUTEINFOW* info) -> BOOL {
        launch = {info->lpVerb, info->lpFile, info->lpParameters, info->fMask};
        info->hProcess = process;
        return started;
    };
    calls.waitForSingleObject = [&](HANDLE handle, DWORD wait) -> DWORD {
        EXPECT_EQ(handle, process);
        launch->wait = wait;
        return WAIT_TIMEOUT;
    };
    calls.getExitCodeProcess = [&](HANDLE handle, DWORD* exitCode) -> BOOL {
        EXPECT_EQ(handle, process);
        *exitCode = 7;
        return TRUE;
    };
    const auto run = [&](const std::function<DWORD()>& function) {
        launch.reset();
        process = CreateEventW(nullptr, TRUE, FALSE, nullptr);
        return function();
    };
    const auto registerCamera = [&] {
        return launchCameraRegistration(calls, false);
    };
    const auto unregisterCamera = [&] {
        return launchCameraRegistration(calls, true);
    };
    const auto allow = [&] {
        return launchFirewallHelper(calls);
    };

    for (const auto& function :
         {std::function<DWORD()>(registerCamera), std::function<DWORD()>(unregisterCamera),
          std::function<DWORD()>(allow)}) {
        EXPECT_EQ(run(function), 1U);
        EXPECT_FALSE(launch) << "there is no file";
        CloseHandle(process);
    }
    copyTo(L"softcam.dll");
    copyTo(L"pevrix-camsetup.exe");
    const std::wstring library = L'"' + (folder / "softcam.dll").native() + L'"';
    const std::wstring helper = folder / "pevrix-camsetup.exe";
    const std::wstring tool = systemProgram(L"regsvr32.exe");
    EXPECT_TRUE(std::filesystem::exists(tool));
    const struct
    {
        std::function<DWORD()> function;
        Launch launch;
    } rows[] = {
        {registerCamera, {L"runas", tool, L"/s " + library, 0x40, 30'000}},
        {unregisterCamera, {L"runas", tool, L"/s /u " + library, 0x40, 30'000}},
        {allow, {L"runas", helper, L"--firewall", 0x40, 30'000}},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(run(row.function), 7U);
        EXPECT_EQ(launch, row.launch);
        DWORD flags = 0;
        EXPECT_FALSE(GetHandleInformation(process, &flags)) << "it must be closed";
    }

    started = FALSE;
    EXPECT_EQ(run(allow), 1U);
    EXPECT_EQ(launch->wait, 0U) << "the user refused";
    CloseHandle(process);
    started = TRUE;
    launch.reset();
    process = nullptr;
    EXPECT_EQ(allow(), 1U);
    EXPECT_EQ(launch->wait, 0U) << "there is nothing to wait for";
    calls.executableFolder = [] {
        return std::wstring();
    };
    launch.reset();
    EXPECT_EQ(allow(), 1U);
    EXPECT_FALSE(launch) << "the folder is unknown";
}

void setAccess(const std::filesystem::path& path, const wchar_t* list)
{
    PSECURITY_DESCRIPTOR descriptor = nullptr;
    ASSERT_TRUE(ConvertStringSecurityDescriptorToSecurityDescriptorW(list, SDDL_REVISION_1,
                                                                     &descriptor, nullptr));
    EXPECT_TRUE(SetFileSecurityW(path.c_str(), DACL_SECURITY_INFORMATION, descriptor));
    LocalFree(descriptor);
}

TEST_F(LaunchTest, KnowsWhetherOthersCanChangeWhatIsRegistered)
{
    const wchar_t* const closed = L"D:P(A;OICI;FA;;;OW)(A;OICI;FA;;;BA)(A;OICI;FRFX;;;WD)";
    const wchar_t* const open = L"D:P(A;OICI;FA;;;OW)(A;OICI;FA;;;BA)(A;OICI;FA;;;WD)";
    setAccess(folder, open);
    EXPECT_EQ(openCameraFolder(calls), "") << "there is no library";
    copyTo(L"softcam.dll");
    EXPECT_EQ(openCameraFolder(calls), folder);
    setAccess(folder, closed);
    setAccess(folder / L"softcam.dll", closed);
    EXPECT_EQ(openCameraFolder(calls), "");
    setAccess(folder / L"softcam.dll", open);
    EXPECT_EQ(openCameraFolder(calls), folder);
    setAccess(folder / L"softcam.dll", closed);
    std::filesystem::create_directory(folder / L"x86");
    setAccess(folder / L"x86", open);
    EXPECT_EQ(openCameraFolder(calls), folder);
}

// With the system's tool, which writes below a key of the test's own, and without asking for
// rights, which that key does not need.
TEST_F(LaunchTest, RegistersTheLibraryAndTakesItBack)
{
    HKEY classes = nullptr;
    ASSERT_EQ(RegCreateKeyExW(HKEY_CURRENT_USER, PEVRIX_CLASSES, 0, nullptr, 0, KEY_ALL_ACCESS,
                              nullptr, &classes, nullptr),
              ERROR_SUCCESS);
    ASSERT_EQ(RegOverridePredefKey(HKEY_CLASSES_ROOT, classes), ERROR_SUCCESS);
    calls.shellExecute = [](SHELLEXECUTEINFOW* info) {
        info->lpVerb = nullptr;
        return ShellExecuteExW(info);
    };
    copyTo(L"softcam.dll");

    EXPECT_FALSE(isCameraRegistered());
    EXPECT_EQ(launchCameraRegistration(calls, false), 0U);
    EXPECT_TRUE(isCameraRegistered());
    EXPECT_EQ(launchCameraRegistration(calls, true), 0U);
    EXPECT_FALSE(isCameraRegistered());

    EXPECT_EQ(RegOverridePredefKey(HKEY_CLASSES_ROOT, nullptr), ERROR_SUCCESS);
    RegCloseKey(classes);
    EXPECT_EQ(RegDeleteTreeW(HKEY_CURRENT_USER, PEVRIX_CLASSES), ERROR_SUCCESS);
}

} // namespace
} // namespace pevrix
