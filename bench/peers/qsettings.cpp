#include <QSettings>

#include <map>
#include <stdexcept>

#include "bench/peers/peer.h"

namespace calyx::bench {

namespace {

// Qt keeps settings by key in one piece of text; the lines' "." and "#" are plain characters to it.
class QSettingsPeer final : public Peer {
  public:
    void Make(const std::vector<KeyValue>& lines, const std::string& path) override {
        QSettings settings(QString::fromStdString(path), QSettings::IniFormat);
        for (const KeyValue& line : lines)
            settings.setValue(QString::fromLatin1(line.key.c_str()), QString::fromLatin1(line.value.c_str()));
        Finish(settings);
    }
    void Load(const std::string& path) override {
        const QSettings settings(QString::fromStdString(path), QSettings::IniFormat);
        for (const QString& key : settings.allKeys()) values_[key] = settings.value(key).toString();
    }
    std::size_t Count() const override { return values_.size(); }
    void Save(const std::string& path) override {
        QSettings settings(QString::fromStdString(path), QSettings::IniFormat);
        for (const auto& [key, value] : values_) settings.setValue(key, value);
        Finish(settings);
    }
    void Clear() override { values_.clear(); }

  private:
    static void Finish(QSettings& settings) {
        settings.sync();
        if (settings.status() != QSettings::NoError) throw std::runtime_error("QSettings cannot write");
    }

    std::map<QString, QString> values_;
};

}  // namespace

std::unique_ptr<Peer> MakeQSettingsPeer() {
    return std::make_unique<QSettingsPeer>();
}

}  // namespace calyx::bench
