#pragma once

#include <cstddef>
#include <memory>

namespace tarvin {

/// Lets calls of SQLite to the system fail, as long as it lives: databases that are opened
/// meanwhile go through it. One at a time, to be made before and destroyed after those databases.
/// One thread.
class FaultyDatabase final {
 public:
    enum class Fault {
        device,  ///< every call can fail
        full     ///< only what takes room can: opening, writing, flushing
    };

    FaultyDatabase();
    FaultyDatabase(const FaultyDatabase&) = delete;
    FaultyDatabase& operator=(const FaultyDatabase&) = delete;
    ~FaultyDatabase();

    /// The call of this number, from 0, of those that follow and can fail so does not happen.
    void failOnce(std::size_t number, Fault fault);
    /// Whether that call has come.
    [[nodiscard]] bool hasFailed() const;
    /// Nothing fails from now on.
    void heal();

    struct Layer;

 private:
    const std::unique_ptr<Layer> layer_;
};

}  // namespace tarvin
