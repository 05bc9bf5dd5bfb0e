// The settings in the registry as it really is: keys, value names and kinds that other programs and older
// versions rely on.

#include <gtest/gtest.h>
#include <windows.h>

#include "app/app_settings.h"
#include "app/error_codes.h"
#include "model/language/text.h"
#include "platform/win32/registry_settings_store.h"
#include "platform/win32/wide_text.h"
#include "tests/platform/test_folder.h"

namespace calyx {
namespace {

using win32::Wide;

class RegistrySettings : public ::testing::Test {
  protected:
    // A version that no program has, so that a person's own settings stay out of it.
    static constexpr const char* kVersion = "0.00.0-test";

    RegistrySettings() { Clear(); }
    ~RegistrySettings() override { Clear(); }

    static void Clear() {
        const std::wstring key = Wide(std::string("SOFTWARE\\Calyx\\Calyx\\") + kVersion);
        RegDeleteTreeW(HKEY_CURRENT_USER, key.c_str());
        RegDeleteTreeW(HKEY_LOCAL_MACHINE, key.c_str());
    }
    // The text below the version's key; "absent" when it is no text or not there.
    static std::string Stored(HKEY root, const std::string& subKey, const std::string& value) {
        const std::wstring key = Wide(std::string("SOFTWARE\\Calyx\\Calyx\\") + kVersion + '\\' + subKey);
        std::wstring text(200, L'\0');
        DWORD bytes = static_cast<DWORD>(text.size() * sizeof(wchar_t));
        const LSTATUS status =
            RegGetValueW(root, key.c_str(), Wide(value).c_str(), RRF_RT_REG_SZ | RRF_SUBKEY_WOW6464KEY,
                         nullptr, text.data(), &bytes);
        return status == ERROR_SUCCESS ? win32::Narrow(text.c_str()) : "absent";
    }
    static bool MachineWideIsAllowed() {
        const std::wstring key = Wide(std::string("SOFTWARE\\Calyx\\Calyx\\") + kVersion);
        return RegSetKeyValueW(HKEY_LOCAL_MACHINE, key.c_str(), L"x", REG_SZ, L"", sizeof(wchar_t)) ==
               ERROR_SUCCESS;
    }
    CAppSettings Fresh() { return {store_, texts_, kVersion, "", nullptr}; }

    win32::RegistrySettingsStore store_;
    ResourceTexts texts_;
};

TEST_F(RegistrySettings, EverySettingStandsWhereItBelongs) {
    const bool machineWide = MachineWideIsAllowed();
    CAppSettings settings = Fresh();
    settings.Load();
    for (const SettingRow& row : ProductSettingRows()) {
        const bool isTrue = settings.Text(row) == "True";
        ASSERT_TRUE(settings.Set(row, row.type == SettingType::Boolean ? (isTrue ? "False" : "True") : "77"));
    }
    settings.IndicatorPort = "gr\xC3\xBCn";
    if (machineWide) {
        settings.Save();
    } else {
        EXPECT_THROW(settings.Save(), Error) << "told, and the user's own settings are kept";
    }
    int rows = 0;
    // Property, value, key, root, kind, default.
    const std::string product = FileStore().Read(CALYX_SOURCE_DIR "/tests/app/product_settings.txt");
    for (const std::string_view line : Split(product, '\n')) {
        if (line.empty()) continue;
        const auto fields = Split(line, '|');
        ASSERT_EQ(fields.size(), 6u) << line;
        const bool user = fields[3] == "User";
        std::string expected = fields[4] == "Boolean" ? (fields[5] == "True" ? "False" : "True") : "77";
        if (fields[0] == "IndicatorPort") expected = settings.IndicatorPort;
        if (!user && !machineWide) expected = "absent";
        EXPECT_EQ(Stored(user ? HKEY_CURRENT_USER : HKEY_LOCAL_MACHINE, std::string(fields[2]),
                         std::string(fields[1])),
                  expected)
            << line;
        EXPECT_EQ(Stored(user ? HKEY_LOCAL_MACHINE : HKEY_CURRENT_USER, std::string(fields[2]),
                         std::string(fields[1])),
                  "absent")
            << line;
        ++rows;
    }
    EXPECT_EQ(rows, static_cast<int>(ProductSettingRows().size()));

    CAppSettings later = Fresh();
    later.Load();
    EXPECT_EQ(later.IndicatorPort, settings.IndicatorPort);
    EXPECT_EQ(later.CommDelayTime, machineWide ? 77 : 100);
}

// As an administrator's script or a policy may have written them.
TEST_F(RegistrySettings, NumbersAndExpandedTextsAreRead) {
    const std::wstring key = Wide(std::string("SOFTWARE\\Calyx\\Calyx\\") + kVersion + "\\Settings");
    const DWORD height = 12;
    ASSERT_EQ(
        RegSetKeyValueW(HKEY_CURRENT_USER, key.c_str(), L"GridHeight", REG_DWORD, &height, sizeof(height)),
        ERROR_SUCCESS);
    ASSERT_EQ(RegSetKeyValueW(HKEY_CURRENT_USER, key.c_str(), L"IndPort", REG_EXPAND_SZ, L"COM7", 10),
              ERROR_SUCCESS);
    CAppSettings settings = Fresh();
    settings.Load();
    EXPECT_EQ(settings.GridHeight, 12);
    EXPECT_EQ(settings.IndicatorPort, "COM7");
}

}  // namespace
}  // namespace calyx
