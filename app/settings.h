#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

namespace calyx {

// The user's preferences, one member a setting. What each is called where it is stored, its kind of
// value and its default stand in its row (setting_rows.cpp); StandardSettings() holds the defaults.
// Integer is 16 bits wide, Long is 32.
struct Settings {  // NOLINT(clang-analyzer-optin.performance.Padding): in the reader's order
    // Window
    bool ViewToolbar{};
    bool ViewStatusbar{};
    std::int16_t MRUListEntries{};  // how many recently used files are kept
    std::int16_t TileNumber{};
    bool TilesActive{};
    std::array<std::int16_t, 7> BarGroup{};  // BarGroup1 to BarGroup7: state of the navigation groups
    // Screen editor
    bool SnapToGrid{};
    std::int32_t GridHeight{}, GridWidth{};
    bool LockWidgets{};
    bool DispAlphaPropView{}, DispShowDescription{}, DisplayKeypad{};
    bool PromptForImportFileLocation{};
    // Stream simulator: the PC's serial port that it sends on
    std::string StreamSimPort, StreamSimBaud, StreamSimParity, StreamSimDataBits, StreamSimStopBits;
    // Terminal monitor
    std::int32_t MMForeColor{}, MMBackColor{};
    // Link to the indicator
    std::string IndicatorPort, IndicatorBaud, IndicatorParity, IndicatorDataBits, IndicatorStopBits;
    bool AutoDetectIndicatorSettings{};  // False: detection tries the stored settings before its own
    std::string TargetAddress;
    bool LogComm{};
    std::int32_t CommMethod{};
    std::string IPAddress;
    std::int16_t TCPPort{};  // the 16 bits of the port: 40000 is -25536 here
    std::string ConnectPhone;
    bool HaltOnDownloadError{};
    // Printed listing
    bool PrintOffSetpoints{};
    std::int32_t ToolTipDisplayTime{};  // s
    bool FullHeader{}, Footer{};
    // Export
    std::int32_t ExportType{}, ExportDelimiterType{};
    std::string ExportOtherDelimiter;
    // Mail
    std::string HostName, DefaultFrom;
    // Headings and fonts of the listing; font sizes in points, indents in characters
    std::array<std::string, 3> CustomHeader;
    std::string HeaderFontName;
    std::int16_t HeaderFontSize{};
    bool HeaderFontBold{}, HeaderFontItalic{};
    std::string DataFontName;
    std::int16_t DataFontSize{};
    bool DataFontBold{}, DataFontItalic{};
    std::int16_t SectionIndent{}, ElementIndent{};
    bool DataBoldSubHeaders{};
    bool LargeFontsError{}, SetFileExtension{};
    // Machine-wide
    std::int32_t CommDelayTime{};  // ms
    std::string AutoDetectSearch;  // what an indicator's identification contains

    // Newer than the settings above, and stored apart from them.
    std::vector<std::string> RecentFiles;  // newest first; see CMRU
    std::string LastFolder;
    std::int32_t WindowLeft{}, WindowTop{}, WindowWidth{}, WindowHeight{};  // pixels; width 0: not kept yet
    bool WindowMaximized{};
    std::string WindowLayout;  // of tool bars and panes, in the window's own words
    std::int32_t
        DownloadOptions{};  // bits: 1 base, 2 calibration, 4 setpoints, 8 widgets, 16 schemas, 32 program
    std::string Theme;      // empty: as the system
    std::string Language;   // code of a texts file; empty: English

    friend bool operator==(const Settings&, const Settings&) = default;
};

Settings StandardSettings();

}  // namespace calyx
