// What a host tells about its vehicle communication interfaces.
#pragma once

#include <string>
#include <utility>
#include <vector>

namespace ComInterface {

// One interface by its name. Immutable.
class CModuleData {
public:
    explicit CModuleData(std::string name) : name_(std::move(name)) {}

    const std::string& Name() const noexcept { return name_; }

private:
    std::string name_;
};

// A value of its own, in the host's order.
class CModuleList {
public:
    CModuleList() = default;
    explicit CModuleList(std::vector<CModuleData> modules) : modules_(std::move(modules)) {}

    int Size() const noexcept { return static_cast<int>(modules_.size()); }
    // Throws std::out_of_range beyond the size.
    const CModuleData& ModuleData(int index) const { return modules_.at(static_cast<std::size_t>(index)); }

private:
    std::vector<CModuleData> modules_;
};

}  // namespace ComInterface
