#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>

#include "model/language/codec.h"

namespace calyx {

class CTextList;

// One row of data says everything about a parameter; one layout entry says when its line is written.
// A wrong stem, a member of another type than its codec's and a version that does not exist stop the
// build.

enum class Absent : std::uint8_t {  // what a missing line reads as
    Keep,                           // the field stays as it is
    Initial,                        // the initial value
    Value,                          // `absentValue`
};
enum class Unknown : std::uint8_t {  // what a word reads as that is not in the list
    Default,                         // the list's designated default
    First,                           // the list's first entry
    Last,                            // and its last
    Initial,                         // the row's initial value
};
enum class Use : std::uint8_t {
    Line,      // written and read
    ReadOnly,  // read and shown, never written
    Page,      // a choice on the editor page that stands for several lines; no line of its own
    State,     // no line either, yet part of what undo and differences keep: a scale's kind
};

// Said only where it differs from the usual.
struct More {
    std::string_view list = {};                      // value list in the catalogue
    std::string_view (*listOf)(int item) = nullptr;  // where the list depends on the item's number
    bool offered = false;                            // the list is a choice to start from, not a limit
    int label = 0;                                   // numbers of resource texts
    int group = 0;                                   // heading on the editor page
    int help = 0;
    double min = 0;  // allowed range, both ends included; equal ends: none
    double max = 0;
    std::string_view unit = {};
    std::string_view absentValue = {};
    Absent absent = Absent::Keep;
    Unknown unknown = Unknown::Default;
    bool emptyKeeps = false;  // an empty value leaves the field, whatever the list says
    Use use = Use::Line;
    std::string_view readAs = {};  // looked up under this key instead; "{n}": the number
    // What a word of older firmware means today, before the list is asked; other words come back as they are.
    std::string_view (*older)(std::string_view word, const CTextList& list) = nullptr;
    std::string (*initialOf)(int item, const CTextList*) = nullptr;  // where it depends on number or list
    int (*rule)(std::string_view value) = nullptr;  // number of the broken rule's text, 0: kept

    constexpr bool HasRange() const { return min < max; }
};

// What the rest of the house sees of a row. "{n}" in `initial` and `absentValue` stands for the item's
// number.
struct RowInfo {
    std::string_view stem;
    std::string_view initial;  // "" with a list: the list's own default
    ValueKind kind = ValueKind::Text;
    std::uint16_t width = 0;      // most characters, 0: no limit
    std::string_view words = {};  // what is expected, where the kind alone does not say it
    More more = {};

    bool HasList() const { return !more.list.empty() || more.listOf != nullptr; }
    // Whether a word outside the list is a fault.
    bool IsHeldToList() const { return HasList() && !more.offered; }
};

// F: the plain struct that holds a section's fields.
template <class F>
struct Row : RowInfo {
    void (*write)(std::string& out, const F& fields, const Target& target) = nullptr;
    Taken (*take)(F& fields, std::string_view text) = nullptr;
    // Where the value stands, and the member that it is (part of).
    std::span<const std::byte> (*place)(const F& fields) = nullptr;
    const void* (*member)(const F& fields) = nullptr;
    std::string_view (*listBy)(const F& fields) = nullptr;  // the list, where other values choose it

    consteval Row ListBy(std::string_view (*choose)(const F& fields)) const {
        Row made = *this;
        made.listBy = choose;
        return made;
    }
};

namespace detail {

template <class M>
struct MemberPointer;
template <class F, class T>
struct MemberPointer<T F::*> {
    using Fields = F;
    using Type = T;
};

template <auto Member, std::size_t... Element, class F>
constexpr auto& Reach(F& fields) {
    static_assert(sizeof...(Element) <= 1, "one place in an array");
    if constexpr (sizeof...(Element) == 0) {
        return fields.*Member;
    } else {
        return (fields.*Member)[(Element + ...)];
    }
}

template <auto Member, const auto& TheCodec, std::size_t... Element>
using Held = std::remove_cvref_t<decltype(Reach<Member, Element...>(
    std::declval<typename MemberPointer<decltype(Member)>::Fields&>()))>;

template <class C>
struct CodecType;
template <class T>
struct CodecType<Codec<T>> {
    using Type = T;
};

}  // namespace detail

// The same type: without this a float codec would take an integer member.
template <auto Member, const auto& TheCodec, std::size_t... Element>
concept FitsExactly = std::is_same_v < detail::Held<Member, TheCodec, Element...>,
typename detail::CodecType<std::remove_cvref_t<decltype(TheCodec)>>::Type > ;

// A row: row<&F::grads, kInteger>("GRADS", "10000", {.label = 3101}); an element of an array member is
// named by its place: row<&F::filter, kFixed10, 0>("DIGFLTR1", "4").
template <auto Member, const auto& TheCodec, std::size_t... Element>
requires FitsExactly<Member, TheCodec, Element...>
consteval auto row(std::string_view stem, std::string_view initial, More more = {}) {
    using F = typename detail::MemberPointer<decltype(Member)>::Fields;
    Row<F> made;
    made.stem = stem;
    made.initial = initial;
    made.kind = TheCodec.kind;
    made.width = TheCodec.width;
    made.words = TheCodec.words;
    made.more = more;
    made.write = [](std::string& out, const F& fields, const Target& target) {
        TheCodec.write(out, detail::Reach<Member, Element...>(fields), target);
    };
    made.take = [](F& fields, std::string_view text) {
        return TheCodec.take(detail::Reach<Member, Element...>(fields), text);
    };
    made.place = [](const F& fields) {
        return std::as_bytes(std::span(&detail::Reach<Member, Element...>(fields), 1));
    };
    made.member = [](const F& fields) { return static_cast<const void*>(&(fields.*Member)); };
    return made;
}

// A row that no single member and codec say: it writes and takes for itself, over all the fields.
template <class F>
consteval Row<F> ownRow(std::string_view stem, std::string_view initial, ValueKind kind,
                        std::string_view words,
                        void (*write)(std::string& out, const F& fields, const Target& target),
                        Taken (*take)(F& fields, std::string_view text), More more = {}) {
    Row<F> made;
    made.stem = stem;
    made.initial = initial;
    made.kind = kind;
    made.words = words;
    made.more = more;
    made.write = write;
    made.take = take;
    made.place = [](const F&) { return std::span<const std::byte>(); };
    made.member = [](const F&) { return static_cast<const void*>(nullptr); };
    return made;
}

// Stems with numbers in them, made at build time: kStem<"WLIN.V", 2, 1> is "WLIN.V2.1".
template <std::size_t N>
struct StemText {
    char chars[N]{};
    consteval StemText(const char (&text)[N]) { std::copy_n(text, N, chars); }
};
namespace detail {
template <StemText Base, int... Number>
consteval auto MakeStem() {
    std::array<char, sizeof(Base.chars) - 1 + 4 * sizeof...(Number)> text{};
    std::size_t size = 0;
    for (std::size_t i = 0; i + 1 < sizeof(Base.chars); ++i) text[size++] = Base.chars[i];
    bool first = true;
    const auto append = [&](int number) {
        if (number < 0 || number > 99) throw "stems hold numbers of one or two digits";
        if (!first) text[size++] = '.';
        first = false;
        if (number > 9) text[size++] = static_cast<char>('0' + number / 10);
        text[size++] = static_cast<char>('0' + number % 10);
    };
    (append(Number), ...);
    return std::pair{text, size};
}
template <StemText Base, int... Number>
inline constexpr auto kStemChars = MakeStem<Base, Number...>();
}  // namespace detail
template <StemText Base, int... Number>
inline constexpr std::string_view kStem{detail::kStemChars<Base, Number...>.first.data(),
                                        detail::kStemChars<Base, Number...>.second};

// Rows of several runs in one table.
template <class F, std::size_t... N>
consteval auto JoinRows(const std::array<Row<F>, N>&... runs) {
    std::array<Row<F>, (N + ...)> joined{};
    std::size_t at = 0;
    const auto append = [&](const auto& run) {
        for (const Row<F>& one : run) joined[at++] = one;
    };
    (append(runs), ...);
    return joined;
}

// Which of an item's lines are meant: its parameters, or the calibration that is kept and sent apart.
enum class LinePart : std::uint8_t { Parameters, Calibration };

// One entry of a layout. A layout is a sequence: a line may stand in it twice.
template <class F>
struct Line {
    std::uint16_t row = 0;
    Gate gate = {};
    bool (*when)(const F& fields) = nullptr;
    LinePart part = LinePart::Parameters;
};
template <class F>
using Layout = std::span<const Line<F>>;

// Makes layout entries from the stems of one table's rows: constexpr Lines lines{kRows}; lines("TRUCK",
// "UID").
template <class F>
struct Lines {
    std::span<const Row<F>> rows;

    template <std::size_t N>
    consteval explicit Lines(const Row<F> (&table)[N]) : rows(table) {}
    template <std::size_t N>
    consteval explicit Lines(const std::array<Row<F>, N>& table) : rows(table) {}

    template <class... Stem>
    consteval std::array<Line<F>, sizeof...(Stem)> operator()(Stem... stems) const {
        return {Line<F>{Find(stems)}...};
    }
    // So many lines in table order, from this stem on.
    template <std::size_t Count>
    consteval std::array<Line<F>, Count> Run(std::string_view first) const {
        std::array<Line<F>, Count> run{};
        const std::size_t start = Find(first);
        for (std::size_t i = 0; i < Count; ++i) {
            if (rows[start + i].more.use != Use::Line) throw "a row of the run has no line";
            run[i].row = static_cast<std::uint16_t>(start + i);
        }
        return run;
    }

  private:
    // Not consteval: Clang 14 would refuse to call it from Run.
    constexpr std::uint16_t Find(std::string_view stem) const {
        for (std::size_t i = 0; i < rows.size(); ++i) {
            if (rows[i].stem != stem || rows[i].more.use != Use::Line) continue;
            for (std::size_t other = i + 1; other < rows.size(); ++other) {
                if (rows[other].stem == stem) throw "two rows of this stem";
            }
            return static_cast<std::uint16_t>(i);
        }
        throw "no row of this stem has a line";
    }
};
template <class F, std::size_t N>
Lines(const Row<F> (&)[N]) -> Lines<F>;
template <class F, std::size_t N>
Lines(const std::array<Row<F>, N>&) -> Lines<F>;

// Runs of lines behind a gate; gates inside one another are met.
template <class F, std::size_t N>
consteval std::array<Line<F>, N> Gated(Gate gate, std::array<Line<F>, N> run) {
    for (Line<F>& line : run) line.gate = line.gate.Ungated() ? gate : line.gate & gate;
    return run;
}

// Runs of lines under a condition on the fields.
template <class F, std::size_t N>
consteval std::array<Line<F>, N> When(bool (*condition)(const F&), std::array<Line<F>, N> run) {
    for (Line<F>& line : run) {
        if (line.when != nullptr) throw "a line has one condition; make it one function";
        line.when = condition;
    }
    return run;
}

template <class F, std::size_t N>
consteval std::array<Line<F>, N> Calibration(std::array<Line<F>, N> run) {
    for (Line<F>& line : run) line.part = LinePart::Calibration;
    return run;
}

template <class F, std::size_t... N>
consteval auto Join(const std::array<Line<F>, N>&... runs) {
    std::array<Line<F>, (N + ...)> joined{};
    std::size_t at = 0;
    const auto append = [&](const auto& run) {
        for (const Line<F>& line : run) joined[at++] = line;
    };
    (append(runs), ...);
    return joined;
}

// A section's table: its rows, in the order of reading, and its layouts, in the order of writing.
template <class F>
struct RowTable {
    std::span<const Row<F>> rows;
    Layout<F> (*layout)(const F& fields);  // the kind may decide
    std::string_view prefix = {};          // of every key: "SC."
    void (*settle)(F& fields) = nullptr;   // after reading: what the values decide together
    int title = 0;                         // resource text of an item's name, {1} its number: "Scale {1}"
    void (*begin)(F& fields,
                  int number) = nullptr;  // over the initial values: what the item's number decides
    bool startOver = false;  // reading begins with the initial values: an absent line is never "as it was"
};

}  // namespace calyx
