#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "model/language/section.h"
#include "model/widgets/widget_line.h"

namespace calyx {

// The widgets of all screens, in an array: a widget's number is its place, counted from 1. A screen shows
// its widgets in this order, later ones above earlier ones.
//
// Operations here change the section at once. An editor that wants its edits undone works on a copy of the
// section and gives the document the difference of both States.
class CWidgets : public Section {
  public:
    static constexpr std::size_t kOldLimit = 128;  // of firmware before 3.01 without the CB2 board

    explicit CWidgets(const ModelContext& context);

    std::string_view Name() const override { return "widgets"; }
    int Title() const override { return 2124; }
    std::vector<Item*> Items() override;
    void Initialize() override;
    // Gaps in the numbers are closed; a malformed record is passed over and reported.
    void RestoreState(Dictionary& lines, ReadReport& report) override;
    void AppendText(std::string& out, const Target& target) const override;  // numbered without gaps
    std::string GetPrintOutput() const override;
    std::string GetIWriteImportDef() const override;
    bool Owns(std::string_view key) const override { return WidgetNumberOf(key) != 0; }
    void MarkSaved() override;

    // The lines of a download: the indicator's widgets are cleared first; older firmware gets 128.
    std::string LinesToSend(const Target& target) const;
    bool SendToIndicator(ILineSender& sender, IDownload& download) const override;

    int WidgetCount() const;  // without gaps
    // By number. A gap or a number beyond the last raises 10002.
    const CWidget& widget(int number) const;
    CWidget& widget(int number);
    std::vector<int> Numbers() const;  // of all widgets, ascending
    std::vector<int> OnScreen(int screen) const;

    // A new widget behind the last one. Returns its number; 10002 when 32767 are there.
    int Add(WidgetKind kind, int screen);
    int Add(const IWidgetData& like);
    void Remove(int number);  // leaves a gap
    void CompactWidgetArray();
    // Changes the order: the widget takes the number `to`, those between move by one.
    void Move(int from, int to);

    // What a document has to take to set one property of a widget, named as in its Properties(): the one
    // line that changes, or why the value is refused.
    struct PropertyEdit {
        std::vector<Change> changes;
        std::vector<Refusal> refused;
    };
    PropertyEdit SetProperty(int number, std::string_view property, std::string_view text) const;

    // Adds the widgets of one screen of another configuration file to a screen of this one and returns
    // their numbers. 10002 no such screen   10004 no such file   20001 not readable   20003 a folder
    std::vector<int> ImportScreen(const std::string& filename, int from, int to);
    std::vector<int> AddScreenWidgets(const Dictionary& lines, int from, int to);
    Dictionary LoadDictionary(const std::string& filename) const;
    std::vector<std::string> ReadFileToArray(const std::string& filename) const;  // its lines
    // The value of a line by its key, "WDGT#3"; `absent` where there is none.
    static std::string FindParameter(Dictionary& lines, std::string_view key, std::string_view absent) {
        return lines.FindParameter(key, absent);
    }

    // Widgets as lines of text, for the clipboard ("CalyxWidget"), and back onto a screen; 0: the screens
    // that they come from. Lines that are no widgets are passed over. A name that is taken here gets a
    // number behind it.
    std::string CopyText(const std::vector<int>& numbers) const;
    std::vector<int> Paste(std::string_view text, int screen);

    CBrokenRules Validate() const { return BrokenRules(); }

  protected:
    void Prepare(std::vector<Change>& changes, Check check, const ValueOf& valueOf) override;
    void AddBrokenRules(CBrokenRules& rules) const override;

  private:
    std::vector<int> AddFrom(CWidgets& other, const std::vector<int>& numbers, int screen);
    std::string FreeName(std::string_view name) const;
    WidgetLine& Place(int number);  // made when it is not there yet
    void NeedScreen(int screen, const char* operation) const;
    [[noreturn]] void FailRange(int value, const char* operation, std::string_view allowed) const;

    std::shared_ptr<const WidgetPatterns> patterns_;
    // Places behind the last widget stay as gaps until the next save: they know what was saved there.
    std::vector<WidgetLine> places_;
    std::vector<WidgetLine> strays_;  // places beyond, for records that are refused
};

// Scale widgets whose scale is not there.
void CheckWidgetScales(const CWidgets& widgets, const std::function<bool(int scale)>& exists,
                       const ResourceTexts& texts, CBrokenRules& rules);

}  // namespace calyx
