#include "model/file.h"

#include "model/file_mover.h"

#include <algorithm>

namespace tarvin {

namespace {

void appendDirectoryPath(const Directory& directory, std::string& out) {
    // Written from the end backwards, so that a tree of thousands of levels needs no recursion.
    const std::size_t start = out.size();
    out.resize(start + directory.pathLength);
    char* end = out.data() + out.size();
    for (const Directory* at = &directory; at != nullptr; at = at->parent) {
        end -= at->nameLength;
        std::char_traits<char>::copy(end, at->name, at->nameLength);
        if (at->parent != nullptr) {
            *--end = '/';
        }
    }
}

}  // namespace

std::string Directory::path() const {
    if (pathLength == 0) {
        return "/";
    }
    std::string out;
    appendDirectoryPath(*this, out);
    return out;
}

std::string Directory::pathOf(std::string_view entryName) const {
    std::string out;
    out.reserve(pathLength + 1 + entryName.size());
    appendDirectoryPath(*this, out);
    out += '/';
    out += entryName;
    return out;
}

File::File(const Directory* directory, std::string_view name, std::uint64_t fileSize,
           std::optional<Timestamp> fileModificationDate, std::optional<Timestamp> fileCreationDate)
    : directory_(directory),
      name_(name.data()),
      fileSize_(fileSize),
      modified_(toRaw(fileModificationDate)),
      created_(toRaw(fileCreationDate)),
      nameLength_(static_cast<std::uint32_t>(name.size()) & 0x7FFFFFU) {}

bool File::removeFile(SetMover& mover) const {
    return mover.move(*this);
}

std::string File::filePath() const {
    std::string path;
    appendFilePath(path);
    return path;
}

void File::appendFilePath(std::string& out) const {
    const std::string_view name = fileName();
    out.reserve(out.size() + directory_->pathLength + 1 + name.size());
    appendDirectoryPath(*directory_, out);
    out += '/';
    out += name;
}

std::int64_t File::toRaw(std::optional<Timestamp> date) {
    if (!date) {
        return noDate;
    }
    // The earliest time means "no date", so a date at that end of the range moves up by 1 ns.
    return std::max<std::int64_t>(date->time_since_epoch().count(), noDate + 1);
}

std::optional<Timestamp> File::fromRaw(std::int64_t raw) {
    if (raw == noDate) {
        return std::nullopt;
    }
    return Timestamp(std::chrono::nanoseconds(raw));
}

}  // namespace tarvin
