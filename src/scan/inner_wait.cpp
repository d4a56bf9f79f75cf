#include "scan/inner_wait.h"

namespace tarvin {

namespace {

thread_local std::chrono::nanoseconds innerWaits{0};

}  // namespace

InnerWait::~InnerWait() {
    innerWaits += std::chrono::steady_clock::now() - begin_;
}

std::chrono::nanoseconds InnerWait::ofThisThread() {
    return innerWaits;
}

}  // namespace tarvin
