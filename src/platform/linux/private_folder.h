#pragma once

#include "platform/result.h"

#include <string>

namespace tarvin {

/// A folder that this user alone can look into and change, held open, so that it stays the same one
/// whatever happens to its name. Any thread.
class PrivateFolder final {
 public:
    /// Opens the folder, made if it is missing; the one above it must be there. Refuses one that
    /// belongs to somebody else or that others may enter, and a link in its place, with EACCES or
    /// the system's reason.
    static Result<PrivateFolder> open(const std::string& path);

    PrivateFolder(PrivateFolder&& other) noexcept;
    PrivateFolder& operator=(PrivateFolder&& other) noexcept;
    PrivateFolder(const PrivateFolder&) = delete;
    PrivateFolder& operator=(const PrivateFolder&) = delete;
    ~PrivateFolder();

    [[nodiscard]] int number() const { return number_; }
    /// A path to the folder, or to an entry in it, that is good while this object is. Short,
    /// however deep the folder lies.
    [[nodiscard]] std::string path() const;
    [[nodiscard]] std::string pathOf(const std::string& name) const { return path() + '/' + name; }

 private:
    explicit PrivateFolder(int number) : number_(number) {}

    int number_;
};

}  // namespace tarvin
