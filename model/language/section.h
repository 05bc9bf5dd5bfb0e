#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "model/language/broken_rules.h"
#include "model/language/change_set.h"
#include "model/language/context.h"
#include "model/language/dictionary.h"
#include "model/language/item.h"
#include "model/language/read_report.h"

namespace calyx {

// Sends one line, without its end, to the indicator and waits for the answer. True: accepted.
class ILineSender {
  public:
    virtual ~ILineSender() = default;
    virtual bool SendLine(std::string_view line) = 0;
};

// Told of every line that the indicator did not accept; the answer is whether to stop sending.
class IDownload {
  public:
    virtual ~IDownload() = default;
    virtual bool ErrorAction(const std::string& failedLine) = 0;
};

class IObjectSync {
  public:
    virtual ~IObjectSync() = default;
    // Sends the section's gated lines. False: stopped by the callback.
    virtual bool SendToIndicator(ILineSender& sender, IDownload& download) const = 0;
    // Takes over the lines that an indicator holds, as an upload does.
    virtual void GetFromIndicator(Dictionary& lines, ReadReport& report) = 0;
};
class IObjectView {
  public:
    virtual ~IObjectView() = default;
    virtual std::string TextView() const = 0;
};
class IObjectPrint {
  public:
    virtual ~IObjectPrint() = default;
    virtual std::string GetPrintOutput() const = 0;
};
class IObjectImportDef {
  public:
    virtual ~IObjectImportDef() = default;
    virtual std::string GetIWriteImportDef() const = 0;  // lines ended by CR LF; empty: none
};

// Sends the lines of a text one by one. False: stopped by the callback.
bool SendLines(std::string_view text, ILineSender& sender, IDownload& download);

// The document's present value of a key of any section; nothing for a key that none owns.
using ValueOf = std::function<std::optional<std::string>(std::string_view key)>;

// A value that was not taken over as given, and why, in words.
struct Refusal {
    std::string key;
    std::string value;
    std::string reason;
};

// A section object: one part of the configuration, which knows its own keys. A value type behind a
// common face: copies are independent, equality is that of the parameters.
//
// A section of the usual kind is a few items made of rows and says only which they are (Items); all
// that is generic is done here once: reading, writing, dirty tracking, listing, checks, changes.
class Section : public IObjectSync, public IObjectView, public IObjectPrint, public IObjectImportDef {
  public:
    explicit Section(const ModelContext& context) : context_(&context) {}

    virtual std::string_view Name() const = 0;  // "general": on the command line and in reports
    virtual int Title() const = 0;              // number of the resource text

    virtual void Initialize();
    virtual void RestoreState(Dictionary& lines, ReadReport& report);
    // All lines for the file body, ungated.
    virtual void AppendState(std::string& out) const { AppendText(out, Target::Everything()); }
    // The lines for a target.
    virtual void AppendText(std::string& out, const Target& target) const;

    // What an indicator of the target is given of the section and of every object in it.
    virtual void AppendLines(std::string& out, const Target& target) const { AppendText(out, target); }

    std::string StoreState() const;
    // With `allParameters` every line, otherwise gated by the application's target version.
    std::string GetTextOutput(bool allParameters) const;
    std::string TextView() const override { return GetTextOutput(true); }
    std::string GetPrintOutput() const override;
    std::string GetIWriteImportDef() const override { return {}; }
    bool SendToIndicator(ILineSender& sender, IDownload& download) const override;
    void GetFromIndicator(Dictionary& lines, ReadReport& report) override { RestoreState(lines, report); }

    virtual bool IsDirty() const;  // changed since the last load or save
    virtual void MarkSaved();
    // The rules broken: range and rule of every row that is written, and what the section adds itself.
    CBrokenRules BrokenRules() const;
    bool IsValid() const { return BrokenRules().Count() == 0; }

    // The items, in the order of their lines.
    virtual std::vector<Item*> Items() = 0;
    std::vector<const Item*> Items() const;
    // "Scale 2"; empty for a section without numbered items.
    std::string ItemTitle(const Item& item) const;

    // Every parameter with its present text, also those whose lines are not written at present: the
    // whole state of the section.
    std::vector<KeyValue> State() const;
    // Takes over values by key, together: lines that belong together (two words of one lock) are
    // merged into the section's own first. Keys of other sections are passed over. Strict refuses what
    // the list or range does not allow; Lenient reads as a file is read and tells what was not taken as
    // given; None takes everything, for undo. A line break is refused by all.
    enum class Check { Strict, Lenient, None };
    std::vector<Refusal> Take(std::vector<Change> changes, Check check, const ValueOf& valueOf = {});
    // Also keys of items that could be there and are not at present.
    virtual bool Owns(std::string_view key) const;

  protected:
    const ModelContext& Context() const { return *context_; }
    // An item's part of the listing: its title, unless it goes on with the one before, and its values.
    std::string ItemListing(const Item& item, bool titled = true) const;
    // Before changes are taken: makes room for items that come with them, drops those that go, and adds
    // the changes that these bring about.
    virtual void Prepare(std::vector<Change>& /*changes*/, Check, const ValueOf&) {}
    // Cross-checks that the rows cannot say.
    virtual void AddBrokenRules(CBrokenRules&) const {}

  private:
    const ModelContext* context_;
};

}  // namespace calyx
