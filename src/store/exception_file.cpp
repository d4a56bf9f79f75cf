#include "store/exception_file.h"

#include <plist/plist.h>

#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <limits>
#include <memory>
#include <system_error>

namespace tarvin {

namespace {

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
    const std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(std::fopen(path.c_str(), "rbe"),
                                                               &std::fclose);
    if (!file) {
        return systemFailure(path, errno);
    }
    std::string bytes;
    char block[16 * 1024];
    for (std::size_t got = 0; (got = std::fread(block, 1, sizeof block, file.get())) > 0;) {
        bytes.append(block, got);
    }
    if (std::ferror(file.get()) != 0) {
        return systemFailure(path, errno);
    }
    if (bytes.size() > std::numeric_limits<std::uint32_t>::max()) {
        return failure(path, "the file is too large");
    }
    plist_t root = nullptr;
    plist_from_memory(bytes.data(), static_cast<std::uint32_t>(bytes.size()), &root);
    const PropertyList list(root, &plist_free);
    if (!list || plist_get_node_type(list.get()) != PLIST_ARRAY) {
        return failure(path, "not a property list of paths");
    }
    return {stringsOf(list.get()), std::nullopt};
}

}  // namespace tarvin
