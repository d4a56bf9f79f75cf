#include "scan/file_utilities.h"

#include "platform/digest.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <limits>
#include <span>
#include <vector>

namespace tarvin {

namespace {

// Bytes that the quick comparison reads at each end, and bytes hashed at a time.
constexpr std::size_t largeChunk = 3'145'728;
// Bytes compared at a time; two chunks fit into the CPU cache.
constexpr std::size_t comparedChunk = std::size_t{128} << 10;
constexpr std::uint64_t toTheEnd = std::numeric_limits<std::uint64_t>::max();

struct OpenFile {
    Descriptor descriptor;
    std::uint64_t size = 0;  ///< bytes, when it was opened
};

std::optional<OpenFile> openRegularFile(FileSystem& fileSystem, const std::string& path) {
    auto descriptor = fileSystem.openFile(path);
    if (!descriptor) {
        return std::nullopt;
    }
    const auto attributes = fileSystem.attributesOf(*descriptor);
    if (!attributes || attributes->type != EntryType::regular) {
        return std::nullopt;
    }
    return OpenFile{std::move(*descriptor), attributes->size};
}

/// Compares two files chunk by chunk.
class Comparison final {
 public:
    Comparison(FileSystem& fileSystem, const OpenFile& one, const OpenFile& other)
        : fileSystem_(fileSystem), one_(one), other_(other) {}

    /// Whether the files have the same bytes from `offset` on, for `length` bytes or to the end of
    /// both. Returns false if one ends before the other or cannot be read.
    [[nodiscard]] bool isEqual(std::uint64_t offset, std::uint64_t length) {
        while (length > 0) {
            const auto wanted =
                static_cast<std::size_t>(std::min<std::uint64_t>(length, comparedChunk));
            const auto compared = equalBytesAt(offset, wanted);
            if (!compared) {
                return false;
            }
            if (*compared < wanted) {
                return true;
            }
            offset += wanted;
            length -= wanted;
        }
        return true;
    }

 private:
    /// Returns how many bytes both files have at `offset`, up to `wanted`; nullopt if they differ.
    std::optional<std::size_t> equalBytesAt(std::uint64_t offset, std::size_t wanted) {
        const std::span<std::byte> oneRoom(oneBytes_.data(), wanted);
        const std::span<std::byte> otherRoom(otherBytes_.data(), wanted);
        const auto oneGot = fileSystem_.readAt(one_.descriptor, offset, oneRoom);
        const auto otherGot = fileSystem_.readAt(other_.descriptor, offset, otherRoom);
        if (!oneGot || !otherGot || *oneGot != *otherGot) {
            return std::nullopt;
        }
        // std::equal would compare byte by byte.
        const bool same = std::memcmp(oneRoom.data(), otherRoom.data(), *oneGot) == 0;
        return same ? std::optional(*oneGot) : std::nullopt;
    }

    FileSystem& fileSystem_;
    const OpenFile& one_;
    const OpenFile& other_;
    std::vector<std::byte> oneBytes_ = std::vector<std::byte>(comparedChunk);
    std::vector<std::byte> otherBytes_ = std::vector<std::byte>(comparedChunk);
};

}  // namespace

bool contentsEqualAtPath(FileSystem& fileSystem, const std::string& path,
                         const std::string& otherPath) {
    const auto one = openRegularFile(fileSystem, path);
    const auto other = one ? openRegularFile(fileSystem, otherPath) : std::nullopt;
    return other && Comparison(fileSystem, *one, *other).isEqual(0, toTheEnd);
}

bool dataEqualsAtPath(FileSystem& fileSystem, const std::string& path, const std::string& otherPath,
                      const File& file) {
    if (file.fileSize() < largeChunk) {
        return contentsEqualAtPath(fileSystem, path, otherPath);
    }
    const auto one = openRegularFile(fileSystem, path);
    const auto other = one ? openRegularFile(fileSystem, otherPath) : std::nullopt;
    if (!other) {
        return false;
    }
    // If the file has shrunk below one chunk since it was recorded, the tail begins at its start.
    const std::uint64_t tail = one->size - std::min<std::uint64_t>(one->size, largeChunk);
    Comparison comparison(fileSystem, *one, *other);
    return comparison.isEqual(0, largeChunk) && comparison.isEqual(tail, largeChunk);
}

std::optional<std::string> md5OfFile(FileSystem& fileSystem, const std::string& path) {
    const auto file = openRegularFile(fileSystem, path);
    if (!file) {
        return std::nullopt;
    }
    Md5 digest;
    std::vector<std::byte> bytes(largeChunk);
    std::uint64_t offset = 0;
    std::size_t got = bytes.size();
    while (got == bytes.size()) {
        const auto chunk = fileSystem.readAt(file->descriptor, offset, bytes);
        if (!chunk) {
            return std::nullopt;
        }
        got = *chunk;
        digest.update(std::span(bytes).first(got));
        offset += got;
    }
    return digest.hexDigest();
}

Timestamp checkNilDate(std::optional<Timestamp> date, Clock& clock) {
    return date ? *date : clock.now();
}

}  // namespace tarvin
