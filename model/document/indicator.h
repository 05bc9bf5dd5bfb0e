#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "model/document/sections.h"
#include "model/language/error.h"
#include "model/language/section.h"

namespace calyx {

// The document: one complete configuration of one indicator, and the file that holds it.
//
// Constructed, it has no sections; exactly one of Initialize (a new document) or Load (an opened one)
// gives it some. Copies are independent documents. Errors carry the source "Calyx.CIndicator." and
// the operation's name.
class CIndicator {
  public:
    static constexpr const char* kNewFile = "[New File]";

    explicit CIndicator(const ModelContext& context) : context_(&context) {}

    void Initialize();
    void Dispose() { sections_.reset(); }
    bool IsInitialised() const { return sections_.has_value(); }

    // Opens a file. Unless `skipChecks`, the checksum and both versions are checked. A failure leaves
    // sections, Filename, CODFilename and IsNew as they were; FileVersion and IndicatorVersion already
    // tell what the rejected file says.
    //   10004 no such file   20001 not readable   20003 a folder
    //   10005 body changed   10012 no checksum   15000 file revision   15001 indicator version
    ReadReport Load(const std::string& filename, bool skipChecks);
    // The same for a text that is already in memory, an indicator's dump for example; no checks.
    ReadReport LoadText(std::string text, const std::string& filename);

    // Writes the file whole or not at all. `asCopy` keeps the document's name and state. Over what the
    // document knows means: only if the file still holds what was last read or saved here.
    //   10006 no document   20002 not written, the old file is as it was   20003 a folder
    //   42600 another program has changed the file   42601 it is gone   42602 it cannot be read
    enum class Over { Anything, WhatIsKnown };
    void Save(const std::string& filename, bool asCopy, Over over = Over::Anything);
    // What its file held when it was last read or saved here; null for a document without one.
    const std::string* OnFile() const { return onFile_.get(); }
    // From now on a new document that was never saved, with the values that it has.
    void ForgetFile();

    // The Scrivo import file: alias constants of the whole document. 10006, 20002.
    void GenerateImportFile(const std::string& filename);
    std::string ImportFileText() const;
    std::string GetPrintOutput() const;

    std::string Body() const;      // what stands between "[BEGIN]" and "[END]"
    std::string FileText() const;  // the whole file, envelope included

    const std::string& Filename() const { return filename_; }
    const std::string& CODFilename() const { return codFilename_; }
    // A name that does not fit in the header line, or that holds a mark of the file, raises 10002.
    void SetCODFilename(std::string name);
    const std::string& FileVersion() const { return fileVersion_; }
    const std::string& IndicatorVersion() const { return indicatorVersion_; }
    bool IsNew() const { return isNew_; }
    bool IsDirty() const;

    // The sections; only after Initialize or Load.
    CGeneral& General() { return sections_->general; }
    const CGeneral& General() const { return sections_->general; }
    CPrompts& Prompts() { return sections_->prompts; }
    const CPrompts& Prompts() const { return sections_->prompts; }
    CHardware& Hardware() { return sections_->hardware; }
    const CHardware& Hardware() const { return sections_->hardware; }
    CScales& Scales() { return sections_->scales; }
    const CScales& Scales() const { return sections_->scales; }
    CTickets& Tickets() { return sections_->tickets; }
    const CTickets& Tickets() const { return sections_->tickets; }
    CWidgets& Widgets() { return sections_->widgets; }
    const CWidgets& Widgets() const { return sections_->widgets; }
    CSetpoints& Setpoints() { return sections_->setpoints; }
    const CSetpoints& Setpoints() const { return sections_->setpoints; }
    CCustomParms& CustomParms() { return sections_->customParms; }
    const CCustomParms& CustomParms() const { return sections_->customParms; }
    CJunctionBoxes& JunctionBoxes() { return sections_->junctionBoxes; }
    const CJunctionBoxes& JunctionBoxes() const { return sections_->junctionBoxes; }
    CFieldbusCards& FieldbusCards() { return sections_->fieldbusCards; }
    const CFieldbusCards& FieldbusCards() const { return sections_->fieldbusCards; }

    // In the order of the file body; empty before Initialize or Load.
    std::vector<Section*> Sections();
    std::vector<const Section*> Sections() const;
    Section* FindSection(std::string_view name);
    Section* OwnerOf(std::string_view key);

    // The value of a key as the document writes it; nothing for a key that no section owns.
    std::optional<std::string> Value(std::string_view key) const;
    // Every line of the file body as key and value.
    std::vector<KeyValue> Lines() const { return ReadLines(Body()); }

    // Takes lines over into the document; what is not named stays. What a list or range does not
    // allow, and keys that no section owns, are refused one by one.
    struct Taken {
        ChangeSet changes;
        std::vector<Refusal> refused;
    };
    Taken Import(const std::vector<KeyValue>& lines);
    // Of these keys those whose value the file cannot hold as things stand: it would read otherwise when
    // opened again. A setpoint that is off has no line for its alias.
    std::vector<Refusal> NotKept(const std::vector<std::string>& keys) const;
    // Applies changes as they are, for undo and redo; what no section took is told.
    Taken Apply(const ChangeSet& changes);
    // Takes lines of another document as leniently as a file is read; what is not named stays. Of a key that
    // occurs twice the first line counts. What was not taken as given is told.
    Taken Merge(const std::vector<KeyValue>& lines);
    // The same for values read back from a connected indicator: what only the indicator knows, too.
    Taken UpdateFromIndicator(std::string_view dump);
    // Puts a card into a slot, or takes it out (card::kEmptySlot), with all that the cards bring. 10002
    // for a slot outside 1 to 14.
    Taken ChangeCard(int slot, std::int32_t code);

    std::vector<BrokenRule> Validate() const;
    // Where the installed cards that a connected indicator reports differ from the document's.
    std::vector<BrokenRule> ValidateLiveHardware(std::string_view dump) const;

    const ModelContext& Context() const { return *context_; }

  private:
    enum class CrcCheck { Equal, Differs, None };

    Dictionary LoadDictionary(const std::string& filename) const;
    CrcCheck doFileCRCCheck(const Dictionary& lines) const;
    bool doRevisionCheck(const Dictionary& lines) const;
    bool doIndicatorRevisionCheck(const Dictionary& lines) const;
    bool VersionIsAccepted(std::string_view version) const;
    void CheckFile(const Dictionary& lines, const std::string& filename) const;
    std::string WriteCRCFile(const std::string& filename, std::string_view body, Over over) const;
    void CheckKnown(const std::string& filename) const;
    std::string Envelope(std::string_view body) const;
    void ReadVersions(const Dictionary& lines);
    ReadReport TakeSections(Dictionary& lines, const std::string& filename);
    [[noreturn]] void Fail(int code, const char* operation,
                           std::initializer_list<std::string_view> arguments) const;
    void NeedDocument(const char* operation) const;
    Taken TakeChanges(const std::vector<Change>& changes, Section::Check check);
    Taken TakeLines(const std::vector<KeyValue>& lines);
    void FollowFieldbusCards(std::vector<Change>& changes, Section::Check check) const;
    // What the changes make of a value, before they are taken.
    std::optional<std::string> ValueAfter(const std::vector<Change>& changes, std::string_view key) const;

    const ModelContext* context_;
    std::string filename_ = kNewFile;
    std::string codFilename_;
    std::string indicatorVersion_;
    std::string fileVersion_;
    bool isNew_ = true;
    std::shared_ptr<const std::string> onFile_;
    std::optional<DocumentSections> sections_;
};

}  // namespace calyx
