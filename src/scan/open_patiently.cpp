#include "scan/open_patiently.h"

#include <cerrno>
#include <chrono>
#include <thread>

namespace tarvin {

namespace {

constexpr int mostTries = 400;
constexpr std::chrono::milliseconds betweenTries{5};

bool isShortage(SystemError error) {
    return error.code == EMFILE || error.code == ENFILE;
}

}  // namespace

Result<Descriptor> openPatiently(const ScanControl& control,
                                 const std::function<Result<Descriptor>()>& open) {
    Result<Descriptor> descriptor = open();
    for (int tries = 0; !descriptor && isShortage(descriptor.error()) && tries < mostTries;
         ++tries) {
        if (!control.mayGoOn()) {
            break;
        }
        std::this_thread::sleep_for(betweenTries);
        descriptor = open();
    }
    return descriptor;
}

}  // namespace tarvin
