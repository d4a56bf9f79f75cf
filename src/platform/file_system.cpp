#include "platform/file_system.h"

#include <cstddef>

namespace tarvin {

Descriptor& Descriptor::operator=(Descriptor&& other) noexcept {
    if (this != &other) {
        reset();
        owner_ = std::exchange(other.owner_, nullptr);
        number_ = std::exchange(other.number_, -1);
    }
    return *this;
}

void Descriptor::reset() {
    if (owner_ != nullptr) {
        owner_->close(number_);
        owner_->descriptorsClosed_.fetch_add(1, std::memory_order_relaxed);
        owner_ = nullptr;
        number_ = -1;
    }
}

bool FileSystem::isCached(const Descriptor& file, std::uint64_t offset) {
    std::byte byte{};
    const Result<std::size_t> cached = readCachedAt(file, offset, {&byte, 1});
    return cached && *cached > 0;
}

EntryBlock::EntryBlock(std::size_t capacity)
    : bytes_(std::make_unique_for_overwrite<std::byte[]>(capacity)), capacity_(capacity) {}

}  // namespace tarvin
