#include "comm/download_plan.h"

#include <system_error>

#include "comm/link_texts.h"
#include "model/language/error.h"
#include "model/language/file_store.h"
#include "model/language/reason.h"
#include "model/language/text.h"

namespace calyx {

namespace {

using namespace download_option;

constexpr int kOldWidgetLimit = 128;  // of firmware before 3.01

struct BaseStep {
    SendStep step;
    int text;            // number of the status text
    const char* status;  // the status itself where there is no number
};
constexpr BaseStep kBaseSteps[] = {
    {SendStep::Scales, 9511, nullptr},           {SendStep::Communications, 9513, nullptr},
    {SendStep::Fieldbus, 0, "Sending Fieldbus"}, {SendStep::Vexals, 0, "Sending Vexal Configuration"},
    {SendStep::Features, 9514, nullptr},         {SendStep::DigitalIO, 9515, nullptr},
    {SendStep::Analog, 9516, nullptr},           {SendStep::Prompts, 9517, nullptr},
    {SendStep::Tickets, 9518, nullptr},
};
constexpr int kCalibrationText = 9512;
constexpr int kSetpointsText = 9519;
constexpr int kWidgetsText = 9520;
constexpr int kSchemasText = 9527;
constexpr int kProgramText = 9528;

// Collects the steps of one document for one target.
class Planner {
  public:
    Planner(const CIndicator& document, const DownloadOptions& options, const Target& target)
        : document_(document), options_(options), target_(target) {}

    std::vector<DownloadStep> Plan() {
        if (Chosen(chkBase)) AddBase();
        if (Chosen(chkSetpoints))
            Add({.status = Text(kSetpointsText), .lines = Lines(SendStep::Setpoints), .group = chkSetpoints});
        if (Chosen(chkWidgets)) AddWidgets();
        if (Chosen(chkSchemas)) {
            // Tables are sent only to a database that was emptied.
            Add({.status = Text(kSchemasText),
                 .lines = "DB.DELALL\r\n" + Lines(SendStep::Database),
                 .probe = true,
                 .needs = DownloadStep::Needs::FirstLine,
                 .group = chkSchemas,
                 .clears = "DB."});
        }
        if (Chosen(chkCODFile)) {
            Add({.status = Text(kProgramText),
                 .lines = ReadProgram(),
                 .probe = true,
                 .needs = DownloadStep::Needs::EveryLine,
                 .group = chkCODFile,
                 .parameters = false});
        }
        Add({.status = "Sending Vexal Reset", .lines = VexalReset(), .probe = true});
        return std::move(steps_);
    }

  private:
    bool Chosen(unsigned option) const { return (options_.mask & option) != 0; }
    std::string Text(int number) const { return document_.Context().texts.Text(number); }
    std::string Lines(SendStep step) const { return LinesOf(document_, step, target_); }
    void Add(DownloadStep step) { steps_.push_back(std::move(step)); }

    void AddBase() {
        const std::size_t first = steps_.size();
        for (const BaseStep& step : kBaseSteps) {
            Add({.status = step.status != nullptr ? step.status : Text(step.text),
                 .lines = Lines(step.step),
                 .needs = step.step == SendStep::Communications ? DownloadStep::Needs::WholePorts
                                                                : DownloadStep::Needs::Nothing,
                 .group = chkBase});
        }
        steps_[first].probe = true;
        if (Chosen(chkCalibration)) {
            Add({.status = Text(kCalibrationText),
                 .lines = Lines(SendStep::Calibration),
                 .group = chkCalibration});
        }
    }

    void AddWidgets() {
        const int count = WidgetCount(document_);
        const bool limited = !target_.Opens(Since("3.01."));
        Add({.status = Text(kWidgetsText),
             .lines = Lines(SendStep::Widgets),
             .probe = true,
             .group = chkWidgets,
             .clears = "WDGT#",
             .widgetsTooMany = limited && count > kOldWidgetLimit ? count : 0});
    }

    // Lets the boxes take over what this run has sent them.
    std::string VexalReset() const {
        std::string lines;
        if (!Chosen(chkBase) || Lines(SendStep::Vexals).empty() || !target_.Opens(Since("2.05.")))
            return lines;
        for (const int port : VexalPorts(document_)) lines += "SJ.DOWNLOAD#" + std::to_string(port) + "\r\n";
        return lines;
    }

    std::string ReadProgram() const {
        const std::string file(Trim(options_.programFile));
        if (file.empty()) return {};
        IFileStore& files = *document_.Context().files;
        std::string lines;
        try {
            const IFileStore::Found found = files.Look(file);
            if (found == IFileStore::Found::Folder) FailProgram(code::kIsFolder, code::kIsFolder, {file});
            if (found == IFileStore::Found::Nothing)
                FailProgram(code::kFileNotFound, code::kFileNotFound, {file});
            lines = files.Read(file);
        } catch (const std::system_error& error) {
            FailProgram(code::kFileNotReadable, code::kFileNotReadable, {file, Reason(error)});
        }
        bool any = false;
        ForEachLine(lines, [&any](std::string_view line) { any = any || !Trim(line).empty(); });
        if (!any) FailProgram(code::kFileNotReadable, link_text::kEmptyProgram, {file});
        return lines;
    }
    [[noreturn]] void FailProgram(int number, int text,
                                  std::initializer_list<std::string_view> arguments) const {
        throw Error(number, "Calyx.CDownload.ReadFileToArray",
                    document_.Context().texts.Format(text, arguments));
    }

    const CIndicator& document_;
    const DownloadOptions& options_;
    const Target& target_;
    std::vector<DownloadStep> steps_;
};

}  // namespace

std::vector<DownloadStep> PlanDownload(const CIndicator& document, const DownloadOptions& options,
                                       const Target& target) {
    return Planner(document, options, target).Plan();
}

std::vector<std::string> SendingOrder(const CIndicator& document, const DownloadOptions& options,
                                      const Target& target) {
    std::vector<std::string> order;
    for (const DownloadStep& step : PlanDownload(document, options, target)) {
        ForEachLine(step.lines, [&](std::string_view line) {
            if (!Trim(line).empty()) order.emplace_back(line);
        });
    }
    return order;
}

}  // namespace calyx
