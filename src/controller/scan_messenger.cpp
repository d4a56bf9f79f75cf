#include "controller/scan_messenger.h"

namespace tarvin {

void ScanMessenger::comparisonStarted(std::uint64_t total) {
    mailbox_.comparisonStarted(total);
    Q_EMIT comparisonBegins(total);
}

}  // namespace tarvin
