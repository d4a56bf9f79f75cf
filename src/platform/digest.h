#pragma once

#include <cstddef>
#include <memory>
#include <span>
#include <string>

namespace tarvin {

/// The MD5 digest of bytes that come in portions. Made, fed and asked on one thread at a time. MD5
/// tells copies from accidents, not from forgeries: it is no proof that two files are equal.
class Md5 final {
 public:
    Md5();
    Md5(const Md5&) = delete;
    Md5& operator=(const Md5&) = delete;
    ~Md5();

    /// Appends `bytes` to what is digested.
    void update(std::span<const std::byte> bytes);

    /// The digest of everything so far: 32 hexadecimal digits in lower case. More may follow.
    [[nodiscard]] std::string hexDigest() const;

 private:
    struct State;
    std::unique_ptr<State> state_;
};

}  // namespace tarvin
