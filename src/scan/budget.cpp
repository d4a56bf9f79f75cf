#include "scan/budget.h"

#include <algorithm>
#include <utility>

namespace tarvin {

Budget::Share::Share(Share&& other) noexcept
    : budget_(std::exchange(other.budget_, nullptr)), amount_(std::exchange(other.amount_, 0)) {}

Budget::Share& Budget::Share::operator=(Share&& other) noexcept {
    if (this != &other) {
        release();
        budget_ = std::exchange(other.budget_, nullptr);
        amount_ = std::exchange(other.amount_, 0);
    }
    return *this;
}

void Budget::Share::release() {
    if (budget_ != nullptr) {
        budget_->giveBack(amount_);
        budget_ = nullptr;
        amount_ = 0;
    }
}

Budget::Share Budget::Share::split(std::size_t amount) {
    const std::size_t passed = std::min(amount, amount_);
    amount_ -= passed;
    return Share(*budget_, passed);
}

Budget::Share Budget::take(std::size_t amount) {
    const std::size_t wanted = std::min(amount, amount_);
    std::unique_lock lock(mutex_);
    const std::uint64_t ticket = nextTicket_++;
    freed_.wait(lock, [&] { return served_ == ticket && free_ >= wanted; });
    free_ -= wanted;
    if (++served_ != nextTicket_) {
        freed_.notify_all();
    }
    return Share(*this, wanted);
}

Budget::Share Budget::tryTake(std::size_t amount) {
    const std::lock_guard lock(mutex_);
    if (free_ < amount || served_ != nextTicket_) {
        return {};
    }
    free_ -= amount;
    return Share(*this, amount);
}

void Budget::giveBack(std::size_t amount) {
    {
        const std::lock_guard lock(mutex_);
        free_ += amount;
    }
    freed_.notify_all();
}

}  // namespace tarvin
