// The launches of elevated programs, whether the camera is registered, and who can change its
// files.
#include "camera/CameraRegistration_win.h"

#include <gmock/gmock.h>

#include <filesystem>
#include <fstream>
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

    void make(const wchar_t* name) const { std::ofstream{folder / name}; }

    std::filesystem::path folder = std::filesystem::temp_directory_path() /
                                   (L"pevrix ü " + std::to_wstring(std::random_device()()));
    LaunchCalls calls;
};

TEST_F(LaunchTest, AsksForRightsAndWaitsForTheProgram)
{
    // What was launched: verb, file, parameters; and what the process had of the launch.
    using Launch = std::vector<std::wstring>;
    Launch launch;
    HANDLE process = nullptr;
    BOOL started = TRUE;
    DWORD waited = 0;
    calls.shellExecute = [&](SHELLEXECUTEINFOW* info) -> BOOL {
        launch = {info->lpVerb, info->lpFile, info->lpParameters};
        EXPECT_EQ(info->fMask, ULONG{SEE_MASK_NOCLOSEPROCESS});
        info->hProcess = process;
        return started;
    };
    calls.waitForSingleObject = [&](HANDLE handle, DWORD wait) -> DWORD {
        EXPECT_EQ(handle, process);
        waited = wait;
        return WAIT_TIMEOUT;
    };
    calls.getExitCodeProcess = [&](HANDLE handle, DWORD* exitCode) -> BOOL {
        EXPECT_EQ(handle, process);
        *exitCode = 7;
        return TRUE;
    };
    const std::wstring library = L'"' + (folder / "softcam.dll").native() + L'"';
    const std::wstring tool = systemProgram(L"regsvr32.exe");
    EXPECT_TRUE(std::filesystem::exists(tool));
    const struct
    {
        const wchar_t* file; // beside the executable
        std::function<DWORD()> function;
        Launch launch;
    } rows[] = {
        {L"softcam.dll",
         [&] { return launchCameraRegistration(calls, false); },
         {L"runas", tool, L"/s " + library}},
        {L"softcam.dll",
         [&] { return launchCameraRegistration(calls, true); },
         {L"runas", tool, L"/s /u " + library}},
        {L"pevrix-camsetup.exe",
         [&] { return launchFirewallHelper(calls); },
         {L"runas", (folder / "pevrix-camsetup.exe").native(), L"--firewall"}},
    };
    for (const auto& row : rows) {
        std::filesystem::remove(folder / row.file);
        launch.clear();
        EXPECT_EQ(row.function(), 1U);
        EXPECT_EQ(launch, Launch()) << "there is no file";
        make(row.file);
        process = CreateEventW(nullptr, TRUE, FALSE, nullptr);
        EXPECT_EQ(row.function(), 7U);
        EXPECT_EQ(launch, row.launch);
        EXPECT_EQ(waited, 30'000U);
        DWORD flags = 0;
        EXPECT_FALSE(GetHandleInformation(process, &flags)) << "it must be closed";
    }

    waited = 0;
    process = nullptr;
    EXPECT_EQ(launchFirewallHelper(calls), 1U) << "there is nothing to wait for";
    started = FALSE;
    EXPECT_EQ(launchFirewallHelper(calls), 1U) << "the user refused";
    EXPECT_EQ(waited, 0U);
    launch.clear();
    calls.executableFolder = [] {
        return std::wstring();
    };
    EXPECT_EQ(launchFirewallHelper(calls), 1U) << "the folder is unknown";
    EXPECT_EQ(launch, Launch());
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
    make(L"softcam.dll");
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

// Below a key of the test's own: registering needs rights, and is tried by tools/windows.
TEST(CameraRegistrationTest, KnowsWhetherTheCameraIsRegistered)
{
    constexpr auto kClasses = L"Software\\Pevrix registration test";
    HKEY classes = nullptr;
    HKEY camera = nullptr;
    ASSERT_EQ(RegCreateKeyW(HKEY_CURRENT_USER, kClasses, &classes), ERROR_SUCCESS);
    ASSERT_EQ(RegOverridePredefKey(HKEY_CLASSES_ROOT, classes), ERROR_SUCCESS);
    EXPECT_FALSE(isCameraRegistered());
    EXPECT_EQ(RegCreateKeyW(classes,
                            L"CLSID\\{276143AA-B755-440E-834A-93CDEBCA334B}\\InprocServer32",
                            &camera),
              ERROR_SUCCESS);
    EXPECT_TRUE(isCameraRegistered());
    RegCloseKey(camera);
    EXPECT_EQ(RegOverridePredefKey(HKEY_CLASSES_ROOT, nullptr), ERROR_SUCCESS);
    RegCloseKey(classes);
    EXPECT_EQ(RegDeleteTreeW(HKEY_CURRENT_USER, kClasses), ERROR_SUCCESS);
}

} // namespace
} // namespace pevrix
