#pragma once

#include "platform/read_buffer.h"
#include "scan/budget.h"

#include <cstddef>
#include <mutex>
#include <span>
#include <vector>

namespace tarvin {

/// The memory that comparisons read into: a fixed maximum number of slabs, shared by all of them
/// and kept once allocated. Any thread.
class BufferPool final {
 public:
    static constexpr std::size_t slabBytes = 1024 * 1024;

    explicit BufferPool(std::size_t maxSlabs) : budget_(maxSlabs) {}
    BufferPool(const BufferPool&) = delete;
    BufferPool& operator=(const BufferPool&) = delete;

    /// Slabs lent to one comparison, which allocates chunks from them. Returns them to the pool on
    /// destruction. Slabs are aligned as ReadBuffer is. One thread at a time.
    class Lease final {
     public:
        Lease(Lease&&) noexcept = default;
        Lease& operator=(Lease&&) = delete;
        ~Lease();

        /// Returns the next free chunk of `bytes`, at most a slab; empty when the lease is used up.
        [[nodiscard]] std::span<std::byte> allocate(std::size_t bytes);
        /// Total bytes.
        [[nodiscard]] std::size_t capacity() const { return share_.amount() * slabBytes; }
        /// Frees everything that was allocated from the lease.
        void rewind();

     private:
        friend class BufferPool;
        Lease(BufferPool& pool, Budget::Share share);

        BufferPool* pool_;
        Budget::Share share_;
        std::vector<ReadBuffer> slabs_;
        std::size_t slab_ = 0;  // the one allocated from
        std::size_t used_ = 0;  // bytes of it
    };

    /// Blocks until that many slabs are free. The caller must not hold a lease.
    [[nodiscard]] Lease take(std::size_t slabs);
    /// The same for `count` leases at once. If the pool is too small, each lease gets fewer slabs,
    /// but at least one, and there are fewer leases if necessary.
    [[nodiscard]] std::vector<Lease> takeSeveral(std::size_t count, std::size_t slabsEach);

    [[nodiscard]] std::size_t maxSlabs() const { return budget_.amount(); }
    /// Bytes of all slabs, lent or idle.
    [[nodiscard]] std::size_t bytesAllocated();

 private:
    ReadBuffer takeSlab();
    void giveBack(std::vector<ReadBuffer>&& slabs);

    Budget budget_;
    std::mutex mutex_;
    std::vector<ReadBuffer> idle_;  // guarded by mutex_
    std::size_t slabsMade_ = 0;     // guarded by mutex_
};

}  // namespace tarvin
