#include "scan/file_utilities.h"

#include "platform/digest.h"
#include "platform/read_buffer.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <limits>
#include <span>

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

/// Whether both files have the same bytes from `offset` on, for `length` bytes or to the end of
/// both. Returns false if one ends before the other or cannot be read.
bool haveEqualBytes(FileSystem& fileSystem, const OpenFile& one, const OpenFile& other,
                    std::uint64_t offset, std::uint64_t length) {
    const ReadBuffer oneBytes = makeReadBuffer(comparedChunk);
    const ReadBuffer otherBytes = makeReadBuffer(comparedChunk);
    while (length > 0) {
        const auto wanted =
            static_cast<std::size_t>(std::min<std::uint64_t>(length, comparedChunk));
        const auto got = fileSystem.readAt(one.descriptor, offset, {oneBytes.get(), wanted});
        const auto otherGot =
            fileSystem.readAt(other.descriptor, offset, {otherBytes.get(), wanted});
        // std::equal would compare byte by byte.
        if (!got || !otherGot || *got != *otherGot ||
            std::memcmp(oneBytes.get(), otherBytes.get(), *got) != 0) {
            return false;
        }
        if (*got < wanted) {
            return true;
        }
        offset += wanted;
        length -= wanted;
    }
    return true;
}

}  // namespace

bool contentsEqualAtPath(FileSystem& fileSystem, const std::string& path,
                         const std::string& otherPath) {
    const auto one = openRegularFile(fileSystem, path);
    const auto other = one ? openRegularFile(fileSystem, otherPath) : std::nullopt;
    return other && haveEqualBytes(fileSystem, *one, *other, 0, toTheEnd);
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
    return haveEqualBytes(fileSystem, *one, *other, 0, largeChunk) &&
           haveEqualBytes(fileSystem, *one, *other, tail, largeChunk);
}

std::optional<std::string> md5OfFile(FileSystem& fileSystem, const std::string& path) {
    const auto file = openRegularFile(fileSystem, path);
    if (!file) {
        return std::nullopt;
    }
    Md5 digest;
    const ReadBuffer buffer = makeReadBuffer(largeChunk);
    const std::span<std::byte> bytes(buffer.get(), largeChunk);
    std::uint64_t offset = 0;
    std::size_t got = bytes.size();
    while (got == bytes.size()) {
        const auto chunk = fileSystem.readAt(file->descriptor, offset, bytes);
        if (!chunk) {
            return std::nullopt;
        }
        got = *chunk;
        digest.update(bytes.first(got));
        offset += got;
    }
    return digest.hexDigest();
}

Timestamp checkNilDate(std::optional<Timestamp> date, Clock& clock) {
    return date ? *date : clock.now();
}

}  // namespace tarvin
