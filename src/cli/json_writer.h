#pragma once

#include "cli/result_writer.h"

namespace tarvin {

/// One JSON object, its keys named as in the result tree, its dates in UTC. A name that is not
/// UTF-8 has U+FFFD for its bad bytes and its exact bytes in hexadecimal under a key of its own.
/// Characters that are not harmless on a terminal are escaped. The five categories are always
/// there. Ends with a line end.
class JsonWriter final : public ResultWriter {
 public:
    void write(const ScanReport& report, Output& output) const override;
};

}  // namespace tarvin
