// A folder for the file store of one test, and what the tests do with it.
#pragma once

#include "store/FolderFileStore.h"

#include <otx/value/Values.h>

#include <gtest/gtest.h>
#include <zlib.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <istream>
#include <iterator>
#include <stdexcept>
#include <string>

namespace velkotx::host::testing {

// "files" in an empty folder of its own, which is gone with the test; what lies beside "files" is out of the store.
class FileStoreFolder : public ::testing::Test {
protected:
    FileStoreFolder() {
        std::string pattern = (std::filesystem::temp_directory_path() / "files-XXXXXX").string();
        if (mkdtemp(pattern.data()) == nullptr)
            throw std::runtime_error("no folder for the test");
        outside = pattern;
        folder = outside / "files";
        std::filesystem::create_directories(folder / "inner");
    }
    ~FileStoreFolder() override {
        std::filesystem::permissions(folder, std::filesystem::perms::owner_all);
        std::filesystem::remove_all(outside);
    }

    void write(const std::filesystem::path& name, const std::string& content) const {
        std::ofstream(folder / name, std::ios::binary) << content;
    }

    std::filesystem::path outside;
    std::filesystem::path folder;
};

inline Hvt::Fs::FileDetails file(const std::string& name) { return {name, "FILE"}; }

inline std::shared_ptr<std::istream> decoded(FolderFileStore& store, const std::string& name, const std::string& format = "") {
    return store.Decode(store.Open(file(name), Hvt::Fs::Caches::DEFAULT), format);
}

inline std::string rest(std::streambuf& buffer) { return {std::istreambuf_iterator<char>(&buffer), {}}; }

inline std::string content(FolderFileStore& store, const std::string& name, const std::string& format = "") {
    return rest(*decoded(store, name, format)->rdbuf());
}

// The exception that a call throws, as "KIND TEXT"; empty when it throws none.
template <class Call>
std::string refusal(Call call) {
    try {
        call();
        return "";
    } catch (const COtxValue& exception) {
        return std::to_string(static_cast<int>(exception.Exception().Kind())) + ' ' + exception.Exception().Text();
    }
}

// One gzip member.
inline std::string packed(const std::string& content) {
    z_stream stream{};
    if (deflateInit2(&stream, Z_BEST_SPEED, Z_DEFLATED, 15 + 16, 8, Z_DEFAULT_STRATEGY) != Z_OK)
        throw std::bad_alloc();
    std::string result(deflateBound(&stream, content.size()), '\0');
    stream.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(content.data()));
    stream.avail_in = static_cast<uInt>(content.size());
    stream.next_out = reinterpret_cast<Bytef*>(result.data());
    stream.avail_out = static_cast<uInt>(result.size());
    deflate(&stream, Z_FINISH);
    result.resize(stream.total_out);
    deflateEnd(&stream);
    return result;
}

}  // namespace velkotx::host::testing
