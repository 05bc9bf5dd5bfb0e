#include "cli/commands/commands.h"
#include "cli/exit.h"
#include "cli/link.h"

namespace calyx::cli {

namespace {

// The parts of "V2.08.01 CB2 MERRIN".
struct Identity {
    std::string version, identification;

    explicit Identity(const std::string& reply) {
        const std::size_t blank = reply.find(' ');
        version = reply.substr(0, blank);
        if (version.starts_with('V')) version.erase(0, 1);
        if (blank != std::string::npos) identification = reply.substr(blank + 1);
        if (identification.starts_with("CB2 ")) identification.erase(0, 4);
    }
};

class Connect final : public Command {
  public:
    std::string_view Name() const override { return "connect"; }
    std::string_view Help() const override { return "connects and tells which indicator answers"; }
    bool HasListing() const override { return true; }

    void Declare(Options& options) override { link_.Declare(options); }

    int Run(Program& program) override {
        Link link(program, link_);
        const std::string reply = link.Connect();
        const Identity identity(reply);
        const bool setup = link.Comm().CheckForSetupMode();
        program.StopIfCancelled();
        const TargetVersion& target = program.Model().target;
        program.List(
            [&] {
                return Json{{"link", link.Comm().Where()},
                            {"reply", Utf8(reply)},
                            {"identification", Utf8(identity.identification)},
                            {"version", Utf8(identity.version)},
                            {"targetVersion", Utf8(target.prefix)},
                            {"versionKnown", VersionBit(target.prefix) != kUnknownVersion},
                            {"cb2", target.cb2},
                            {"setupMode", setup}};
            },
            [&](std::ostream& out) {
                out << "link            " << link.Comm().Where() << '\n'
                    << "identification  " << Printable(identity.identification) << '\n'
                    << "version         " << Printable(identity.version) << '\n'
                    << "target version  " << Printable(target.prefix) << '\n'
                    << "CB2             " << (target.cb2 ? "yes" : "no") << '\n'
                    << "setup mode      " << (setup ? "yes" : "no") << '\n';
            });
        return kDone;
    }

  private:
    LinkOptions link_;
};

}  // namespace

std::unique_ptr<Command> MakeConnect() {
    return std::make_unique<Connect>();
}

}  // namespace calyx::cli
