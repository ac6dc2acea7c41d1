// One run of the service Hash.
#pragma once

#include <otx/provider/HostInterface.h>
#include <otx/provider/ProviderArguments.h>

#include <cstdint>
#include <fstream>
#include <memory>
#include <stop_token>
#include <string>
#include <vector>

#include "Digest.h"

namespace filehash {

class PauseSwitch;

// Made on the lane's thread, which hears of a file that can't be read; runs on the service's own.
class HashJob {
public:
    // The in-argument file (String) and, where given, chunkSize (Integer, bytes); the out arguments digest (String), bytes
    // (Integer) and complete (Boolean). Throws kind 25 (ExecuteException) for bad arguments, kind 22
    // (ProviderServiceException) for the file.
    HashJob(const std::string& algorithm, const ExternalServiceProvider::ProviderArguments& in,
            const ExternalServiceProvider::ProviderVariables& variables);

    // Reads the file chunk by chunk, tells the host of each, and writes the out arguments at the end. A stop that is asked
    // for leaves digest as it was.
    void run(const std::stop_token& terminated, PauseSwitch& pause, ExternalServiceProvider::HostInterface& host);

private:
    // The bytes that were read; 0 at the end of the file.
    std::size_t readChunk();
    void tellProgress(ExternalServiceProvider::HostInterface& host) const;

    const std::string file_;
    const std::vector<char>::size_type chunkSize_;
    const ExternalServiceProvider::ProviderVariables variables_;
    Digest digest_;
    std::ifstream stream_;
    std::int64_t size_ = 0;
    std::int64_t read_ = 0;
    std::vector<char> chunk_;
};

}  // namespace filehash
