#include "app/setting_rows.h"

#include <iterator>
#include <limits>

#include "model/language/text.h"

namespace calyx {

namespace {

constexpr SettingCodec<bool> kBoolean{SettingType::Boolean,
                                      [](const bool& value) { return std::string(value ? "True" : "False"); },
                                      [](bool& value, std::string_view text) {
                                          text = Trim(text);
                                          const bool on = EqualNoCase(text, "True");
                                          if (!on && !EqualNoCase(text, "False")) return false;
                                          value = on;
                                          return true;
                                      }};

template <class T>
bool TakeNumber(T& value, std::string_view text) {
    const auto number = ReadInteger(text);
    if (!number || !number->whole || number->value < std::numeric_limits<T>::min() ||
        number->value > std::numeric_limits<T>::max()) {
        return false;
    }
    value = static_cast<T>(number->value);
    return true;
}

constexpr SettingCodec<std::int16_t> kInteger{SettingType::Integer,
                                              [](const std::int16_t& value) { return std::to_string(value); },
                                              &TakeNumber<std::int16_t>};
constexpr SettingCodec<std::int32_t> kLong{SettingType::Long,
                                           [](const std::int32_t& value) { return std::to_string(value); },
                                           &TakeNumber<std::int32_t>};

constexpr SettingCodec<std::string> kText{SettingType::Text, [](const std::string& value) { return value; },
                                          [](std::string& value, std::string_view text) {
                                              value = text;
                                              return true;
                                          }};

// Texts joined by "|"; inside a text "%7C" stands for "|" and "%25" for "%".
constexpr SettingCodec<std::vector<std::string>> kTextList{
    SettingType::TextList,
    [](const std::vector<std::string>& value) {
        std::string text;
        for (const std::string& item : value) {
            if (!text.empty()) text += '|';
            for (const char c : item) {
                text += c == '|' ? "%7C" : c == '%' ? "%25" : std::string(1, c);
            }
        }
        return text;
    },
    [](std::vector<std::string>& value, std::string_view text) {
        value.clear();
        for (std::string_view item : Split(text, '|')) {
            std::string plain;
            while (!item.empty()) {
                const bool bar = item.starts_with("%7C"), percent = item.starts_with("%25");
                plain += bar ? '|' : item.front();
                item.remove_prefix(bar || percent ? 3 : 1);
            }
            if (!plain.empty()) value.push_back(std::move(plain));
        }
        return true;
    }};

using S = Settings;
using setting::Row;

constexpr std::string_view kMain = "Settings";
constexpr std::string_view kExport = "Settings\\Export";
constexpr std::string_view kMail = "Settings\\Mail";
constexpr std::string_view kHeaders = "Settings\\Headers";
constexpr std::string_view kHeaderFont = "Settings\\Fonts\\Header";
constexpr std::string_view kDataFont = "Settings\\Fonts\\Data";
constexpr std::string_view kFlags = "Settings\\Flags";
constexpr auto kMachine = ISettingsStore::Root::Machine;

constexpr SettingRow kProductRows[] = {
    Row<&S::ViewToolbar, kBoolean>("ViewToolbar", "ViewToolbar", kMain, "True"),
    Row<&S::ViewStatusbar, kBoolean>("ViewStatusbar", "ViewStatusbar", kMain, "True"),
    Row<&S::MRUListEntries, kInteger>("MRUListEntries", "MRUListEntries", kMain, "4"),
    Row<&S::TileNumber, kInteger>("TileNumber", "TileNumber", kMain, "1"),
    Row<&S::TilesActive, kBoolean>("TilesActive", "TilesActive", kMain, "False"),
    Row<&S::BarGroup, kInteger, 0>("BarGroup1", "Bar1", kMain, "0"),
    Row<&S::BarGroup, kInteger, 1>("BarGroup2", "Bar2", kMain, "0"),
    Row<&S::BarGroup, kInteger, 2>("BarGroup3", "Bar3", kMain, "0"),
    Row<&S::BarGroup, kInteger, 3>("BarGroup4", "Bar4", kMain, "0"),
    Row<&S::BarGroup, kInteger, 4>("BarGroup5", "Bar5", kMain, "0"),
    Row<&S::BarGroup, kInteger, 5>("BarGroup6", "Bar6", kMain, "0"),
    Row<&S::BarGroup, kInteger, 6>("BarGroup7", "Bar7", kMain, "0"),
    Row<&S::SnapToGrid, kBoolean>("SnapToGrid", "SnapToGrid", kMain, "True"),
    Row<&S::GridHeight, kLong>("GridHeight", "GridHeight", kMain, "4"),
    Row<&S::GridWidth, kLong>("GridWidth", "GridWidth", kMain, "4"),
    Row<&S::LockWidgets, kBoolean>("LockWidgets", "LockWidgets", kMain, "False"),
    Row<&S::DispAlphaPropView, kBoolean>("DispAlphaPropView", "AlphaView", kMain, "True"),
    Row<&S::DispShowDescription, kBoolean>("DispShowDescription", "ShowDescription", kMain, "True"),
    Row<&S::DisplayKeypad, kBoolean>("DisplayKeypad", "DisplayKeypad", kMain, "False"),
    Row<&S::PromptForImportFileLocation, kBoolean>("PromptForImportFileLocation",
                                                   "PromptForImportFileLocation", kMain, "True"),
    Row<&S::StreamSimPort, kText>("StreamSimPort", "StrSimPort", kMain, "COM1"),
    Row<&S::StreamSimBaud, kText>("StreamSimBaud", "StrSimBaud", kMain, "9600"),
    Row<&S::StreamSimParity, kText>("StreamSimParity", "StrSimParity", kMain, "N"),
    Row<&S::StreamSimDataBits, kText>("StreamSimDataBits", "StrSimDataBits", kMain, "8"),
    Row<&S::StreamSimStopBits, kText>("StreamSimStopBits", "StrSimStopBits", kMain, "1"),
    Row<&S::MMForeColor, kLong>("MMForeColor", "MMForeColor", kMain, "14"),
    Row<&S::MMBackColor, kLong>("MMBackColor", "MMBackColor", kMain, "1"),
    Row<&S::IndicatorPort, kText>("IndicatorPort", "IndPort", kMain, "COM1"),
    Row<&S::IndicatorBaud, kText>("IndicatorBaud", "IndBaud", kMain, "9600"),
    Row<&S::IndicatorParity, kText>("IndicatorParity", "IndParity", kMain, "N"),
    Row<&S::IndicatorDataBits, kText>("IndicatorDataBits", "IndDataBits", kMain, "8"),
    Row<&S::IndicatorStopBits, kText>("IndicatorStopBits", "IndStopBits", kMain, "1"),
    Row<&S::AutoDetectIndicatorSettings, kBoolean>("AutoDetectIndicatorSettings", "AutoDetect", kMain,
                                                   "True"),
    Row<&S::TargetAddress, kText>("TargetAddress", "TargetAddress", kMain, "1"),
    Row<&S::LogComm, kBoolean>("LogComm", "LogComm", kMain, "False"),
    Row<&S::CommMethod, kLong>("CommMethod", "CommMethod", kMain, "0"),
    Row<&S::IPAddress, kText>("IPAddress", "IPAddress", kMain, "128.1.1.1"),
    Row<&S::TCPPort, kInteger>("TCPPort", "TCPPort", kMain, "10001"),
    Row<&S::ConnectPhone, kText>("ConnectPhone", "ConnectPhone", kMain, ""),
    Row<&S::HaltOnDownloadError, kBoolean>("HaltOnDownloadError", "HaltOnDownloadError", kMain, "False"),
    Row<&S::PrintOffSetpoints, kBoolean>("PrintOffSetpoints", "PrintOffSp", kMain, "False"),
    Row<&S::ToolTipDisplayTime, kLong>("ToolTipDisplayTime", "ToolTipDisplayTime", kMain, "5"),
    Row<&S::FullHeader, kBoolean>("FullHeader", "FullHeader", kMain, "True"),
    Row<&S::Footer, kBoolean>("Footer", "Footer", kMain, "True"),
    Row<&S::ExportType, kLong>("ExportType", "ExportType", kExport, "0"),
    Row<&S::ExportDelimiterType, kLong>("ExportDelimiterType", "DelimiterType", kExport, "0"),
    Row<&S::ExportOtherDelimiter, kText>("ExportOtherDelimiter", "Other", kExport, ""),
    Row<&S::HostName, kText>("HostName", "MailHost", kMail, ""),
    Row<&S::DefaultFrom, kText>("DefaultFrom", "DefaultFrom", kMail, ""),
    Row<&S::CustomHeader, kText, 0>("CustomHeader1", "CH1", kHeaders, ""),
    Row<&S::CustomHeader, kText, 1>("CustomHeader2", "CH2", kHeaders, ""),
    Row<&S::CustomHeader, kText, 2>("CustomHeader3", "CH3", kHeaders, ""),
    Row<&S::HeaderFontName, kText>("HeaderFontName", "Name", kHeaderFont, "Tahoma"),
    Row<&S::HeaderFontSize, kInteger>("HeaderFontSize", "Size", kHeaderFont, "12"),
    Row<&S::HeaderFontBold, kBoolean>("HeaderFontBold", "Bold", kHeaderFont, "False"),
    Row<&S::HeaderFontItalic, kBoolean>("HeaderFontItalic", "Italic", kHeaderFont, "False"),
    Row<&S::DataFontName, kText>("DataFontName", "Name", kDataFont, "Courier New"),
    Row<&S::DataFontSize, kInteger>("DataFontSize", "Size", kDataFont, "10"),
    Row<&S::DataFontBold, kBoolean>("DataFontBold", "Bold", kDataFont, "False"),
    Row<&S::DataFontItalic, kBoolean>("DataFontItalic", "Italic", kDataFont, "False"),
    Row<&S::SectionIndent, kInteger>("SectionIndent", "Section Indent", kDataFont, "3"),
    Row<&S::ElementIndent, kInteger>("ElementIndent", "Element Indent", kDataFont, "5"),
    Row<&S::DataBoldSubHeaders, kBoolean>("DataBoldSubHeaders", "Bold Subheaders", kDataFont, "True"),
    Row<&S::LargeFontsError, kBoolean>("LargeFontsError", "Large Fonts", kFlags, "True"),
    Row<&S::SetFileExtension, kBoolean>("SetFileExtension", "File Extension", kFlags, "True"),
    Row<&S::CommDelayTime, kLong>("CommDelayTime", "CommDelayTime", kMain, "100", kMachine),
    Row<&S::AutoDetectSearch, kText>("AutoDetectSearch", "AutoDetectSearch", kMain, "Merrin", kMachine),
};

constexpr std::string_view kRecent = "Settings\\Recent";
constexpr std::string_view kWindow = "Settings\\Window";
constexpr std::string_view kDownload = "Settings\\Download";
constexpr std::string_view kAppearance = "Settings\\Appearance";

constexpr SettingRow kFurtherRows[] = {
    Row<&S::RecentFiles, kTextList>("RecentFiles", "Files", kRecent, ""),
    Row<&S::LastFolder, kText>("LastFolder", "Folder", kRecent, ""),
    Row<&S::WindowLeft, kLong>("WindowLeft", "Left", kWindow, "0"),
    Row<&S::WindowTop, kLong>("WindowTop", "Top", kWindow, "0"),
    Row<&S::WindowWidth, kLong>("WindowWidth", "Width", kWindow, "0"),
    Row<&S::WindowHeight, kLong>("WindowHeight", "Height", kWindow, "0"),
    Row<&S::WindowMaximized, kBoolean>("WindowMaximized", "Maximized", kWindow, "False"),
    Row<&S::WindowLayout, kText>("WindowLayout", "Layout", kWindow, ""),
    Row<&S::DownloadOptions, kLong>("DownloadOptions", "Options", kDownload, "13"),
    Row<&S::Theme, kText>("Theme", "Theme", kAppearance, ""),
    Row<&S::Language, kText>("Language", "Language", kAppearance, ""),
};

}  // namespace

std::span<const SettingRow> ProductSettingRows() {
    return kProductRows;
}

std::span<const SettingRow> FurtherSettingRows() {
    return kFurtherRows;
}

const SettingRow* FindSettingRow(std::string_view property) {
    for (const auto rows : {ProductSettingRows(), FurtherSettingRows()}) {
        for (const SettingRow& row : rows) {
            if (row.property == property) return &row;
        }
    }
    return nullptr;
}

Settings StandardSettings() {
    Settings settings;
    for (const auto rows : {ProductSettingRows(), FurtherSettingRows()}) {
        for (const SettingRow& row : rows) row.take(settings, row.standard);
    }
    return settings;
}

}  // namespace calyx
