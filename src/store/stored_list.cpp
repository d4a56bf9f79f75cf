#include "store/stored_list.h"

#include "platform/durable_file.h"
#include "platform/file_system.h"

#include <cerrno>
#include <cstdint>
#include <filesystem>
#include <span>
#include <system_error>
#include <utility>

namespace tarvin {

namespace {

// A million long paths. Bytes.
constexpr std::uint64_t maxFileBytes = 256 * 1024 * 1024;
constexpr std::string_view unusableSuffix = ".unreadable";

}  // namespace

StoreError storeErrorOf(const std::string& path, SystemError error) {
    switch (error.code) {
        case ENOENT:
            return {path, error.text(), StoreError::Kind::missing};
        case EACCES:
        case EPERM:
        case ELOOP:
        case EISDIR:
            return {path, error.text(), StoreError::Kind::unusable};
        default:
            return {path, error.text(), StoreError::Kind::passing};
    }
}

std::variant<PropertyList, StoreError> readStoredList(const std::string& path) {
    // openFile() does not follow a symbolic link.
    std::error_code unresolved;
    const std::filesystem::path target = std::filesystem::canonical(path, unresolved);
    if (unresolved) {
        return storeErrorOf(path, SystemError{unresolved.value()});
    }
    FileSystem& fileSystem = systemFileSystem();
    const Result<Descriptor> file = fileSystem.openFile(target.native());
    if (!file) {
        return storeErrorOf(path, file.error());
    }
    const Result<FileAttributes> attributes = fileSystem.attributesOf(*file);
    if (!attributes) {
        return storeErrorOf(path, attributes.error());
    }
    if (attributes->type != EntryType::regular) {
        return StoreError{path, "not a regular file"};
    }
    if (attributes->size > maxFileBytes) {
        return StoreError{path, "the file is too large"};
    }
    std::string bytes(static_cast<std::size_t>(attributes->size), '\0');
    const Result<std::size_t> got =
        fileSystem.readAt(*file, 0, std::as_writable_bytes(std::span(bytes)));
    if (!got) {
        return storeErrorOf(path, got.error());
    }
    bytes.resize(*got);
    std::optional<PropertyList> list = PropertyList::parse(bytes);
    if (!list) {
        return StoreError{path, "not a property list"};
    }
    return std::move(*list);
}

std::optional<StoreError> writeStoredList(const std::string& path, const PropertyList& list) {
    const std::string xml = list.xml();
    if (xml.empty()) {
        return storeErrorOf(path, SystemError{ENOMEM});
    }
    const std::optional<SystemError> failure = replaceFile(path, xml);
    return failure ? std::optional(storeErrorOf(path, *failure)) : std::nullopt;
}

std::variant<std::string, StoreError> moveAside(const StoreError& error) {
    if (error.kind == StoreError::Kind::missing) {
        return std::string();
    }
    if (error.kind == StoreError::Kind::passing) {
        return error;
    }
    const Result<std::string> aside = putAside(error.path, unusableSuffix);
    if (!aside) {
        return storeErrorOf(error.path, aside.error());
    }
    return *aside;
}

}  // namespace tarvin
