#include "clean/equal_contents.h"

#include "platform/read_buffer.h"

#include <algorithm>
#include <cstddef>
#include <cstring>

namespace tarvin {

namespace {

constexpr std::size_t chunkBytes = 256 * 1024;

bool isUnchanged(const SeenFile& seen, const FileAttributes& now) {
    const FileAttributes& before = seen.attributes;
    if (seen.isUnsteady) {
        return now.type == before.type && now.size == before.size && now.linkCount > 0;
    }
    return isSameFile(before, now) && now.changed == before.changed && now.linkCount > 0;
}

/// A file open for reading.
class OpenFile final {
 public:
    OpenFile(FileSystem& fileSystem, const SeenFile& seen)
        : fileSystem_(fileSystem), seen_(seen), opened_(fileSystem.openFile(seen.path)) {}

    [[nodiscard]] bool isAsSeen() const {
        if (!opened_) {
            return false;
        }
        const Result<FileAttributes> now = fileSystem_.attributesOf(*opened_);
        return now && isUnchanged(seen_, *now);
    }

    [[nodiscard]] bool read(std::uint64_t offset, std::span<std::byte> into) const {
        const Result<std::size_t> got = fileSystem_.readAt(*opened_, offset, into);
        return got && *got == into.size();
    }

 private:
    FileSystem& fileSystem_;
    const SeenFile& seen_;
    const Result<Descriptor> opened_;
};

}  // namespace

bool isSameFile(const FileAttributes& before, const FileAttributes& now) {
    return now.type == before.type && now.identity == before.identity && now.size == before.size &&
           now.modified == before.modified;
}

bool haveEqualContents(FileSystem& fileSystem, const SeenFile& one, const SeenFile& other,
                       const std::function<bool()>& stopped) {
    const OpenFile first(fileSystem, one);
    const OpenFile second(fileSystem, other);
    const std::uint64_t size = one.attributes.size;
    if (size != other.attributes.size || !first.isAsSeen() || !second.isAsSeen()) {
        return false;
    }
    const ReadBuffer buffer = makeReadBuffer(2 * chunkBytes);
    for (std::uint64_t offset = 0; offset < size; offset += chunkBytes) {
        const auto length =
            static_cast<std::size_t>(std::min<std::uint64_t>(chunkBytes, size - offset));
        const std::span<std::byte> ones(buffer.get(), length);
        const std::span<std::byte> others(buffer.get() + chunkBytes, length);
        if ((stopped && stopped()) || !first.read(offset, ones) || !second.read(offset, others) ||
            std::memcmp(ones.data(), others.data(), length) != 0) {
            return false;
        }
    }
    return first.isAsSeen() && second.isAsSeen();
}

}  // namespace tarvin
