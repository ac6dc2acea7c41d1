// A digest of bytes that come piece by piece.
#pragma once

#include <memory>
#include <span>
#include <string>

struct evp_md_ctx_st;

namespace filehash {

// One thread at a time.
class Digest {
public:
    // Throws kind 21 (ProviderException) for an algorithm that the cryptographic library doesn't have. The name is one of
    // its own, such as "SHA256" or "SHA3-512".
    explicit Digest(const std::string& algorithm);

    void add(std::span<const char> bytes);
    // The digest in lower-case hexadecimal digits. Nothing can be added afterwards.
    std::string finish();

private:
    struct Free {
        void operator()(evp_md_ctx_st* state) const noexcept;
    };
    std::unique_ptr<evp_md_ctx_st, Free> state_;
};

}  // namespace filehash
