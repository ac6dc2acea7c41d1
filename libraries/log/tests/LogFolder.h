// A folder for the files of a test, and what stands in them.
#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

// Removed at the end with all that is in it.
class LogFolder {
public:
    LogFolder() {
        std::string name = (std::filesystem::temp_directory_path() / "otx-log-XXXXXX").string();
        if (mkdtemp(name.data()) == nullptr) throw std::runtime_error("no folder for the test");
        folder_ = name;
    }
    LogFolder(const LogFolder&) = delete;
    LogFolder& operator=(const LogFolder&) = delete;
    ~LogFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(folder_, ignored);
    }

    std::string file(const std::string& name) const { return (folder_ / name).string(); }
    bool has(const std::string& name) const { return std::filesystem::exists(folder_ / name); }
    std::string text(const std::string& name) const {
        std::ifstream in(folder_ / name, std::ios::binary);
        std::ostringstream content;
        content << in.rdbuf();
        return content.str();
    }
    std::vector<std::string> lines(const std::string& name) const {
        std::istringstream in(text(name));
        std::vector<std::string> result;
        for (std::string line; std::getline(in, line);) result.push_back(line);
        return result;
    }

private:
    std::filesystem::path folder_;
};
