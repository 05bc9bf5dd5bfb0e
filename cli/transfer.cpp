#include "cli/transfer.h"

#include "cli/exit.h"
#include "model/language/text.h"

namespace calyx::cli {

namespace {

struct Group {
    std::string_view name;
    unsigned bit;
};
constexpr Group kGroups[] = {
    {"base", download_option::chkBase},           {"calibration", download_option::chkCalibration},
    {"setpoints", download_option::chkSetpoints}, {"widgets", download_option::chkWidgets},
    {"schemas", download_option::chkSchemas},     {"program", download_option::chkCODFile},
};

unsigned BitOf(std::string_view name) {
    for (const Group& group : kGroups) {
        if (group.name == name) return group.bit;
    }
    throw UsageError("--only: there is no group " + std::string(name) +
                     "; there are base, calibration, setpoints, widgets, schemas, program");
}

}  // namespace

void Groups::Declare(Options& options) {
    options.Text(only, "--only", "GROUP,...",
                 "of base, calibration, setpoints, widgets, schemas, program; else base,setpoints,widgets");
}

unsigned Groups::Mask() const {
    if (!only) return download_option::kUsual;
    unsigned mask = 0;
    for (const std::string_view name : Split(*only, ',')) mask |= BitOf(Trim(name));
    const bool loose =
        (mask & download_option::chkCalibration) != 0 && (mask & download_option::chkBase) == 0;
    if (loose) throw UsageError("--only: calibration goes together with base only");
    return mask;
}

std::string ReadDump(Program& program, Link& link, Progress& progress) {
    UploadProgress events(program, progress);
    UploadReport report = Upload(link.Comm(), program.Model(), events);
    progress.Clear();
    program.StopIfCancelled();
    if (report.end != UploadReport::End::Complete) throw Error(code::kLink, "Calyx.Upload", report.notice);
    return std::move(report.text);
}

Held ReadIndicator(Program& program, Link& link, Progress& progress) {
    return Held(program.Model(), ReadDump(program, link, progress), link.Comm().Where());
}

}  // namespace calyx::cli
