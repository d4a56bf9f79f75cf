#include "platform/digest.h"

#include <CommonCrypto/CommonDigest.h>

#include <algorithm>
#include <array>
#include <limits>

namespace tarvin {

// Deprecated for signatures; here it is a checksum.
#pragma clang diagnostic push
#pragma clang diagnostic ignored "-Wdeprecated-declarations"

struct Md5::State {
    State() { CC_MD5_Init(&sum); }

    CC_MD5_CTX sum{};
};

Md5::Md5() : state_(std::make_unique<State>()) {}

Md5::~Md5() = default;

void Md5::update(std::span<const std::byte> bytes) {
    constexpr std::size_t most = std::numeric_limits<CC_LONG>::max();
    while (!bytes.empty()) {
        const std::size_t count = std::min(bytes.size(), most);
        CC_MD5_Update(&state_->sum, bytes.data(), static_cast<CC_LONG>(count));
        bytes = bytes.subspan(count);
    }
}

std::string Md5::hexDigest() const {
    CC_MD5_CTX copy = state_->sum;  // ending it changes it
    std::array<unsigned char, CC_MD5_DIGEST_LENGTH> digest{};
    CC_MD5_Final(digest.data(), &copy);
    std::string text;
    for (const unsigned char byte : digest) {
        text += "0123456789abcdef"[byte >> 4U];
        text += "0123456789abcdef"[byte & 0xFU];
    }
    return text;
}

#pragma clang diagnostic pop

}  // namespace tarvin
