// What the component tells about itself, and its one factory.
#include <VelkOTXe/Sequencer_impl.h>

namespace velkotx {

Sequencer::~Sequencer() = default;

std::shared_ptr<Sequencer> CreateSequencer(std::istream& document) {
    return std::make_shared<otxns::Sequencer_impl>(document);
}

std::string& GetComponentName() {
    static std::string name = "VelkOTX";
    return name;
}

std::string& GetComponentVersion() {
    static std::string version = "10.0.4.13";
    return version;
}

std::string& GetComponentDate() {
    static std::string date = "2023/09/21 18:54:46";
    return date;
}

}  // namespace velkotx
