#include <algorithm>
#include <istream>

#include "cli/commands/commands.h"
#include "cli/documents.h"
#include "cli/exit.h"
#include "cli/link.h"
#include "cli/text.h"
#include "comm/calibration/calibration.h"
#include "comm/calibration/certificate.h"
#include "comm/upload.h"
#include "model/language/text.h"

namespace calyx::cli {

namespace {

constexpr int kScales = 32;

struct Point {
    int number = 0;
    std::string weight;
};

// "3=250"
Point ReadPoint(const std::string& text) {
    const std::size_t equals = text.find('=');
    const auto number = ReadInteger(text.substr(0, equals));
    const bool good = equals != std::string::npos && number && number->whole && number->value >= 1 &&
                      number->value <= CalibrationValues::kPoints;
    if (!good) throw UsageError("--linear " + text + " is not K=W: a point from 1 to 5 and its weight");
    return {number->value, text.substr(equals + 1)};
}

void NeedWeight(const std::string& option, const std::string& weight) {
    const auto number = ReadDecimal(weight);
    if (!number || !number->whole || number->value <= 0)
        throw UsageError(option + ": " + weight + " is no weight above 0");
}

class Statuses final : public ICalibrationEvents {
  public:
    explicit Statuses(Program& program) : program_(program) {}
    void WriteStatusMessage(int, const std::string& text) override {
        program_.Say(text);
        last = text;
    }
    std::string last;

  private:
    Program& program_;
};

class Calibrate final : public Command {
  public:
    std::string_view Name() const override { return "calibrate"; }
    std::string_view Help() const override { return "calibrates a scale of the indicator"; }
    std::string Notes() const override {
        return "The steps are done in the order zero, span, linear, rezero; the scale must bear what each of "
               "them\n"
               "needs, so that usually a call does one step. On failure and on Ctrl+C the old values are put "
               "back and\n"
               "read. --restore puts back what a calibration that was cut off (power, crash) left behind.\n"
               "On a terminal, steps that follow one another wait until Enter says that the scale is "
               "ready.\n";
    }
    bool HasListing() const override { return true; }

    void Declare(Options& options) override {
        options.Number(scale_, "--scale", "N", "number of the scale", 1, kScales);
        options.Flag(read_, "--read", "prints the present calibration, changes nothing");
        options.Flag(zero_, "--zero", "calibrates zero");
        options.Flag(span_, "--span", "calibrates span; needs --weight");
        options.Text(weight_, "--weight", "W", "the test weight, in primary units");
        options.Each(linear_, "--linear", "K=W", "calibrates the linear point K (1 to 5) at the weight W");
        options.Flag(rezero_, "--rezero", "takes the weight of hooks and chains out of the zero");
        options.Flag(restore_, "--restore", "puts back what a calibration that was cut off left behind");
        options.Flag(forget_, "--forget",
                     "forgets what a calibration that was cut off left behind; needs no LINK");
        options.Flag(force_, "--force", "restores although the LINK is not the one that it was read by");
        options.Text(into_, "--into", "FILE", "takes the new values over into this configuration file");
        options.Text(certificate_, "--certificate", "OUT",
                     "writes a certificate, as HTML for names in .html");
        options.Text(who_, "--who", "NAME", "who calibrates, for the certificate");
        link_.Declare(options);
    }

    int Run(Program& program) override {
        CheckUsage();
        std::vector<Point> points;
        for (const std::string& text : linear_) {
            points.push_back(ReadPoint(text));
            NeedWeight("--linear", points.back().weight);
        }
        const auto pending = PendingCalibration(program);
        if ((restore_ || forget_) && !pending) {
            program.Say("no calibration was cut off: there is nothing to put back");
            return kDone;
        }
        if (forget_) {
            ForgetCalibration(program);
            return kDone;
        }
        if (pending && !restore_ && !read_)
            throw UsageError("a calibration of scale " + std::to_string(pending->scale) +
                             " was cut off; --restore puts its old values back first, --forget drops them");
        if (certificate_) NeedPlace(program, *certificate_);
        std::optional<CIndicator> document;
        if (into_) document.emplace(OpenInto(program));
        Link link(program, link_, Own::Calibration);
        const std::string version = link.Connect();
        Statuses statuses(program);
        CCalibration calibration(link.Comm(), program.Model(), statuses, CalibrationJournalFile(program));
        if (restore_) {
            NeedSameWay(pending->where, link.Comm().Where(), force_);
            if (!calibration.RestorePending()) Fail(program, statuses.last);
            return kDone;
        }
        if (read_) {
            if (!calibration.GetCurrentCalibration(*scale_)) Fail(program, statuses.last);
            Print(program, calibration.Old(), calibration.Old());
            return kDone;
        }
        if (!calibration.Begin(*scale_)) Fail(program, statuses.last);
        if (!Steps(program, calibration, points) || !Finish(program, calibration, document)) {
            const std::string why = statuses.last;
            GiveUp(program, calibration, why);
        }
        Print(program, calibration.Old(), calibration.New());
        if (certificate_) WriteCertificate(program, link, calibration, version, document);
        return kDone;
    }

  private:
    void CheckUsage() const {
        const bool steps = zero_ || span_ || rezero_ || !linear_.empty();
        if (restore_ || forget_) {
            const bool alone = !steps && !read_ && !scale_ && restore_ != forget_;
            if (!alone) throw UsageError(restore_ ? "--restore stands alone" : "--forget stands alone");
            return;
        }
        if (!scale_) throw UsageError("give the scale with --scale");
        if (read_ == steps) throw UsageError("give --read, or steps: --zero, --span, --linear, --rezero");
        if (span_ && !weight_) throw UsageError("--span needs the test weight: --weight W");
        if (weight_) NeedWeight("--weight", *weight_);
        if (read_ && (into_ || certificate_)) throw UsageError("--read changes nothing to be kept");
    }

    // Before anything is done to the indicator.
    CIndicator OpenInto(Program& program) const {
        CIndicator document = Opening{}.OpenForChange(program, *into_);
        const auto scales = ScalesToCalibrate(document);
        if (std::find(scales.begin(), scales.end(), *scale_) == scales.end())
            throw UsageError("scale " + std::to_string(*scale_) + " of " + *into_ +
                             " is of a kind that has no calibration");
        return document;
    }

    bool Steps(Program& program, CCalibration& calibration, const std::vector<Point>& points) const {
        const std::size_t steps = points.size() + (zero_ ? 1u : 0u) + (span_ ? 1u : 0u) + (rezero_ ? 1u : 0u);
        const auto ready = [&](const std::string& what) { return steps == 1 || Ready(program, what); };
        const auto going = [&program](bool success) { return success && !program.Cancelled(); };
        if (zero_ && !(ready("Empty the scale") && going(calibration.Zero(weight_.value_or("")))))
            return false;
        if (span_ && !zero_ && !going(calibration.SetTestWeight(*weight_))) return false;
        if (span_ && !(ready("Put " + *weight_ + " on the scale") && going(calibration.Span()))) return false;
        for (const Point& point : points) {
            if (!ready("Put " + point.weight + " on the scale")) return false;
            if (!going(calibration.Linear(point.number, point.weight))) return false;
        }
        return !rezero_ || (ready("Take hooks and chains off the scale") && going(calibration.Rezero()));
    }

    // False: Ctrl+C, or nobody is there any more.
    static bool Ready(Program& program, const std::string& what) {
        Console& ends = program.Ends();
        if (!ends.inIsTerminal) return true;
        ends.err << what << ", wait until it is still, then press Enter: " << std::flush;
        std::string line;
        if (!std::getline(ends.in, line)) program.App().cancel = true;  // nobody is there to go on
        return !program.Cancelled();
    }

    bool Finish(Program& program, CCalibration& calibration, std::optional<CIndicator>& document) const {
        if (!document) return calibration.Finish();
        const auto taken = calibration.Finish(*document);
        if (!taken) return false;
        for (const Refusal& refused : taken->refused) program.Say(refused.key + ": " + refused.reason);
        document->Save(*into_, false);
        return true;
    }

    // Ctrl+C must not end putting back, too.
    [[noreturn]] static void GiveUp(Program& program, CCalibration& calibration, const std::string& why) {
        const bool interrupted = program.App().cancel.exchange(false);
        const bool back = calibration.Cancel();
        if (!back) program.Say("calibrate --restore tries again");
        if (interrupted) program.App().cancel = true;
        if (interrupted) throw Interrupted{};
        Fail(program, why);
    }
    [[noreturn]] static void Fail(Program& program, const std::string& why) {
        program.StopIfCancelled();
        throw Error(code::kLink, "Calyx.CCalibration.Run", why);
    }

    void Print(Program& program, const CalibrationValues& before, const CalibrationValues& after) const {
        const auto old = before.Lines(*scale_);
        const auto now = after.Lines(*scale_);
        program.List(
            [&] {
                Json listing = Json::array();
                for (std::size_t i = 0; i < now.size(); ++i) {
                    listing.push_back({{"key", Utf8(now[i].key)},
                                       {"before", Utf8(old[i].value)},
                                       {"after", Utf8(now[i].value)}});
                }
                return listing;
            },
            [&](std::ostream& out) {
                for (std::size_t i = 0; i < now.size(); ++i) {
                    out << now[i].key << ": " << Printable(old[i].value);
                    if (old[i].value != now[i].value) out << " -> " << Printable(now[i].value);
                    out << '\n';
                }
            });
    }

    void WriteCertificate(Program& program, Link& link, const CCalibration& calibration,
                          const std::string& version, const std::optional<CIndicator>& document) const {
        CalibrationCertificate certificate{.scale = *scale_,
                                           .indicator = version,
                                           .where = link.Comm().Where(),
                                           .date = LocalTime("%Y-%m-%d %H:%M"),
                                           .who = who_.value_or(""),
                                           .document = into_.value_or(""),
                                           .before = calibration.Old(),
                                           .after = calibration.New()};
        const std::string number = "#" + std::to_string(*scale_);
        if (document) certificate.alias = document->Value("SC.ALIAS" + number).value_or("");
        if (document) certificate.units = document->Value("SC.PRI.UNITS" + number).value_or("");
        const bool html = certificate_->ends_with(".html") || certificate_->ends_with(".htm");
        const ResourceTexts& texts = program.Model().texts;
        WriteUpload(*program.Model().files, texts, *certificate_,
                    html ? CertificateHtml(certificate, texts) : CertificateText(certificate, texts));
    }

    std::optional<int> scale_;
    std::optional<std::string> weight_, into_, certificate_, who_;
    std::vector<std::string> linear_;
    bool read_ = false, zero_ = false, span_ = false, rezero_ = false, restore_ = false, forget_ = false,
         force_ = false;
    LinkOptions link_;
};

}  // namespace

std::unique_ptr<Command> MakeCalibrate() {
    return std::make_unique<Calibrate>();
}

}  // namespace calyx::cli
