#include <gtest/gtest.h>
#include <windows.h>
// Behind windows.h, which it needs.
#include <setupapi.h>

#include <algorithm>
#include <memory>
#include <thread>

#include "platform/environment.h"
#include "platform/file_lock.h"
#include "platform/folders.h"
#include "platform/serial_ports.h"
#include "platform/win32/registry_settings_store.h"
#include "platform/win32/wide_text.h"
#include "tests/platform/test_folder.h"

namespace calyx::win32 {
namespace {

using Root = ISettingsStore::Root;

class Registry : public ::testing::Test {
  protected:
    Registry() { RegDeleteTreeW(HKEY_CURRENT_USER, Wide(key_).c_str()); }
    ~Registry() override { RegDeleteTreeW(HKEY_CURRENT_USER, Wide(key_).c_str()); }

    const std::string key_ = "SOFTWARE\\Calyx test\\Settings";
};

TEST_F(Registry, AnyBytesComeBack) {
    std::string all;
    for (int c = 0; c < 256; ++c) all += static_cast<char>(c);
    const std::string values[] = {"",
                                  "True",
                                  " C:\\a b ",
                                  "gr\xC3\xBC\xC3\x9F",
                                  "\xE4",
                                  "one\r\ntwo",
                                  all,
                                  std::string("a\0b", 3),
                                  std::string(5000, 'x')};
    RegistrySettingsStore store;
    for (const std::string& value : values) {
        store.Set(Root::User, key_ + "\\Sub", "Some Value", value);
        EXPECT_EQ(store.Get(Root::User, key_ + "\\SUB", "some value"), value) << "seen before it is saved";
        EXPECT_TRUE(store.Save());
        EXPECT_EQ(RegistrySettingsStore().Get(Root::User, key_ + "\\Sub", "Some Value"), value);
    }
    EXPECT_EQ(store.Get(Root::User, key_ + "\\Sub", "Other"), std::nullopt);
    EXPECT_EQ(store.Get(Root::User, key_ + "\\None", "Some Value"), std::nullopt);
    EXPECT_EQ(store.Get(Root::Machine, key_ + "\\Sub", "Some Value"), std::nullopt);
}

constexpr const wchar_t* kPortsInUse = L"HARDWARE\\DEVICEMAP\\SERIALCOMM";

// What the system lists as ports in use, in the order that a person expects.
TEST(WindowsPorts, AreListedByNumber) {
    const std::wstring names[] = {L"COM212", L"COM29"};
    for (const std::wstring& name : names) {
        const LSTATUS status =
            RegSetKeyValueW(HKEY_LOCAL_MACHINE, kPortsInUse, (L"Calyx test " + name).c_str(), REG_SZ,
                            name.c_str(), static_cast<DWORD>((name.size() + 1) * 2));
        if (status != ERROR_SUCCESS) GTEST_SKIP() << "the list of ports is not for this user to change";
    }
    std::vector<std::string> found;
    for (const SerialPortInfo& port : ListSerialPorts()) {
        if (port.name == "COM212" || port.name == "COM29") found.push_back(port.name);
    }
    for (const std::wstring& name : names) {
        RegDeleteKeyValueW(HKEY_LOCAL_MACHINE, kPortsInUse, (L"Calyx test " + name).c_str());
    }
    EXPECT_EQ(found, (std::vector<std::string>{"COM29", "COM212"}));
}

// A device of the class of ports, as an adapter's driver registers it, until the object goes.
class PortDevice {
  public:
    PortDevice(const std::wstring& port, const std::wstring& friendlyName) {
        const GUID ports = {0x4d36e978, 0xe325, 0x11ce, {0xbf, 0xc1, 0x08, 0x00, 0x2b, 0xe1, 0x03, 0x18}};
        device_.cbSize = sizeof(device_);
        devices_ = SetupDiCreateDeviceInfoList(&ports, nullptr);
        registered_ = SetupDiCreateDeviceInfoW(devices_, L"CALYXTEST", &ports, nullptr, nullptr,
                                               DICD_GENERATE_ID, &device_) &&
                      SetupDiRegisterDeviceInfo(devices_, &device_, 0, nullptr, nullptr, nullptr);
        if (!registered_) return;
        SetupDiSetDeviceRegistryPropertyW(devices_, &device_, SPDRP_FRIENDLYNAME, Bytes(friendlyName),
                                          Size(friendlyName));
        HKEY key =
            SetupDiCreateDevRegKeyW(devices_, &device_, DICS_FLAG_GLOBAL, 0, DIREG_DEV, nullptr, nullptr);
        RegSetValueExW(key, L"PortName", 0, REG_SZ, Bytes(port), Size(port));
        RegCloseKey(key);
    }
    ~PortDevice() {
        if (registered_) SetupDiRemoveDevice(devices_, &device_);
        SetupDiDestroyDeviceInfoList(devices_);
    }
    PortDevice(const PortDevice&) = delete;
    PortDevice& operator=(const PortDevice&) = delete;

    bool IsRegistered() const { return registered_; }

  private:
    static const BYTE* Bytes(const std::wstring& text) { return reinterpret_cast<const BYTE*>(text.c_str()); }
    static DWORD Size(const std::wstring& text) {
        return static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t));
    }

    HDEVINFO devices_ = INVALID_HANDLE_VALUE;
    SP_DEVINFO_DATA device_{};
    bool registered_ = false;
};

TEST(WindowsPorts, AreDescribedAsTheirDevicesAre) {
    constexpr const wchar_t* kName = L"Calyx test COM213";
    const PortDevice device(L"COM213", L"Pr\u00FCfadapter (COM213)");
    if (!device.IsRegistered()) GTEST_SKIP() << "devices are not for this user to register";
    if (RegSetKeyValueW(HKEY_LOCAL_MACHINE, kPortsInUse, kName, REG_SZ, L"COM213", 14) != ERROR_SUCCESS)
        GTEST_SKIP() << "the list of ports is not for this user to change";
    const std::vector<SerialPortInfo> ports = ListSerialPorts();
    RegDeleteKeyValueW(HKEY_LOCAL_MACHINE, kPortsInUse, kName);
    const SerialPortInfo expected{"COM213",
                                  "Pr\xC3\xBC"
                                  "fadapter (COM213)"};
    EXPECT_EQ(std::count(ports.begin(), ports.end(), expected), 1);
}

TEST(WindowsFolders, AreWhereTheSystemKeepsThem) {
    const auto noVariables = [](const std::string&) { return std::optional<std::string>(); };
    const Folders folders = platform::StandardFolders(noVariables);
    EXPECT_EQ(folders.userData, SystemEnvironment()("APPDATA").value_or("") + "\\Calyx\\");
    EXPECT_EQ(folders.settingsFile, "") << "settings are in the registry";
    EXPECT_EQ(folders.machineSettingsFile, "");
    EXPECT_EQ(FileStore().Look(platform::ProgramFolder() + "platform_tests.exe"), IFileStore::Found::File);
}

// By a folder in its place, which refuses with the same error as a lock's file on its way out.
TEST(WindowsLocks, ARefusalForAMomentIsWaitedOut) {
    const TestFolder folder;
    const std::string file = folder.File("a.lock");
    const std::wstring wide = Wide(file);
    ASSERT_TRUE(CreateDirectoryW(wide.c_str(), nullptr));
    std::thread later([&] {
        Sleep(30);
        RemoveDirectoryW(wide.c_str());
    });
    std::unique_ptr<FileLock> lock;
    EXPECT_FALSE(FailureOf([&] { lock = FileLock::Take(file, "x"); }));
    later.join();
    EXPECT_NE(lock, nullptr);
}

// None of them may hang a program that opens a file.
TEST(WindowsFiles, DevicesAndPipesAreRefused) {
    FileStore files;
    const wchar_t* const pipeName = L"\\\\?\\pipe\\Calyx test";
    const HANDLE pipe = CreateNamedPipeW(L"\\\\.\\pipe\\Calyx test", PIPE_ACCESS_DUPLEX, PIPE_TYPE_BYTE,
                                         PIPE_UNLIMITED_INSTANCES, 0, 0, 0, nullptr);
    ASSERT_NE(pipe, INVALID_HANDLE_VALUE);
    for (const std::string& name : {std::string("NUL"), std::string("nul"), std::string("COM5"),
                                    std::string("\\\\.\\COM5"), std::string("CON"), Narrow(pipeName)}) {
        EXPECT_TRUE(FailureOf([&] { files.Read(name); })) << name;
        EXPECT_TRUE(FailureOf([&] { files.Replace(name, "new"); })) << name;
    }
    CloseHandle(pipe);
}

TEST(WindowsFiles, ReadOnlyIsRefusedAndHiddenStaysHidden) {
    const TestFolder folder;
    FileStore files;
    const std::string file = folder.Put("a", "old");
    const std::wstring wide = Wide(file);
    SetFileAttributesW(wide.c_str(), FILE_ATTRIBUTE_READONLY);
    EXPECT_EQ(FailureOf([&] { files.Replace(file, "new"); }), std::errc::permission_denied);
    EXPECT_EQ(files.Read(file), "old");
    SetFileAttributesW(wide.c_str(), FILE_ATTRIBUTE_HIDDEN);
    files.Replace(file, "new");
    EXPECT_EQ(files.Read(file), "new");
    EXPECT_NE(GetFileAttributesW(wide.c_str()) & FILE_ATTRIBUTE_HIDDEN, 0u);
    EXPECT_EQ(folder.Count(), 1);
}

TEST(WindowsFiles, PathsMayBeLong) {
    const TestFolder folder;
    FileStore files;
    std::string path = folder.Text();
    for (int level = 0; level < 8; ++level) {
        path +=
            "Pr\xC3\xBC"
            "fstand " +
            std::string(50, 'x') + '\\';
        ASSERT_TRUE(CreateDirectoryW((L"\\\\?\\" + Wide(path)).c_str(), nullptr)) << GetLastError();
    }
    for (const std::string& name : {path + "a.mrn", path + "..\\b.mrn"}) {
        files.Replace(name, "first");
        files.Replace(name, "second");
        EXPECT_EQ(files.Read(name), "second");
        EXPECT_EQ(files.Look(name), IFileStore::Found::File);
        files.Remove(name);
        EXPECT_EQ(files.Look(name), IFileStore::Found::Nothing);
    }
    EXPECT_EQ(files.Look(path), IFileStore::Found::Folder);
    EXPECT_TRUE(FailureOf([&] { files.Replace(path + std::string(300, 'x'), ""); }));
    for (int level = 0; level < 8; ++level) {
        RemoveDirectoryW((L"\\\\?\\" + Wide(path)).c_str());
        path.resize(path.find_last_of('\\', path.size() - 2) + 1);
    }
}

TEST(WindowsFiles, CaseDoesNotTellPathsApart) {
    EXPECT_TRUE(SamePath("C:\\Silo \xC3\x84.mrn", "c:\\SILO \xC3\xA4.MRN"));
    EXPECT_FALSE(SamePath("C:\\a", "C:\\b"));
}

}  // namespace
}  // namespace calyx::win32
