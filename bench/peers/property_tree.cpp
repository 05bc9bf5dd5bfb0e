#include <boost/property_tree/ini_parser.hpp>
#include <boost/property_tree/ptree.hpp>

#include "bench/peers/peer.h"

namespace calyx::bench {

namespace {

using boost::property_tree::ptree;

class PropertyTreePeer final : public Peer {
  public:
    void Make(const std::vector<KeyValue>& lines, const std::string& path) override {
        ptree tree;
        // Put would take the "." of a key for a path.
        for (const KeyValue& line : lines) tree.push_back({line.key, ptree(line.value)});
        boost::property_tree::write_ini(path, tree);
    }
    void Load(const std::string& path) override { boost::property_tree::read_ini(path, tree_); }
    std::size_t Count() const override { return tree_.size(); }
    void Save(const std::string& path) override { boost::property_tree::write_ini(path, tree_); }
    void Clear() override { tree_.clear(); }

  private:
    ptree tree_;
};

}  // namespace

std::unique_ptr<Peer> MakePropertyTreePeer() {
    return std::make_unique<PropertyTreePeer>();
}

}  // namespace calyx::bench
