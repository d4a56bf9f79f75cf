#include "scan/budget.h"

#include "scan/inner_wait.h"

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
    if (requests_.empty() && free_ >= wanted) {
        free_ -= wanted;
        return Share(*this, wanted);
    }
    Request request;
    request.amount = wanted;
    requests_.push_back(&request);
    const InnerWait wait;
    request.granted.wait(lock, [&request] { return request.isGranted; });
    return Share(*this, wanted);
}

Budget::Share Budget::tryTake(std::size_t amount) {
    const std::lock_guard lock(mutex_);
    if (free_ < amount || !requests_.empty()) {
        return {};
    }
    free_ -= amount;
    return Share(*this, amount);
}

void Budget::giveBack(std::size_t amount) {
    const std::lock_guard lock(mutex_);
    free_ += amount;
    while (!requests_.empty() && free_ >= requests_.front()->amount) {
        Request& next = *requests_.front();
        requests_.pop_front();
        free_ -= next.amount;
        next.isGranted = true;
        // With the lock held: the request ends with the wait of its thread.
        next.granted.notify_one();
    }
}

}  // namespace tarvin
