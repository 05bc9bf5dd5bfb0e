#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "model/language/change_set.h"
#include "model/language/item.h"

namespace calyx {

// An item whose parameters have no rows yet: it keeps every line whose key it owns and writes them
// back unchanged, in file order.
class KeptLines final : public Item {
  public:
    // A key is owned when it begins with one of the starts; a start that ends in "=" stands for the
    // whole key.
    explicit KeptLines(std::span<const std::string_view> starts) : starts_(starts) {}

    const std::vector<KeyValue>& Lines() const { return lines_; }

    int Number() const override { return 0; }
    std::size_t RowCount() const override { return lines_.size(); }
    const RowInfo& Info(std::size_t row) const override;
    std::string Key(std::size_t row) const override { return lines_[row].key; }
    const CTextList* List(std::size_t) const override { return nullptr; }
    std::string Text(std::size_t row, const Target&) const override { return lines_[row].value; }
    std::string InitialText(std::size_t) const override { return {}; }
    Taken Take(std::size_t row, std::string_view text) override;
    std::optional<std::size_t> Find(std::string_view key) const override;
    void EachLine(const std::function<void(std::size_t, Gate, bool)>& visit) const override;
    Gate GateOf(std::size_t) const override { return {}; }
    bool IsWritten(std::size_t) const override { return true; }

    void Initialize() override;
    void Restore(Dictionary& lines, ReadReport& report) override;
    void Append(std::string& out, const Target& target,
                std::optional<LinePart> part = std::nullopt) const override;
    bool IsDirty() const override { return saved_ && *saved_ != lines_; }
    void MarkSaved() override { saved_.reset(); }
    std::unique_ptr<Item> Clone() const override { return std::make_unique<KeptLines>(*this); }

    bool Adopts(std::string_view key) const override;
    void Adopt(std::string_view key, std::string_view value) override;
    void Drop(std::string_view key) override;

  private:
    bool MayAdopt(std::string_view head) const;
    void BeforeEdit() {  // keeps the lines as they were saved
        if (!saved_) saved_ = lines_;
    }

    std::span<const std::string_view> starts_;
    std::vector<KeyValue> lines_;
    std::optional<std::vector<KeyValue>> saved_;  // nothing: not edited since
};

}  // namespace calyx
