#include <gtest/gtest.h>
#include <windows.h>

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

// What the system lists as ports in use, in the order that a person expects.
TEST(WindowsPorts, AreListedByNumber) {
    constexpr const wchar_t* kKey = L"HARDWARE\\DEVICEMAP\\SERIALCOMM";
    const std::wstring names[] = {L"COM212", L"COM29"};
    for (const std::wstring& name : names) {
        const LSTATUS status =
            RegSetKeyValueW(HKEY_LOCAL_MACHINE, kKey, (L"Calyx test " + name).c_str(), REG_SZ, name.c_str(),
                            static_cast<DWORD>((name.size() + 1) * 2));
        if (status != ERROR_SUCCESS) GTEST_SKIP() << "the list of ports is not for this user to change";
    }
    std::vector<std::string> found;
    for (const SerialPortInfo& port : ListSerialPorts()) {
        if (port.name == "COM212" || port.name == "COM29") found.push_back(port.name);
    }
    for (const std::wstring& name : names) {
        RegDeleteKeyValueW(HKEY_LOCAL_MACHINE, kKey, (L"Calyx test " + name).c_str());
    }
    EXPECT_EQ(found, (std::vector<std::string>{"COM29", "COM212"}));
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
