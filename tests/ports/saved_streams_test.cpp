#include <gtest/gtest.h>

#include "model/language/error.h"
#include "model/ports/saved_streams.h"
#include "model/ports/stream.h"
#include "tests/support/model_fixture.h"

namespace calyx::test {
namespace {

class SavedFormats : public testing::Test {
  protected:
    TestContext context{CALYX_DATA_DIR};
    SavedStreams saved{context, "streams.ini"};
    CStream stream{context};
    std::string& File() { return context.memory.files["streams.ini"]; }

    void SetUp() override { stream.Initialize(1); }
};

TEST_F(SavedFormats, AreWrittenReadReplacedAndRemoved) {
    EXPECT_TRUE(saved.Names().empty());
    EXPECT_EQ(File(), ";This file contains the stream formats for various indicators\r\n");
    saved.Save("Score board", stream.Values());
    EXPECT_EQ(
        File(),
        ";This file contains the stream formats for various indicators\r\n"
        "[Score board]\r\nName=Score board\r\nPositive=S\r\nNegative=-\r\nGross=G\r\nNet=N\r\nTare=T\r\n"
        "Invalid=I\r\nMotion=M\r\nRange=O\r\nOK= \r\nCOZ=Z\r\nPrimary=L\r\nSecondary=K\r\nTertiary=K\r\n"
        "SFMT=<002><P><W7.><U><M><S><CR><LF>\r\n");
    saved.Save("Other", stream.Values());
    stream.SetPositivePolarityToken(1);
    stream.SetNegativePolarityToken(3);
    stream.SetToken(&StreamFields::ok, "=]");
    stream.SetSFMT("a=b;c");
    saved.Save("score BOARD", stream.Values());
    EXPECT_EQ(saved.Names(), (std::vector<std::string>{"score BOARD", "Other"}));
    EXPECT_EQ(saved.Load("Score Board"), stream.Values());
    saved.Remove("Score board");
    EXPECT_EQ(saved.Names(), std::vector<std::string>{"Other"});
    EXPECT_FALSE(saved.Load("Score board"));
    EXPECT_TRUE(saved.Has("OTHER"));
}

TEST_F(SavedFormats, NamesAreCutAndBadOnesRefused) {
    saved.Save(std::string(60, 'n'), stream.Values());
    EXPECT_EQ(saved.Names(), std::vector<std::string>{std::string(40, 'n')});
    for (const char* name : {"", "  ", "a]b", "a\r\nb"}) {
        EXPECT_THROW(saved.Save(name, stream.Values()), Error) << name;
    }
    context.memory.full = true;
    EXPECT_THROW(saved.Save("x", stream.Values()), Error);
}

TEST_F(SavedFormats, OtherLinesStayAndPartsThatAreMissingAreDefaults) {
    File() = "; mine\n[A]\nGross=GR\n; why\nNonsense=1\n\n[B]\nSFMT=" + std::string(300, 'x') + "\nOK=\n";
    const auto a = saved.Load("a");
    ASSERT_TRUE(a);
    EXPECT_EQ(a->gross, "GR");
    EXPECT_EQ(a->positive, 2);
    EXPECT_EQ(saved.Load("B")->format.size(), 200u);
    EXPECT_EQ(saved.Load("B")->ok, " ");
    saved.Save("A", stream.Values());
    EXPECT_TRUE(File().starts_with("; mine\r\n[A]\r\nName=A\r\n"));
    EXPECT_TRUE(File().find("<LF>\r\n; why\r\n\r\n[B]\r\n") != std::string::npos) << File();
    saved.Remove("B");
    saved.Remove("A");
    EXPECT_EQ(File(), "; mine\r\n");
    File() = "; mine\n[A]\nGross=GR\nNonsense=1\n\n[B]\nSFMT=x\n";
    saved.Remove("B");
    EXPECT_EQ(File(), "; mine\r\n[A]\r\nGross=GR\r\nNonsense=1\r\n\r\n");
}

}  // namespace
}  // namespace calyx::test
