#include "sim/serial_simulator.h"

#include <utility>

#include "sim/serial/device.h"
#include "sim/service.h"
#include "sim/session.h"

namespace calyx::sim {

class SerialSimulator::Port : public Service {
  public:
    Port(SimulatorOptions options, const std::string& device, const std::string& settings, Report report)
        : Service(std::move(options), std::move(report)),
          session_(
              Indicator(), [this] { SaveSoon(); }, [this] { End(); }) {
        asio::serial_port port(Io());
        OpenDevice(port, device, ReadSerialSettings(settings));
        session_.Start(std::move(port));
        Begin();
    }
    ~Port() override { Stop(); }

  private:
    void CloseWire() override { session_.Close(); }
    void End() {
        Save();
        if (!Closing()) Tell("the serial port is closed; nothing answers any more");
    }

    Session<asio::serial_port> session_;
};

SerialSimulator::SerialSimulator(SimulatorOptions options, const std::string& device,
                                 const std::string& settings, Report report)
    : port_(std::make_unique<Port>(std::move(options), device, settings, std::move(report))) {}

SerialSimulator::~SerialSimulator() = default;

SimulatorSnapshot SerialSimulator::Snapshot() const {
    return port_->Indicator().Snapshot();
}

void SerialSimulator::AddFault(std::string_view spec) {
    port_->Indicator().AddFault(spec);
}

void SerialSimulator::ClearFaults() {
    port_->Indicator().ClearFaults();
}

void SerialSimulator::Stop() {
    port_->Stop();
}

}  // namespace calyx::sim
