#include "store/exception_file.h"

#include "platform/file_system.h"

#include <plist/plist.h>

#include <cerrno>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <span>
#include <system_error>

namespace tarvin {

namespace {

// Room for a million long paths.
constexpr std::uint64_t largestFile = 256 * 1024 * 1024;

using PropertyList = std::unique_ptr<void, decltype(&plist_free)>;

ExceptionList failure(const std::string& path, std::string text, bool missing = false) {
    return {{}, StoreError{path, std::move(text), missing}};
}

ExceptionList systemFailure(const std::string& path, int code) {
    return failure(path, std::generic_category().message(code), code == ENOENT);
}

std::vector<std::string> stringsOf(plist_t array) {
    std::vector<std::string> strings;
    const std::uint32_t count = plist_array_get_size(array);
    for (std::uint32_t index = 0; index < count; ++index) {
        std::uint64_t length = 0;
        const char* text = plist_get_string_ptr(plist_array_get_item(array, index), &length);
        if (text != nullptr) {
            strings.emplace_back(text, static_cast<std::size_t>(length));
        }
    }
    return strings;
}

}  // namespace

ExceptionList readExceptionFile(const std::string& path) {
    // The list may be kept elsewhere and linked to.
    std::error_code unresolved;
    const std::filesystem::path target = std::filesystem::canonical(path, unresolved);
    if (unresolved) {
        return systemFailure(path, unresolved.value());
    }
    FileSystem& fileSystem = systemFileSystem();
    const Result<Descriptor> file = fileSystem.openFile(target.native());
    if (!file) {
        return systemFailure(path, file.error().code);
    }
    const Result<FileAttributes> attributes = fileSystem.attributesOf(*file);
    if (!attributes) {
        return systemFailure(path, attributes.error().code);
    }
    if (attributes->type != EntryType::regular) {
        return failure(path, "not a regular file");
    }
    if (attributes->size > largestFile) {
        return failure(path, "the file is too large");
    }
    std::string bytes(static_cast<std::size_t>(attributes->size), '\0');
    const Result<std::size_t> got =
        fileSystem.readAt(*file, 0, std::as_writable_bytes(std::span(bytes)));
    if (!got) {
        return systemFailure(path, got.error().code);
    }
    bytes.resize(*got);
    plist_t root = nullptr;
    plist_from_memory(bytes.data(), static_cast<std::uint32_t>(bytes.size()), &root);
    const PropertyList list(root, &plist_free);
    if (!list || plist_get_node_type(list.get()) != PLIST_ARRAY) {
        return failure(path, "not a property list of paths");
    }
    return {stringsOf(list.get()), std::nullopt};
}

}  // namespace tarvin
