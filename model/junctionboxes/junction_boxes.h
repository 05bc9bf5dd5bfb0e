#pragma once

#include <map>
#include <set>
#include <vector>

#include "model/junctionboxes/junction_box.h"
#include "model/language/section.h"

namespace calyx {

// The junction boxes: one for each existing serial port whose input type is a junction box link, with or
// without lines of its own. They come and go with the input types of the ports, which belong to another
// section: whoever changes these calls SetPorts.
class CJunctionBoxes : public Section {
  public:
    explicit CJunctionBoxes(const ModelContext& context) : Section(context) {}

    std::string_view Name() const override { return "junctionboxes"; }
    int Title() const override { return 2127; }
    std::vector<Item*> Items() override;
    void Initialize() override;
    // The ports as the file has them, or as given. Lines of other ports stay unasked for.
    void RestoreState(Dictionary& lines, ReadReport& report) override;
    void RestoreState(Dictionary& lines, ReadReport& report, const std::vector<int>& ports);
    bool Owns(std::string_view key) const override;
    bool IsDirty() const override;
    void MarkSaved() override;

    // One box a port. Boxes that stay keep their content, new ones start from their defaults. 10002 for a
    // port outside 1 to 32.
    void SetPorts(const std::vector<int>& ports);
    std::vector<int> Ports() const { return {ports_.begin(), ports_.end()}; }  // ascending

    std::size_t Count() const { return ports_.size(); }
    bool Exists(int port) const { return ports_.contains(port); }
    const CJunctionBox& Box(int port) const;  // 10002 when there is none
    CJunctionBox& Box(int port);

  protected:
    // The boxes that the changed lines are about, as the ports have come to be.
    void Prepare(std::vector<Change>& changes, Check check, const ValueOf& valueOf) override;
    void AddBrokenRules(CBrokenRules& rules) const override;

  private:
    void Need(int port) const;
    void Add(int port);

    // A box whose port went stays here until the next save: when it comes back, what was saved is known.
    std::map<int, CJunctionBox> boxes_;
    std::set<int> ports_, saved_;
};

}  // namespace calyx
