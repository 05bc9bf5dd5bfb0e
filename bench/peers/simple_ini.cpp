#define SI_NO_CONVERSION  // 8-bit text as it stands; conversion would need a library of its own
#include <SimpleIni.h>

#include <optional>
#include <stdexcept>

#include "bench/peers/peer.h"

namespace calyx::bench {

namespace {

constexpr const char* kSection = "config";

void Check(SI_Error result) {
    if (result < 0) throw std::runtime_error("SimpleIni failed");
}

class SimpleIniPeer final : public Peer {
  public:
    void Make(const std::vector<KeyValue>& lines, const std::string& path) override {
        CSimpleIniA ini;
        for (const KeyValue& line : lines)
            Check(ini.SetValue(kSection, line.key.c_str(), line.value.c_str()));
        Check(ini.SaveFile(path.c_str()));
    }
    void Load(const std::string& path) override { Check(ini_.emplace().LoadFile(path.c_str())); }
    std::size_t Count() const override { return static_cast<std::size_t>(ini_->GetSectionSize(kSection)); }
    void Save(const std::string& path) override { Check(ini_->SaveFile(path.c_str())); }
    void Clear() override { ini_.reset(); }

  private:
    std::optional<CSimpleIniA> ini_;
};

}  // namespace

std::unique_ptr<Peer> MakeSimpleIniPeer() {
    return std::make_unique<SimpleIniPeer>();
}

}  // namespace calyx::bench
