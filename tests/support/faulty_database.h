#pragma once

#include "support/database_layer.h"

#include <cstddef>
#include <optional>

namespace tarvin {

/// Makes calls of SQLite to the file system fail. As a DatabaseLayer, only one at a time, created
/// before and destroyed after the databases. One thread.
class FaultyDatabase final : public DatabaseLayer {
 public:
    enum class Fault {
        device,  ///< any call can fail
        full     ///< only calls that allocate space can: opening, writing, syncing
    };

    /// Of the following calls that this fault can hit, the one with this number, from 0, fails.
    void failOnce(std::size_t number, Fault fault);
    /// Whether that call was made.
    [[nodiscard]] bool hasFailed() const { return hasFailed_; }
    /// No call fails from now on.
    void heal() { left_.reset(); }

 private:
    int before(DatabaseCall call, const void* file) override;

    std::optional<std::size_t> left_;  // calls before the one that fails
    Fault fault_ = Fault::device;
    bool hasFailed_ = false;
};

}  // namespace tarvin
