#pragma once

#include <condition_variable>
#include <cstddef>
#include <deque>
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
    /// A blocked take(). Each has a condition of its own, because waking all for each share that
    /// one can have costs more than the work with the share.
    struct Request {
        std::size_t amount = 0;
        bool isGranted = false;
        std::condition_variable granted;
    };

    void giveBack(std::size_t amount);

    std::mutex mutex_;
    std::size_t free_;               // guarded by mutex_
    std::deque<Request*> requests_;  // guarded by mutex_; the oldest first
    const std::size_t amount_;
};

}  // namespace tarvin
