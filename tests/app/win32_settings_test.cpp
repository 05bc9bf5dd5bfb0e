// The settings in the registry as it really is: keys, value names and kinds that other programs and older
// versions rely on.

#include <gtest/gtest.h>
#include <windows.h>

#include "app/app_settings.h"
#include "app/error_codes.h"
#include "model/language/text.h"
#include "platform/win32/registry_settings_store.h"
#include "platform/win32/wide_text.h"
#include "tests/platform/registry_lock.h"
#include "tests/platform/test_folder.h"

namespace calyx {
namespace {

using win32::Wide;

class RegistrySettings : public ::testing::Test {
  protected:
    RegistrySettings() { Clear(); }
    ~RegistrySettings() override { Clear(); }

    // A version that no program has, so that a person's own settings stay out of it, nor a test beside this
    // one.
    static std::string Version() { return "0.00.0-test-" + std::to_string(GetCurrentProcessId()); }
    static std::string VersionKey() { return "SOFTWARE\\Calyx\\Calyx\\" + Version(); }
    static void Clear() {
        for (const HKEY root : {HKEY_CURRENT_USER, HKEY_LOCAL_MACHINE}) {
            RegDeleteTreeW(root, Wide(VersionKey()).c_str());
        }
    }
    // The text below the version's key; "absent" when it is no text or not there.
    static std::string Stored(HKEY root, const std::string& subKey, const std::string& value) {
        const std::wstring key = Wide(VersionKey() + '\\' + subKey);
        std::wstring text(200, L'\0');
        DWORD bytes = static_cast<DWORD>(text.size() * sizeof(wchar_t));
        const LSTATUS status =
            RegGetValueW(root, key.c_str(), Wide(value).c_str(), RRF_RT_REG_SZ | RRF_SUBKEY_WOW6464KEY,
                         nullptr, text.data(), &bytes);
        return status == ERROR_SUCCESS ? win32::Narrow(text.c_str()) : "absent";
    }
    static bool MachineWideIsAllowed() {
        const std::wstring key = Wide(VersionKey());
        return RegSetKeyValueW(HKEY_LOCAL_MACHINE, key.c_str(), L"x", REG_SZ, L"", sizeof(wchar_t)) ==
               ERROR_SUCCESS;
    }
    static std::wstring KeyOf(const SettingRow& row) {
        return Wide(VersionKey() + '\\' + std::string(row.subKey));
    }
    static void Put(const SettingRow& row, DWORD kind, const void* value, std::size_t bytes) {
        const HKEY root = row.root == ISettingsStore::Root::User ? HKEY_CURRENT_USER : HKEY_LOCAL_MACHINE;
        ASSERT_EQ(RegSetKeyValueW(root, KeyOf(row).c_str(), Wide(row.value).c_str(), kind, value,
                                  static_cast<DWORD>(bytes)),
                  ERROR_SUCCESS)
            << row.property;
    }
    // The code of the failure; 0: saved.
    static int FailedSave(CAppSettings& settings) {
        try {
            settings.Save();
        } catch (const Error& error) {
            return error.Code();
        }
        return 0;
    }
    CAppSettings Fresh() {
        return {store_, texts_, Version(), "", [this](const Error& error) { errors_.push_back(error); }};
    }

    win32::RegistrySettingsStore store_;
    ResourceTexts texts_;
    std::vector<Error> errors_;
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

// As an administrator's script or a policy may have written them: every value of the table, by its own name.
TEST_F(RegistrySettings, EverySettingIsReadFromWhereItBelongs) {
    if (!MachineWideIsAllowed()) GTEST_SKIP() << "machine-wide values are not for this user to write";
    for (const SettingRow& row : ProductSettingRows()) {
        const bool isTrue = row.standard == "True";
        const std::wstring text = row.type == SettingType::Boolean ? (isTrue ? L"False" : L"True") : L"77";
        Put(row, REG_SZ, text.c_str(), (text.size() + 1) * sizeof(wchar_t));
    }
    CAppSettings settings = Fresh();
    settings.Load();
    for (const SettingRow& row : ProductSettingRows()) {
        const std::string changed = row.standard == "True" ? "False" : "True";
        EXPECT_EQ(settings.Text(row), row.type == SettingType::Boolean ? changed : "77") << row.property;
    }
    EXPECT_TRUE(errors_.empty());
}

TEST_F(RegistrySettings, OtherKindsOfValuesAreReadOrRecorded) {
    const DWORD number = 12;
    const struct {
        const char* property;
        DWORD kind;
        const void* value;
        std::size_t bytes;
        const char* text;
        bool good;
    } rows[] = {
        {"GridHeight", REG_DWORD, &number, sizeof(number), "12", true},
        {"IndicatorPort", REG_EXPAND_SZ, L"COM7", 10, "COM7", true},
        {"IndicatorBaud", REG_SZ, L"19200", 10, "19200", true},  // without the NUL at its end
        {"GridWidth", REG_SZ, L"wide", 10, "4", false},
        {"MMForeColor", REG_DWORD, &number, 2, "14", false},  // cut off
        {"IPAddress", REG_MULTI_SZ, L"a\0b\0", 10, "128.1.1.1", false},
        {"ToolTipDisplayTime", REG_NONE, nullptr, 0, "5", false},
        {"HeaderFontName", REG_QWORD, L"abcd", 8, "Tahoma", false},
        {"Footer", REG_BINARY, "\xff\xfe", 2, "True", false},
    };
    for (const auto& row : rows) {
        errors_.clear();
        const SettingRow& setting = *FindSettingRow(row.property);
        Put(setting, row.kind, row.value, row.bytes);
        CAppSettings settings = Fresh();
        settings.Load();
        EXPECT_EQ(settings.Text(setting), row.text) << row.property;
        EXPECT_EQ(errors_.size(), row.good ? 0u : 1u) << row.property;
        for (const Error& error : errors_) EXPECT_EQ(error.Code(), code::kSetting);
        RegDeleteKeyValueW(HKEY_CURRENT_USER, KeyOf(setting).c_str(), Wide(setting.value).c_str());
    }
}

TEST_F(RegistrySettings, ARegistryThatRefusesIsToldAndNothingElseIsLost) {
    const std::wstring key = KeyOf(*FindSettingRow("IPAddress"));
    CAppSettings settings = Fresh();
    settings.IPAddress = "10.0.0.9";
    settings.Save();
    settings.IPAddress = "10.0.0.10";
    settings.HostName = "mail";  // of another key
    {
        const win32::RegistryLock lock(HKEY_CURRENT_USER, key, win32::kNoWriting);
        ASSERT_TRUE(lock.Holds());
        EXPECT_EQ(FailedSave(settings), code::kSettingsUnsaved);
        EXPECT_EQ(Stored(HKEY_CURRENT_USER, "Settings", "IPAddress"), "10.0.0.9");
        EXPECT_EQ(Stored(HKEY_CURRENT_USER, "Settings\\Mail", "MailHost"), "mail");
    }
    EXPECT_EQ(FailedSave(settings), 0) << "what was refused is saved later";
    EXPECT_EQ(Stored(HKEY_CURRENT_USER, "Settings", "IPAddress"), "10.0.0.10");
    {
        const win32::RegistryLock lock(HKEY_CURRENT_USER, key, win32::kNoReading);
        CAppSettings unread = Fresh();
        unread.Load();
        EXPECT_EQ(unread.IPAddress, "128.1.1.1");
        ASSERT_EQ(errors_.size(), 1u) << "recorded once, not for every setting";
        EXPECT_EQ(errors_[0].Code(), code::kSettingsUnread);
        unread.GridHeight = 9;
        EXPECT_EQ(FailedSave(unread), code::kSettingsUnsaved) << "nothing is written over what is not known";
    }
    EXPECT_EQ(Stored(HKEY_CURRENT_USER, "Settings", "GridHeight"), "absent");
}

TEST_F(RegistrySettings, MachineWideValuesMayBeRefused) {
    const std::wstring key = KeyOf(*FindSettingRow("CommDelayTime"));
    const win32::RegistryLock lock(HKEY_LOCAL_MACHINE, key, win32::kNoWriting);
    if (!lock.Holds()) GTEST_SKIP() << "machine-wide keys are not for this user to lock";
    CAppSettings settings = Fresh();
    settings.IPAddress = "10.0.0.9";
    EXPECT_EQ(FailedSave(settings), 0) << "nobody misses machine-wide values that stay as they are";
    settings.CommDelayTime = 200;
    settings.IPAddress = "10.0.0.10";
    EXPECT_EQ(FailedSave(settings), code::kSettingsUnsaved);
    CAppSettings loaded = Fresh();
    loaded.Load();
    EXPECT_EQ(loaded.IPAddress, "10.0.0.10");
    EXPECT_EQ(loaded.CommDelayTime, 100);
}

}  // namespace
}  // namespace calyx
