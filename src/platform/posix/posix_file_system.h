#pragma once

#include "platform/file_system.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>

namespace tarvin {

/// A date of the file system, cut to what a Timestamp can hold.
[[nodiscard]] Timestamp timestampFrom(std::int64_t seconds, std::int64_t nanoseconds);
/// The same for a `timespec`, or a system's own.
template <typename Time>
[[nodiscard]] Timestamp timestampFrom(const Time& time) {
    return timestampFrom(time.tv_sec, time.tv_nsec);
}

/// The type of a mode of `stat`.
[[nodiscard]] EntryType typeOfMode(std::uint32_t mode);

/// What POSIX systems have in common: opening relative to open folders, reading and the limit of
/// open files. Attributes and listings are each system's own.
class PosixFileSystem : public FileSystem {
 public:
    Result<Descriptor> openRootDirectory(const std::string& path) override;
    Result<Descriptor> openDirectory(const std::string& path) override;
    Result<Descriptor> openDirectoryAt(const Descriptor& parent, const char* name) override;

    Result<FileAttributes> attributesAt(const Descriptor& directory, const char* name) override;
    Result<FileAttributes> targetAttributesAt(const Descriptor& directory,
                                              const char* name) override;

    Result<std::size_t> readAtLeast(const Descriptor& file, std::uint64_t offset,
                                    std::span<std::byte> into, std::size_t enough) override;

    std::size_t descriptorLimit() override;

 protected:
    /// Those of `open` for reading a file: does not wait for the other end of a pipe and does not
    /// take over a terminal.
    static const int fileFlags;

    /// `mostDescriptors` is the result of descriptorLimit() if the process may have more.
    explicit PosixFileSystem(std::size_t mostDescriptors) : mostDescriptors_(mostDescriptors) {}

    /// The metadata at `name` relative to an open folder, with AT_FDCWD to the current one; `flags`
    /// are those of `fstatat`.
    virtual Result<FileAttributes> attributesFrom(int directory, const char* name, int flags) = 0;
    /// Owns the result of `open`; if that is negative, returns the error of errno.
    virtual Result<Descriptor> opened(int number);
    /// nullopt if nothing is there.
    [[nodiscard]] std::optional<FileIdentity> identityAt(const std::optional<std::string>& path);

    void close(int number) override;

 private:
    const std::size_t mostDescriptors_;
};

}  // namespace tarvin
