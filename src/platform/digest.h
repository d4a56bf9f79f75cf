#pragma once

#include <cstddef>
#include <memory>
#include <span>
#include <string>

namespace tarvin {

/// The MD5 hash of bytes that arrive in chunks. One thread at a time. MD5 detects accidental
/// differences, not forgeries: equal hashes do not prove that two files are equal.
class Md5 final {
 public:
    Md5();
    Md5(const Md5&) = delete;
    Md5& operator=(const Md5&) = delete;
    ~Md5();

    /// Adds `bytes` to the hash.
    void update(std::span<const std::byte> bytes);

    /// The hash of everything so far: 32 hexadecimal digits in lower case. More may follow.
    [[nodiscard]] std::string hexDigest() const;

 private:
    struct State;
    std::unique_ptr<State> state_;
};

}  // namespace tarvin
