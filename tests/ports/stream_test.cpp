#include <gtest/gtest.h>

#include "model/ports/stream.h"
#include "model/ports/stream_sample.h"
#include "tests/support/model_fixture.h"

namespace calyx::test {
namespace {

class Stream : public testing::Test {
  protected:
    TestContext context{CALYX_DATA_DIR};
    CStream stream{context};
    ReadReport report;

    void SetUp() override { stream.Initialize(1); }
    void Read(const std::string& lines) {
        stream.Initialize(1);
        Dictionary file(lines);
        stream.RestoreState(file, report);
    }
};

TEST_F(Stream, WritesItsLinesUntrimmedInOrder) {
    EXPECT_EQ(
        stream.GetTextOutput(false),
        "STR.POS#1=SPACE\r\nSTR.NEG#1=-\r\nSTR.PRI#1=L\r\nSTR.SEC#1=K\r\nSTR.TER#1=K\r\nSTR.GROSS#1=G\r\n"
        "STR.NET#1=N\r\nSTR.TARE#1=T\r\nSTR.MOTION#1=M\r\nSTR.RANGE#1=O\r\nSTR.OK#1= \r\nSTR.INVALID#1=I\r\n"
        "STR.ZERO#1=Z\r\nEDP.SFMT#1=<002><P><W7.><U><M><S><CR><LF>\r\n");
}

TEST_F(Stream, ReadsSignsTokensAndFormat) {
    struct Row {
        const char* line;
        int positive, negative;
    };
    for (const Row& row : {Row{"STR.POS#1=+", 1, 1}, Row{"STR.POS#1= SPACE ", 2, 1},
                           Row{"STR.POS#1=XYZ", 3, 1}, Row{"STR.POS#1=", 2, 1}, Row{"STR.NEG#1=SPACE", 2, 2},
                           Row{"STR.NEG#1=+", 2, 3}, Row{"STR.NEG#1=", 2, 1}}) {
        Read(row.line);
        EXPECT_EQ(stream.Values().positive, row.positive) << row.line;
        EXPECT_EQ(stream.Values().negative, row.negative) << row.line;
    }
    Read("STR.GROSS#1=\r\nSTR.NET#1=123456789\r\nEDP.SFMT#1=\r\nSTR.PRI#1= kg \r\n");
    EXPECT_EQ(stream.Values().gross, " ");
    EXPECT_EQ(stream.Values().net, "N");  // too long: the default stays
    EXPECT_EQ(stream.Values().format, "");
    EXPECT_EQ(stream.Values().primary, " kg ");
    Read("EDP.SFMT#1=" + std::string(201, 'x'));
    EXPECT_EQ(stream.Values().format, "<002><P><W7.><U><M><S><CR><LF>");
}

TEST_F(Stream, CentreOfZeroAlwaysComesBackAsZAndThatIsTold) {
    stream.SetToken(&StreamFields::coz, "C");
    Read(stream.GetTextOutput(true));
    EXPECT_EQ(stream.Values().coz, "Z");
    ASSERT_EQ(report.Count(), 1u);
    EXPECT_EQ(report.Notes()[0].key, "STR.ZERO#1");
    EXPECT_EQ(report.Notes()[0].became, "Z");
}

TEST_F(Stream, SettersCheck) {
    const auto code = [](auto&& set) {
        try {
            set();
        } catch (const Error& error) {
            return error.Code();
        }
        return 0;
    };
    EXPECT_EQ(code([&] { stream.SetToken(&StreamFields::gross, "123456789"); }), code::kTextTooLong);
    EXPECT_EQ(code([&] { stream.SetSFMT(std::string(201, 'x')); }), code::kTextTooLong);
    EXPECT_EQ(code([&] { stream.SetPositivePolarityToken(4); }), code::kOutOfRange);
    EXPECT_EQ(code([&] { stream.SetNegativePolarityToken(0); }), code::kOutOfRange);
    EXPECT_EQ(code([&] { CStream(context).SetSFMT("x"); }), code::kNotInitialised);
    stream.SetToken(&StreamFields::gross, "");
    EXPECT_EQ(stream.Values().gross, " ");
    EXPECT_TRUE(stream.IsDirty());
    EXPECT_EQ(stream.PositivePolarityToken_HR(), " ");
    EXPECT_EQ(stream.NegativePolarityToken_HR(), "-");
    stream.SetNegativePolarityToken(3);
    EXPECT_EQ(stream.NegativePolarityToken_HR(), "");
}

TEST_F(Stream, SampleShowsWhatIsSent) {
    const auto sample = [&](const char* format, const SampleWeight& weight) {
        stream.SetSFMT(format);
        std::string text;
        for (const StreamPiece& piece : StreamSample(stream.Values(), weight)) {
            const bool control = piece.kind == StreamPiece::Kind::Control;
            text += control ? "{" + std::to_string(piece.text[0]) + "}" : piece.text;
            if (piece.kind == StreamPiece::Kind::Unknown) text += "?";
        }
        return text;
    };
    SampleWeight weight;
    EXPECT_EQ(sample("<002><P><W7.><U><M><S><CR><LF>", weight), "{2}  1234.5LG {13}{10}");
    weight = {-7, 0, 2, SampleWeight::Mode::Net, SampleWeight::State::Motion};
    EXPECT_EQ(sample("<P><W6><U><M><S>", weight), "-     7KNM");
    EXPECT_EQ(sample("a<b", weight), "a<b");
    EXPECT_EQ(sample("<FOO>x<>", weight), "<FOO>?x<>?");
    EXPECT_EQ(sample("<065><256>", weight), "A<256>?");
    EXPECT_EQ(sample("", weight), "");
}

}  // namespace
}  // namespace calyx::test
