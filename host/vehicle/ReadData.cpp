// Reads binary data, from a file beside the vehicle file or from hexadecimal digits.
#include "vehicle/ReadParts.h"

#include <algorithm>
#include <fstream>
#include <system_error>

namespace velkotx::host {

namespace {

constexpr std::uint64_t largestData = 64U << 20U;

bool isBelow(const std::filesystem::path& file) {
    return file.is_relative() && !file.empty() && std::find(file.begin(), file.end(), "..") == file.end();
}

bool readBytes(const JsonPlace& place, const std::filesystem::path& file, std::uint64_t offset, std::uint64_t size,
               Bytes& target) {
    std::ifstream stream(file, std::ios::binary);
    Bytes bytes(static_cast<std::size_t>(size));
    if (stream.seekg(static_cast<std::streamoff>(offset)) &&
        stream.read(reinterpret_cast<char*>(bytes.data()), static_cast<std::streamsize>(size))) {
        target = std::move(bytes);
        return true;
    }
    place.mistake("the file can't be read");
    return false;
}

bool readFile(ObjectReader& in, Bytes& target) {
    std::string name;
    std::uint64_t offset = 0;
    std::optional<std::uint64_t> size;
    in.required("file", name);
    in.optional("offset", offset);
    in.optional("size", size);
    in.finish();
    const JsonPlace& place = in.place();
    if (!isBelow(name)) {
        place.mistake("expected a file in the folder of the vehicle file, or below");
        return false;
    }
    const std::filesystem::path file = place.context().folder / name;
    std::error_code error;
    if (!std::filesystem::is_regular_file(file, error)) {
        place.mistake("no file \"" + name + "\" stands beside the vehicle file");
        return false;
    }
    const std::uint64_t whole = std::filesystem::file_size(file, error);
    if (error || offset > whole || (size && *size > whole - offset)) {
        place.mistake("the file has " + std::to_string(error ? 0 : whole) + " bytes only");
        return false;
    }
    const std::uint64_t wanted = size ? *size : whole - offset;
    if (wanted > largestData) {
        place.mistake("more than 64 MB of data");
        return false;
    }
    return place.take(wanted) && readBytes(place, file, offset, wanted, target);
}

}  // namespace

bool readData(const JsonPlace& place, Bytes& target) {
    if (place.is(JsonNode::Kind::Text))
        return readJson(place, target);
    ObjectReader in(place);
    return place.is(JsonNode::Kind::Object) && readFile(in, target);
}

}  // namespace velkotx::host
