#pragma once

#include <condition_variable>
#include <cstddef>
#include <cstdint>
#include <mutex>

namespace tarvin {

/// A limit on how many of something, such as open files, are in use at once. Any thread.
class Budget final {
 public:
    explicit Budget(std::size_t amount) : free_(amount), amount_(amount) {}
    Budget(const Budget&) = delete;
    Budget& operator=(const Budget&) = delete;

    /// A part of the budget. Released on destruction.
    class Share final {
     public:
        Share() = default;
        Share(Budget& budget, std::size_t amount) : budget_(&budget), amount_(amount) {}
        Share(Share&& other) noexcept;
        Share& operator=(Share&& other) noexcept;
        ~Share() { release(); }

        explicit operator bool() const { return budget_ != nullptr; }
        [[nodiscard]] std::size_t amount() const { return amount_; }
        void release();
        /// Moves `amount`, or all there is if that is less, into a new share.
        [[nodiscard]] Share split(std::size_t amount);

     private:
        Budget* budget_ = nullptr;
        std::size_t amount_ = 0;
    };

    /// Blocks until `amount` is free. First in, first out, so that small requests do not starve a
    /// large one. Requests above the whole budget get the whole budget. A caller that holds a share
    /// of this budget must not call take(): it could wait for itself.
    [[nodiscard]] Share take(std::size_t amount);
    /// The same without blocking. Returns an empty share if that much is not free or others wait.
    [[nodiscard]] Share tryTake(std::size_t amount);

    [[nodiscard]] std::size_t amount() const { return amount_; }

 private:
    void giveBack(std::size_t amount);

    std::mutex mutex_;
    std::condition_variable freed_;
    std::size_t free_;              // guarded by mutex_
    std::uint64_t nextTicket_ = 0;  // guarded by mutex_; of the next request
    std::uint64_t served_ = 0;      // guarded by mutex_; tickets below this have their share
    const std::size_t amount_;
};

}  // namespace tarvin
