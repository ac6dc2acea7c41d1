// One run of the service Hash.
#include "HashJob.h"

#include <otx/value/COtxBool.h>
#include <otx/value/COtxException.h>
#include <otx/value/COtxInt.h>
#include <otx/value/COtxMap.h>
#include <otx/value/COtxString.h>

#include <filesystem>
#include <map>

#include "PauseSwitch.h"

namespace filehash {

namespace {

using ExternalServiceProvider::ProviderArguments;
using ExternalServiceProvider::ProviderVariables;
using OTX::Exceptions_e;

constexpr long long usualChunk = 64 * 1024;
constexpr long long largestChunk = 16 * 1024 * 1024;

std::size_t chunkSize(const ProviderArguments& in) {
    const long long wanted = in.Optional("chunkSize", OTX::ValueType::Integer, COtxInt(usualChunk)).Int();
    if (wanted < 1 || wanted > largestChunk)
        throw COtxException(Exceptions_e::ExecuteException, "Argument 'chunkSize' is to be from 1 to 16777216");
    return static_cast<std::size_t>(wanted);
}

[[noreturn]] void refuse(const std::string& file, const std::string& cause) {
    throw COtxException(Exceptions_e::ProviderServiceException, "File '" + file + "': " + cause);
}

}  // namespace

HashJob::HashJob(const std::string& algorithm, const ProviderArguments& in, const ProviderVariables& variables)
    : file_(in.Required("file", OTX::ValueType::String).String()),
      chunkSize_(chunkSize(in)),
      variables_(variables),
      digest_(algorithm) {
    in.AllowOnly({"file", "chunkSize"});
    variables.AllowOnly({"digest", "bytes", "complete"});
    // A device or a pipe might never end, and opening it never return.
    std::error_code failure;
    const auto status = std::filesystem::status(file_, failure);
    if (failure) refuse(file_, failure.message());
    if (!std::filesystem::is_regular_file(status)) refuse(file_, "no regular file");
    size_ = static_cast<std::int64_t>(std::filesystem::file_size(file_, failure));
    if (failure) refuse(file_, failure.message());
    stream_.open(file_, std::ios::binary);
    if (!stream_) refuse(file_, "can't be opened");
}

void HashJob::run(const std::stop_token& terminated, PauseSwitch& pause, ExternalServiceProvider::HostInterface& host) {
    chunk_.resize(chunkSize_);
    bool isComplete = false;
    for (;;) {
        pause.pass(terminated);
        if (terminated.stop_requested()) break;
        const std::size_t length = readChunk();
        isComplete = length == 0;
        if (isComplete) break;
        digest_.add({chunk_.data(), length});
        tellProgress(host);
    }
    if (isComplete) variables_.Write("digest", COtxString(digest_.finish()));
    variables_.Write("bytes", COtxInt(read_));
    variables_.Write("complete", COtxBool(isComplete));
}

std::size_t HashJob::readChunk() {
    if (stream_.eof()) return 0;
    stream_.read(chunk_.data(), static_cast<std::streamsize>(chunk_.size()));
    if (stream_.bad()) refuse(file_, "can't be read");
    const auto length = stream_.gcount();
    read_ += length;
    return static_cast<std::size_t>(length);
}

void HashJob::tellProgress(ExternalServiceProvider::HostInterface& host) const {
    host.sendRequest(COtxMap(std::map<const std::string, COtxValue>{{"eventType", COtxString("ESP-HashProgress")},
                                                                    {"providerType", COtxString("FileHash")},
                                                                    {"file", COtxString(file_)},
                                                                    {"bytes", COtxInt(read_)},
                                                                    {"size", COtxInt(size_)}}));
}

}  // namespace filehash
