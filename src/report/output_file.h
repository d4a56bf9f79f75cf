#pragma once

#include "platform/atomic_file.h"
#include "platform/result.h"
#include "platform/unique_fd.h"
#include "report/output.h"

#include <memory>
#include <optional>
#include <string>
#include <variant>

namespace tarvin {

/// The target of a result. A regular file is created or replaced atomically, when the whole result
/// is on disk; until then the result is in a temporary file in the same folder, whose name begins
/// with ".tarvin-". Standard output, pipes and devices are written directly. One thread, except
/// removeTemporary().
class OutputFile final {
 public:
    /// Checks that the target can be written and, for a regular file, creates the temporary file.
    /// "-" is standard output. Blocks until a named pipe has a reader. A symbolic link stays, and
    /// the file that it leads to is replaced; a link to nothing is refused, as it may lead to a
    /// volume that is not mounted. The error is the system's text, or "a link to a missing file".
    static Result<std::unique_ptr<OutputFile>, std::string> open(
        const std::string& path, FileCalls& calls = systemFileCalls());

    /// The same for a target that has to be a regular file or a new name: never blocks on the
    /// target itself, and "-" is a name. The error may also be "not a regular file".
    static Result<std::unique_ptr<OutputFile>, std::string> openRegular(
        const std::string& path, FileCalls& calls = systemFileCalls());

    OutputFile(const OutputFile&) = delete;
    OutputFile& operator=(const OutputFile&) = delete;
    /// Without a successful commit() a regular file has not changed.
    ~OutputFile() = default;

    [[nodiscard]] Output& output() { return output_; }

    /// Flushes the output and completes the target. Returns the first failure, also of an earlier
    /// write. Call at most once.
    [[nodiscard]] std::optional<SystemError> commit();

    /// Keeps the temporary file with what was written so far, for a result that is useful even if
    /// incomplete. Returns its path; empty if there is none.
    std::string keepUnfinished();

    /// Removes the temporary file, for a program that is about to end. Any thread.
    void removeTemporary() const;

 private:
    /// The descriptor to close or the file to commit. Empty for standard output.
    using Owner = std::variant<UniqueFd, std::unique_ptr<AtomicFile>>;

    OutputFile(int descriptor, Owner owner);

    using Opened = Result<std::unique_ptr<OutputFile>, std::string>;

    static std::unique_ptr<OutputFile> writingTo(int descriptor, Owner owner);
    static Opened openNew(const std::string& path, FileCalls& calls);
    static Opened withText(Result<std::unique_ptr<OutputFile>>&& opened);
    static Result<std::unique_ptr<OutputFile>> openDirectly(const std::string& path);
    static Result<std::unique_ptr<OutputFile>> beginInPlaceOf(const std::string& present,
                                                              FileCalls& calls);
    static Result<std::unique_ptr<OutputFile>> beginBeside(const std::string& target,
                                                           FileCalls& calls);
    /// nullptr if the target is written directly.
    [[nodiscard]] const std::unique_ptr<AtomicFile>* replacement() const {
        return std::get_if<std::unique_ptr<AtomicFile>>(&owner_);
    }

    Owner owner_;
    Output output_;
};

}  // namespace tarvin
