#include "scan/open_with_retry.h"

#include <cerrno>
#include <cstdint>
#include <thread>

namespace tarvin {

namespace {

using SteadyClock = std::chrono::steady_clock;

constexpr std::chrono::milliseconds retryInterval{5};

}  // namespace

bool isShortageOfDescriptors(SystemError error) {
    return error.code == EMFILE || error.code == ENFILE;
}

Result<Descriptor> openWithRetry(const FileSystem& fileSystem, const ScanControl& control,
                                 const std::function<Result<Descriptor>()>& open,
                                 std::chrono::milliseconds patience) {
    Result<Descriptor> descriptor = open();
    if (descriptor || !isShortageOfDescriptors(descriptor.error())) {
        return descriptor;
    }
    std::uint64_t closed = fileSystem.descriptorsClosed();
    SteadyClock::time_point lastClosed = SteadyClock::now();
    while (!descriptor && isShortageOfDescriptors(descriptor.error()) && control.mayGoOn()) {
        const std::uint64_t closedNow = fileSystem.descriptorsClosed();
        if (closedNow != closed) {
            closed = closedNow;
            lastClosed = SteadyClock::now();
        } else if (SteadyClock::now() - lastClosed > patience) {
            break;
        }
        std::this_thread::sleep_for(retryInterval);
        descriptor = open();
    }
    return descriptor;
}

}  // namespace tarvin
