// Every fault by its name: one line with it, then one download, repeated with the fault at every one of its
// lines. Checked are the report, the link and what the indicator holds afterwards.

#include "comm/download.h"
#include "sim/fault.h"
#include "tests/comm/sim_link.h"

namespace calyx::test {
namespace {

using End = DownloadReport::End;
using Texts = std::vector<std::string>;

constexpr int kTimeoutMs = 100;

// A value that ends in OK, whose echo must not pass for an answer; junction boxes with their reset; widgets
// behind a command.
constexpr std::string_view kBody =
    "HARDWARE=0,0,0,0,0,0,0,0,0,0,0,0,0,0\r\nSC.SRC#1=A,1\r\nSC.ALIAS#1=LOOK\r\nEDP.INPUT#3=VEXAL\r\n"
    "SJ.CONFIG#3=8/0/0/0\r\nUID=GATEOK\r\nWDGT#1=1,2,1,1\r\n";

enum class Expected {
    Whole,        // as if nothing had been
    LineMissing,  // the line is told as failed and not held
    Unnoticed,    // the indicator lies: only reading back tells
    Probe,        // matters to the questions for setup mode only
    Ends,         // lost at the line; everything before it is held, and what is left can be sent later
};

struct Fault {
    const char* spec;  // the number of the line follows
    Expected expected;
    int method = comm_method::kTcp;
};
constexpr Fault kFaults[] = {
    {"refuse:*@", Expected::LineMissing},
    {"forget:*@", Expected::Unnoticed},
    {"silent@", Expected::Whole},
    {"silent:3@+", Expected::Whole},  // three lines, so that the fourth attempt gets through
    {"silent@+", Expected::Ends},
    {"okecho@", Expected::Whole},
    {"okecho@+", Expected::Ends},
    {"late:60@", Expected::Whole},
    {"late:250@", Expected::Whole},
    {"drop:1@", Expected::Ends},
    {"split@", Expected::Whole},
    {"garbage@", Expected::Whole},
    {"echo@", Expected::Whole},
    {"stream@+", Expected::Whole},
    {"notsetup@", Expected::Probe},
    {"late:60@", Expected::Whole, comm_method::kDetect},
    {"drop:1@", Expected::Ends, comm_method::kDetect},
    {"garbage@", Expected::Whole, comm_method::kAddressed},
    {"address:9@", Expected::Whole, comm_method::kAddressed},
    {"address:9@+", Expected::Ends, comm_method::kAddressed},
    {"echo@", Expected::Whole, comm_method::kAddressed},
    {"split@", Expected::Whole, comm_method::kAddressed},
};

struct Session {
    SimLink test;
    CIndicator document{test.context};
    IDownloadEvents quiet;
    CDownload download{*test.link, test.cancel, quiet};
    std::vector<DownloadStep> steps;

    explicit Session(int method)
        : test({.address = method == comm_method::kAddressed ? 1 : 0, .content = "; empty"}, method) {
        document.LoadText(std::string(kBody), "test");
        test.Connect();
        steps = PlanDownload(document, {.mask = download_option::kUsual}, test.context.target.Gated());
        for (DownloadStep& step : steps) step.lines = Few(step.lines);
    }
    DownloadReport Run(const std::vector<LineFate>& done = {}) {
        return download.RunSteps(steps, {.timeoutMs = kTimeoutMs}, test.context.texts, done);
    }
    // The document's own lines and commands; the hundreds of defaults would prove nothing more.
    static std::string Few(const std::string& lines) {
        std::string few;
        ForEachLine(lines, [&](std::string_view line) {
            const bool own = kBody.find("\r\n" + std::string(line) + "\r\n") != std::string_view::npos;
            if (own || line.find('=') == std::string_view::npos) few.append(line).append("\r\n");
        });
        return few;
    }
};

std::string At(const Fault& fault, std::size_t line) {
    std::string spec = fault.spec;
    const bool onwards = spec.ends_with('+');
    if (onwards) spec.pop_back();
    return spec + std::to_string(line) + (onwards ? "+" : "");
}

// The parameter lines behind a line.
Texts Behind(const Texts& lines, std::size_t at) {
    Texts behind(lines.begin() + static_cast<std::ptrdiff_t>(at), lines.end());
    std::erase_if(behind, [](const std::string& line) { return line.find('=') == std::string::npos; });
    return behind;
}

// The parameter lines among `sent` that the indicator does not hold.
Texts Missing(const SimLink& test, const Texts& sent) {
    Texts missing;
    for (const std::string& line : sent) {
        if (line.find('=') != std::string::npos && !test.Holds(line)) missing.push_back(line);
    }
    return missing;
}

void Check(const Fault& fault, std::size_t at, const Texts& lines) {
    SCOPED_TRACE(At(fault, at) + ": " + lines[at - 1]);
    Session session(fault.method);
    SimLink& test = session.test;
    test.simulator.AddFault(At(fault, at));
    const DownloadReport report = session.Run();
    const std::string& line = lines[at - 1];
    const bool probe = line == "KNIX";
    const bool parameter = line.find('=') != std::string::npos;
    const Texts missing = Missing(test, lines);
    switch (fault.expected) {
        case Expected::Whole:
            EXPECT_EQ(report.end, End::Complete);
            EXPECT_EQ(report.accepted, report.total);
            EXPECT_TRUE(missing.empty());
            break;
        case Expected::Unnoticed:
            EXPECT_EQ(report.end, End::Complete);
            EXPECT_EQ(report.accepted, report.total);
            EXPECT_EQ(missing, parameter ? Texts{line} : Texts{});
            break;
        case Expected::Probe:
            EXPECT_EQ(report.end, probe ? End::NotInSetupMode : End::Complete);
            EXPECT_TRUE(report.failed.empty());
            EXPECT_EQ(missing, probe ? Behind(lines, at) : Texts{});
            break;
        case Expected::LineMissing:
            EXPECT_EQ(report.end, probe ? End::NotInSetupMode : End::Complete);
            EXPECT_EQ(missing, probe ? Behind(lines, at) : parameter ? Texts{line} : Texts{});
            EXPECT_EQ(report.failed.size(), probe ? 0u : 1u);
            if (!probe) {
                EXPECT_EQ(report.failed.at(0).line, line);
            }
            break;
        case Expected::Ends: {
            EXPECT_EQ(report.end, End::Lost);
            EXPECT_TRUE(report.failed.empty());
            // Six attempts of one line and one question, not of every line that remains.
            EXPECT_LE(test.simulator.ReceivedCount(), at + 6);
            const auto left = std::count(report.fates.begin(), report.fates.end(), LineFate::Waiting);
            EXPECT_EQ(report.accepted + left, report.total);
            test.simulator.ClearFaults();
            test.Connect();
            const DownloadReport rest = session.Run(report.fates);
            EXPECT_EQ(rest.end, End::Complete);
            EXPECT_EQ(rest.accepted, rest.total);
            EXPECT_TRUE(Missing(test, lines).empty());
            // What was done is not sent again.
            EXPECT_LE(test.simulator.ReceivedCount(), lines.size() - at + 2);
            break;
        }
    }
    EXPECT_TRUE(test.link->Connected());
    EXPECT_TRUE(test.link->SendData("UID=AFTER", kTimeoutMs)) << "the link is of use afterwards";
}

TEST(Faults, OneLineWithEachOfThem) {
    constexpr int kAddressed = comm_method::kAddressed;
    using enum SendResult;
    struct Case {
        const char* fault;
        SendResult result;
        int sends;
        bool held;
        int method = comm_method::kTcp;
    };
    const Case cases[] = {
        {"", Accepted, 1, true},
        {"refuse:UID", Refused, 1, false},
        {"forget:UID", Accepted, 1, false},
        {"corrupt:UID", Accepted, 1, false},  // in its dump
        {"cut:4", Accepted, 1, false},        // the end of its dump, where the line is
        {"silent:2", Accepted, 3, true},
        {"silent:5", Accepted, 6, true},
        {"silent", NoAnswer, 6, false},
        {"okecho:1", Accepted, 2, true},  // the value ends in OK
        {"okecho", NoAnswer, 6, false},
        {"late:60", Accepted, 1, true},
        {"late:150", Accepted, 2, true},
        {"late:900", NoAnswer, 6, true},
        {"drop:1", Lost, 1, true},
        {"notsetup", Accepted, 1, true},
        {"split", Accepted, 1, true},
        {"garbage", Accepted, 1, true},
        {"echo", Accepted, 1, true},
        {"stream", Accepted, 1, true},
        {"address:9", Accepted, 1, true},  // without addresses there is none to be wrong
        {"address:9", NoAnswer, 6, true, kAddressed},
        {"echo", Accepted, 1, true, kAddressed},
        {"garbage", Accepted, 1, true, kAddressed},
    };
    constexpr std::string_view kDumpFaults = "corrupt:UID cut:4 ";
    std::string named;
    for (const Case& c : cases) {
        SCOPED_TRACE(std::string(c.fault) + ", method " + std::to_string(c.method));
        named.append(" ").append(c.fault).append(":");
        SimLink test({.address = c.method == kAddressed ? 1 : 0, .content = "; empty"}, c.method);
        test.Connect();
        if (*c.fault != '\0') test.simulator.AddFault(c.fault);
        const SendReport report = test.link->Send("UID=GATEOK", kTimeoutMs);
        EXPECT_EQ(report.result, c.result);
        EXPECT_EQ(report.attempts, c.sends);
        EXPECT_EQ(test.simulator.ReceivedCount(), static_cast<std::uint64_t>(c.sends));
        EXPECT_EQ(test.link->Connected(), c.result != Lost);
        const bool dumpFault = kDumpFaults.find(std::string(c.fault) + " ") != std::string_view::npos;
        const std::string held = dumpFault ? test.simulator.Receive("DUMPALL\r") : test.simulator.DumpText();
        EXPECT_EQ(held.find("\nUID=GATEOK\r\n") != std::string::npos, c.held);
    }
    for (const sim::FaultKind& kind : sim::KnownFaults())
        EXPECT_NE(named.find(" " + std::string(kind.name) + ":"), std::string::npos) << kind.name;
}

TEST(Faults, EveryFaultAtEveryLine) {
    Session clean(comm_method::kTcp);
    EXPECT_EQ(clean.Run().end, End::Complete);
    const Texts lines = clean.test.simulator.Received();
    ASSERT_EQ(lines,
              (Texts{"KNIX", "SC.SRC#1=A,1", "SC.ALIAS#1=LOOK", "EDP.INPUT#3=VEXAL", "SJ.CONFIG#3=8/0/0/0",
                     "UID=GATEOK", "KNIX", "WDGT.CLR", "WDGT#1=1,2,1,1", "KNIX", "SJ.DOWNLOAD#3"}));
    for (const Fault& fault : kFaults) {
        for (std::size_t at = 1; at <= lines.size(); ++at) Check(fault, at, lines);
    }
}

// A line that never gets an answer from an indicator that is there costs its own minute only.
TEST(Faults, ALineThatNobodyAnswersIsOneFailedLine) {
    Session session(comm_method::kTcp);
    session.test.wire.device = [inner = session.test.wire.device](Wire& wire, const std::string& line) {
        if (line != "UID=GATEOK") inner(wire, line);
    };
    const DownloadReport report = session.Run();
    EXPECT_EQ(report.end, End::Complete);
    ASSERT_EQ(report.failed.size(), 1u);
    EXPECT_EQ(report.failed[0].reason, session.test.context.texts.Text(9612));
    EXPECT_EQ(std::count(report.fates.begin(), report.fates.end(), LineFate::Unanswered), 1);
}

}  // namespace
}  // namespace calyx::test
