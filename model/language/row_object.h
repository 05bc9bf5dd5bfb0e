#pragma once

#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "model/language/error.h"
#include "model/language/item.h"
#include "model/language/text.h"
#include "model/language/text_list.h"

namespace calyx {

// What the objects of one row table have in common (a port, a scale, an analog output): they are numbered
// by their Initialize, and every operation before it raises 10006. F: the struct of fields.
template <class F>
class RowObject {
  public:
    // `name`: for the source of errors, "CCommPort".
    RowObject(const ModelContext& context, const RowTable<F>& table, const char* name)
        : context_(&context), table_(&table), name_(name) {}

    bool IsInitialised() const { return item_.has_value(); }
    int Number() const { return Reach(*this, "Number").Number(); }
    const F& Values() const { return Reach(*this, "Values").fields; }

    RowItem<F>& Parameters() { return Reach(*this, "Parameters"); }
    const RowItem<F>& Parameters() const { return Reach(*this, "Parameters"); }

    bool IsDirty() const { return Reach(*this, "IsDirty").IsDirty(); }
    // Whether the lines that it writes keep their lists, ranges and rules; what concerns other objects is for
    // the section to check.
    bool IsValid() const {
        const RowItem<F>& item = Reach(*this, "IsValid");
        const std::vector<bool> written = item.WrittenRows();
        for (std::size_t row = 0; row < item.RowCount(); ++row) {
            if (!written[row]) continue;
            const RowInfo& info = item.Info(row);
            const std::string text = item.Text(row);
            if (info.IsHeldToList() && !item.List(row)->ValidateItem(Trim(text))) return false;
            if (info.more.rule != nullptr && info.more.rule(text) != 0) return false;
            const auto number = info.more.HasRange() ? ReadDecimal(text) : std::nullopt;
            if (number && (number->value < info.more.min || number->value > info.more.max)) return false;
        }
        return true;
    }
    // With `allParameters` every line, otherwise gated by the application's target version.
    std::string GetTextOutput(bool allParameters) const {
        Need("GetTextOutput");
        return Lines(allParameters ? Target::Everything() : context_->target.Gated());
    }
    std::string TextView() const { return GetTextOutput(true); }
    std::string StoreState() const {
        Need("StoreState");
        return Lines(Target::Everything(), std::nullopt);
    }
    void RestoreState(Dictionary& lines, ReadReport& report) {
        Reach(*this, "RestoreState").Restore(lines, report);
    }

  protected:
    void Begin(int number, std::string suffix) {
        item_.emplace(*table_, *context_, number, std::move(suffix));
        item_->Initialize();
    }
    // As Begin, with the lists of another one: for the many items of one kind.
    void BeginLike(const RowObject& like, int number, std::string suffix) {
        item_.emplace(like.Parameters(), number, std::move(suffix));
        item_->Initialize();
    }
    F& Fields(std::string_view operation = "Parameters") { return Reach(*this, operation).fields; }
    // 10006 in the operation's name.
    void Need(std::string_view operation) const {
        if (!item_) Fail(code::kNotInitialised, operation);
    }
    const ModelContext& Context() const { return *context_; }
    std::string Lines(const Target& target, std::optional<LinePart> part = LinePart::Parameters) const {
        std::string text;
        Parameters().Append(text, target, part);
        return text;
    }
    // "Calyx.CCommPort.Address"; the words of the error stand in the texts under its code.
    [[noreturn]] void Fail(int code, std::string_view operation,
                           std::initializer_list<std::string_view> words = {}) const {
        throw Error(code, std::string("Calyx.") + name_ + "." + std::string(operation),
                    context_->texts.Format(code, words));
    }

  private:
    template <class Self>
    static auto& Reach(Self& self, std::string_view operation) {
        self.Need(operation);
        return *self.item_;
    }

    const ModelContext* context_;
    const RowTable<F>* table_;
    const char* name_;
    std::optional<RowItem<F>> item_;
};

}  // namespace calyx
