// SPDX-License-Identifier: MIT
#include "TzSoapWsCrypto.h"

#include <openssl/crypto.h>
#include <openssl/evp.h>
#include <openssl/rand.h>

#include <stdexcept>

namespace {

const unsigned char* bytesOf(std::string_view text) noexcept {
    return reinterpret_cast<const unsigned char*>(text.data());
}

TzCString digest(const EVP_MD* algorithm, std::string_view bytes) {
    unsigned char result[EVP_MAX_MD_SIZE];
    unsigned int size = 0;
    if (EVP_Digest(bytes.data(), bytes.size(), result, &size, algorithm, nullptr) != 1) {
        throw std::runtime_error("OpenSSL computes no digest");
    }
    return {result, result + size};
}

} // namespace

TzCString TzSoapWsCrypto::sha1(std::string_view bytes) { return digest(EVP_sha1(), bytes); }

TzCString TzSoapWsCrypto::randomBytes(std::size_t count) {
    TzCString bytes(count, '\0');
    if (RAND_bytes(reinterpret_cast<unsigned char*>(bytes.data()), static_cast<int>(count)) != 1) {
        throw std::runtime_error("OpenSSL gives no random bytes");
    }
    return bytes;
}

bool TzSoapWsCrypto::equal(std::string_view left, std::string_view right) {
    // Digests are equally long, whatever they are of.
    const TzCString first = digest(EVP_sha256(), left);
    const TzCString second = digest(EVP_sha256(), right);
    return CRYPTO_memcmp(bytesOf(first), bytesOf(second), first.size()) == 0;
}
