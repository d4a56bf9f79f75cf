#include "platform/digest.h"

#include <glib.h>

namespace tarvin {

struct Md5::State {
    struct Free {
        void operator()(GChecksum* one) const { g_checksum_free(one); }
    };
    using Pointer = std::unique_ptr<GChecksum, Free>;

    Pointer checksum{g_checksum_new(G_CHECKSUM_MD5)};
};

Md5::Md5() : state_(std::make_unique<State>()) {}

Md5::~Md5() = default;

void Md5::update(std::span<const std::byte> bytes) {
    if (bytes.empty()) {
        return;
    }
    const void* const first = bytes.data();
    g_checksum_update(state_->checksum.get(), static_cast<const guchar*>(first),
                      static_cast<gssize>(bytes.size()));
}

std::string Md5::hexDigest() const {
    // Reading a checksum closes it; the copy leaves this one open.
    const State::Pointer ended(g_checksum_copy(state_->checksum.get()));
    return g_checksum_get_string(ended.get());
}

}  // namespace tarvin
