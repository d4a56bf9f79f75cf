#include "scan/buffer_pool.h"

#include <algorithm>
#include <utility>

namespace tarvin {

BufferPool::Lease::Lease(BufferPool& pool, Budget::Share share)
    : pool_(&pool), share_(std::move(share)) {
    slabs_.reserve(share_.amount());
    slabs_.push_back(pool.takeSlab());
}

BufferPool::Lease::~Lease() {
    if (share_) {
        pool_->giveBack(std::move(slabs_));
    }
}

std::span<std::byte> BufferPool::Lease::allocate(std::size_t bytes) {
    if (used_ + bytes > slabBytes) {
        if (slab_ + 1 == share_.amount()) {
            return {};
        }
        ++slab_;
        used_ = 0;
        // Taken late, because most leases never need more than their first slab.
        if (slab_ == slabs_.size()) {
            slabs_.push_back(pool_->takeSlab());
        }
    }
    const std::span<std::byte> chunk(slabs_[slab_].get() + used_, bytes);
    used_ += bytes;
    return chunk;
}

void BufferPool::Lease::rewind() {
    slab_ = 0;
    used_ = 0;
}

BufferPool::Lease BufferPool::take(std::size_t slabs) {
    return {*this, budget_.take(slabs)};
}

std::vector<BufferPool::Lease> BufferPool::takeSeveral(std::size_t count, std::size_t slabsEach) {
    const std::size_t some = std::min(count, maxSlabs());
    const std::size_t each = std::min(slabsEach, maxSlabs() / some);
    Budget::Share all = budget_.take(some * each);
    std::vector<Lease> leases;
    leases.reserve(some);
    for (std::size_t lease = 0; lease < some; ++lease) {
        leases.push_back({*this, all.split(each)});
    }
    return leases;
}

std::size_t BufferPool::bytesAllocated() {
    const std::lock_guard lock(mutex_);
    return slabsMade_ * slabBytes;
}

ReadBuffer BufferPool::takeSlab() {
    {
        const std::lock_guard lock(mutex_);
        if (!idle_.empty()) {
            ReadBuffer slab = std::move(idle_.back());
            idle_.pop_back();
            return slab;
        }
        ++slabsMade_;
    }
    return makeReadBuffer(slabBytes);
}

void BufferPool::giveBack(std::vector<ReadBuffer>&& slabs) {
    const std::lock_guard lock(mutex_);
    for (ReadBuffer& slab : slabs) {
        idle_.push_back(std::move(slab));
    }
}

}  // namespace tarvin
