#pragma once

#include "cli/result_writer.h"

namespace tarvin {

/// One JSON object with the keys of the result tree and dates in UTC. In a name that is not valid
/// UTF-8, U+FFFD replaces the invalid bytes, and another key has its exact bytes in hexadecimal.
/// Control and bidirectional characters are escaped. All five categories are always present. Ends
/// with a newline.
class JsonWriter final : public ResultWriter {
 public:
    void write(const ScanReport& report, Output& output) const override;
};

}  // namespace tarvin
