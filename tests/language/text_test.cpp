// Numbers, fields, dates and codecs as the lines have them.

#include "model/language/text.h"

#include <gtest/gtest.h>

#include "model/language/codec.h"
#include "model/language/reason.h"

namespace calyx {
namespace {

TEST(Numbers, LeadingNumberIsReadAndTheRestTold) {
    struct Row {
        const char* text;
        std::optional<int> value;
        bool whole;
    };
    const Row rows[] = {
        {"12", 12, true},
        {" -7 ", -7, true},
        {"+5", 5, true},
        {"12abc", 12, false},
        {"7.9", 7, false},
        {"", std::nullopt, false},
        {"abc", std::nullopt, false},
        {"+-5", std::nullopt, false},
        {"2147483648", std::nullopt, false},
        {"-2147483648", -2147483647 - 1, true},
    };
    for (const Row& row : rows) {
        const auto read = ReadInteger(row.text);
        ASSERT_EQ(read.has_value(), row.value.has_value()) << row.text;
        if (!read) continue;
        EXPECT_EQ(read->value, *row.value) << row.text;
        EXPECT_EQ(read->whole, row.whole) << row.text;
    }
    EXPECT_FALSE(ReadDecimal("nan"));
    EXPECT_FALSE(ReadDecimal("inf"));
    EXPECT_FALSE(ReadDecimal("1,5")->whole);
    EXPECT_EQ(ReadDecimal(".453592")->value, .453592);
}

TEST(Numbers, SinglesAreTheShortestTextThatReadsBack) {
    for (const auto& [value, text] : {std::pair{1.9f, "1.9"},
                                      {0.1f, "0.1"},
                                      {100.f, "100"},
                                      {-12.5f, "-12.5"},
                                      {0.f, "0"},
                                      {1e9f, "1000000000"},
                                      {0.00001f, "0.00001"}}) {
        std::string out;
        AppendSingle(out, value);
        EXPECT_EQ(out, text);
    }
}

// One table for every codec: text in, what became of it, text out.
template <class T>
struct CodecRow {
    const char* in;
    Taken taken;
    const char* out;
};
template <class T, std::size_t N>
void Check(const Codec<T>& codec, const CodecRow<T> (&rows)[N]) {
    for (const auto& row : rows) {
        T value{};
        EXPECT_EQ(codec.take(value, row.in), row.taken) << row.in;
        std::string out;
        codec.write(out, value, Target::Everything());
        EXPECT_EQ(out, row.out) << row.in;
    }
}

constexpr char kScale[] = "SCALE";

TEST(Codecs, ReadAndWrite) {
    Check(kFixed8, {{" ab ", Taken::Whole, "ab"},
                    {"12345678", Taken::Whole, "12345678"},
                    {"123456789", Taken::Cut, "12345678"},
                    {"         x", Taken::Whole, "x"},
                    {"123456789 ", Taken::Cut, "12345678"}});
    Check(kFreeText, {{" as it = stands ", Taken::Whole, " as it = stands "}});
    Check(kInteger, {{"-5", Taken::Whole, "-5"}, {"5x", Taken::Part, "5"}, {"x", Taken::Not, "0"}});
    Check(kSingleWith<'%'>,
          {{"1.9%", Taken::Whole, "1.9%"}, {" 2 ", Taken::Whole, "2%"}, {"OFF", Taken::Not, "0%"}});
    Check(kExactlyOn, {{"ON", Taken::Whole, "ON"}, {"OFF", Taken::Whole, "OFF"}, {"on", Taken::Not, "OFF"}});
    Check(kUnlessOff, {{"off", Taken::Whole, "OFF"}, {"ON", Taken::Whole, "ON"}, {"", Taken::Not, "ON"}});
    Check(kTrueFalse, {{"True", Taken::Whole, "True"}, {"False", Taken::Whole, "False"}});
    Check(kPrefixed<kScale>, {{"SCALE12", Taken::Whole, "SCALE12"},
                              {"7", Taken::Whole, "SCALE7"},
                              {"SCALE", Taken::Not, "SCALE0"}});
    Check(kDate, {{"04152027", Taken::Whole, "04152027"},
                  {"", Taken::Whole, ""},
                  {"02292027", Taken::Not, ""},
                  {"02292028", Taken::Whole, "02292028"},
                  {"4152027", Taken::Not, ""},
                  {"00000000", Taken::Not, ""},
                  {"+1+12027", Taken::Not, ""}});
}

// Says what a system says.
class Saying : public std::error_category {
  public:
    explicit Saying(std::string words) : words_(std::move(words)) {}
    const char* name() const noexcept override { return "saying"; }
    std::string message(int) const override { return words_; }

  private:
    std::string words_;
};

TEST(Reasons, FitInsideASentence) {
    const struct {
        const char *said, *reason;
    } rows[] = {
        {"No such file or directory", "No such file or directory"},
        {"The system cannot find the file specified.\r\n", "The system cannot find the file specified"},
        {"Access is denied. ", "Access is denied"},
        {"The device is not ready.\r\nCheck it.\r\n", "The device is not ready. Check it"},
        {"", "error 87 of the system"},
        {"Unknown error code", "error 87 of the system"},
    };
    for (const auto& row : rows) {
        const Saying category(row.said);
        EXPECT_EQ(Reason(std::error_code(87, category)), row.reason);
    }
    EXPECT_EQ(ReasonIn("open: Access is denied.\r\n"), "open: Access is denied");
}

}  // namespace
}  // namespace calyx
