#pragma once

#include <condition_variable>
#include <cstddef>
#include <cstdint>
#include <mutex>

namespace tarvin {

/// A number of things that may be in use at once, such as open files. Any thread.
class Budget final {
 public:
    explicit Budget(std::size_t amount) : free_(amount), amount_(amount) {}
    Budget(const Budget&) = delete;
    Budget& operator=(const Budget&) = delete;

    /// What has been taken, given back when it ends.
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
        /// Passes `amount` of this share on as a share of its own.
        [[nodiscard]] Share split(std::size_t amount);

     private:
        Budget* budget_ = nullptr;
        std::size_t amount_ = 0;
    };

    /// Waits until `amount` is free; who came first is served first, so that a large request is not
    /// starved by small ones. A caller that holds a share of the same budget must not wait for
    /// another. Asking for more than there is gets all there is.
    [[nodiscard]] Share take(std::size_t amount);
    /// The same without waiting: an empty share if that much is not free or others wait.
    [[nodiscard]] Share tryTake(std::size_t amount);

    [[nodiscard]] std::size_t amount() const { return amount_; }

 private:
    void giveBack(std::size_t amount);

    std::mutex mutex_;
    std::condition_variable freed_;
    std::size_t free_;              // guarded by mutex_
    std::uint64_t nextTicket_ = 0;  // guarded by mutex_; of who comes next
    std::uint64_t served_ = 0;      // guarded by mutex_; tickets below this have got their share
    const std::size_t amount_;
};

}  // namespace tarvin
