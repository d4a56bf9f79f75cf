#include "report/list_reader.h"
#include "scan/listed_files.h"
#include "text/hexadecimal.h"
#include "text/utf8.h"

#include <nlohmann/json.hpp>
#include <sys/mman.h>
#include <unistd.h>

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <iostream>
#include <string>
#include <string_view>
#include <variant>

namespace {

using Read = std::variant<tarvin::ListedFiles, tarvin::ListError>;

[[noreturn]] void fail(const char* what) {
    std::cerr << what << '\n';
    std::abort();
}

Read readFrom(std::string_view text) {
    const int file = ::memfd_create("list", MFD_CLOEXEC);
    if (file < 0 || ::write(file, text.data(), text.size()) != static_cast<ssize_t>(text.size()) ||
        ::lseek(file, 0, SEEK_SET) != 0) {
        fail("no memory file");
    }
    Read read = tarvin::readListedFiles(file);
    ::close(file);
    return read;
}

/// The list with one set for each file, so that each stays by itself.
std::string listOf(const tarvin::ListedFiles& files) {
    std::string text = R"({"version": 1, "categories": [{"extensions": [{"sets": [)";
    std::string_view separator;
    for (const tarvin::ListedFile& file : files) {
        text += separator;
        text += R"({"files": [{"filePath": )";
        text += nlohmann::json(tarvin::withBadBytesReplaced(file.path)).dump();
        text += R"(, "filePathBytes": ")" + tarvin::hexadecimal(file.path) + "\"}]}";
        separator = ", ";
    }
    return text + "]}]}]}";
}

void checkRules(tarvin::ListedFiles files) {
    tarvin::checkListedFiles(files);
    std::uint32_t set = 0;
    bool keeps = true;
    for (const tarvin::ListedFile& file : files) {
        if (file.set != set) {
            if (file.set < set || !keeps) {
                fail("sets are not ascending, or one keeps no file");
            }
            set = file.set;
            keeps = false;
        }
        keeps = keeps || file.keep;
        const bool mayBeMoved = file.state == tarvin::ListedState::usable && !file.keep;
        if (mayBeMoved && !file.path.starts_with('/')) {
            fail("a relative path may be moved");
        }
    }
}

}  // namespace

/// Reading must return. What it has read is no longer than the input, obeys the rules of a list and
/// survives a round trip.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const void* const bytes = data;
    const std::string_view input(static_cast<const char*>(bytes), size);
    const Read read = readFrom(input);
    if (const auto* const error = std::get_if<tarvin::ListError>(&read)) {
        if (error->reason.empty()) {
            fail("a refusal has no reason");
        }
        return 0;
    }
    const auto& files = std::get<tarvin::ListedFiles>(read);
    std::size_t length = 0;
    for (const tarvin::ListedFile& file : files) {
        length += file.path.size();
    }
    if (length > size) {
        fail("more bytes than the input has");
    }
    checkRules(files);
    const Read again = readFrom(listOf(files));
    const auto* const same = std::get_if<tarvin::ListedFiles>(&again);
    if (same == nullptr || same->size() != files.size()) {
        fail("files were lost in a round trip");
    }
    for (std::size_t place = 0; place < files.size(); ++place) {
        if ((*same)[place].path != files[place].path ||
            (*same)[place].state != tarvin::ListedState::usable) {
            fail("a path changed in a round trip");
        }
    }
    return 0;
}
