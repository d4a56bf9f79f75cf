#pragma once

#include "cli/output.h"
#include "platform/atomic_file.h"
#include "platform/result.h"
#include "platform/unique_fd.h"

#include <memory>
#include <optional>
#include <string>
#include <variant>

namespace tarvin {

/// The place a result is written to. A regular file appears, or replaces the one that was there,
/// only when all of the result is safely in it: until then it is a file beside it whose name begins
/// with ".tarvin-". Standard output, pipes and devices are written as they are. Made and used on
/// one thread, but for removeTemporary().
class OutputFile final {
 public:
    /// Finds out whether the place can be written to, and for a regular file makes sure of it by
    /// beginning one. "-" is standard output. Opening a named pipe waits for its reader.
    static Result<std::unique_ptr<OutputFile>> open(const std::string& path,
                                                    FileCalls& calls = systemFileCalls());

    OutputFile(const OutputFile&) = delete;
    OutputFile& operator=(const OutputFile&) = delete;
    /// Without a successful commit() a regular file is left as it was.
    ~OutputFile() = default;

    [[nodiscard]] Output& output() { return output_; }

    /// Hands on what is left and, for a regular file, puts the new one in its place. Once only.
    /// Answers the first failure, that of an earlier portion included.
    [[nodiscard]] std::optional<SystemError> commit();

    /// Keeps what has been written so far under the name it has now, and answers that name; empty
    /// if there is no such file. For a result that is worth keeping even if it is not whole.
    std::string keepUnfinished();

    /// Removes what has been begun, for a program that is about to end. Any thread.
    void removeTemporary() const;

 private:
    /// What is closed, or renamed into place, at the end. Empty for standard output.
    using Owner = std::variant<UniqueFd, std::unique_ptr<AtomicFile>>;

    OutputFile(int descriptor, Owner owner);

    static std::unique_ptr<OutputFile> writingTo(int descriptor, Owner owner);
    static Result<std::unique_ptr<OutputFile>> openDirectly(const std::string& path);
    static Result<std::unique_ptr<OutputFile>> beginBeside(const std::string& target,
                                                           FileCalls& calls);
    /// Null if the place is written to directly.
    [[nodiscard]] const std::unique_ptr<AtomicFile>* replacement() const {
        return std::get_if<std::unique_ptr<AtomicFile>>(&owner_);
    }

    Owner owner_;
    Output output_;
};

}  // namespace tarvin
