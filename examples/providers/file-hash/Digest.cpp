// Digests by the cryptographic library.
#include "Digest.h"

#include <openssl/crypto.h>
#include <openssl/evp.h>
#include <otx/value/COtxException.h>

#include <array>

namespace filehash {

namespace {

// A service may still run while the process exits: the library isn't to clean up behind its back.
void initialise() {
    static const bool isDone = OPENSSL_init_crypto(OPENSSL_INIT_NO_ATEXIT, nullptr) == 1;
    if (!isDone)
        throw COtxException(OTX::Exceptions_e::ProviderException, "The cryptographic library can't be initialised");
}

void require(int result) {
    if (result != 1) throw COtxException(OTX::Exceptions_e::ProviderServiceException, "The digest can't be computed");
}

}  // namespace

void Digest::Free::operator()(evp_md_ctx_st* state) const noexcept { EVP_MD_CTX_free(state); }

Digest::Digest(const std::string& algorithm) {
    initialise();
    const std::unique_ptr<EVP_MD, decltype(&EVP_MD_free)> method(EVP_MD_fetch(nullptr, algorithm.c_str(), nullptr),
                                                                 &EVP_MD_free);
    if (!method) throw COtxException(OTX::Exceptions_e::ProviderException, "Unknown algorithm '" + algorithm + "'");
    state_.reset(EVP_MD_CTX_new());
    require(state_ ? EVP_DigestInit_ex2(state_.get(), method.get(), nullptr) : 0);
}

void Digest::add(std::span<const char> bytes) { require(EVP_DigestUpdate(state_.get(), bytes.data(), bytes.size())); }

std::string Digest::finish() {
    std::array<unsigned char, EVP_MAX_MD_SIZE> digest{};
    unsigned size = 0;
    require(EVP_DigestFinal_ex(state_.get(), digest.data(), &size));
    std::string digits;
    for (const unsigned char byte : std::span(digest).first(size)) {
        constexpr const char* hexadecimal = "0123456789abcdef";
        digits += hexadecimal[byte >> 4U];
        digits += hexadecimal[byte & 0xFU];
    }
    return digits;
}

}  // namespace filehash
