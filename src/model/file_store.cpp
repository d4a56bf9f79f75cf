#include "model/file_store.h"

#include <algorithm>
#include <new>
#include <type_traits>

namespace tarvin {

namespace {

constexpr std::size_t nameBlockBytes = 64 * 1024;
constexpr std::size_t filesPerBlock = 1024;

static_assert(std::is_trivially_destructible_v<File>, "blocks of files are freed as raw memory");

bool isBundleName(std::string_view name) {
    return name.ends_with(".app") || name.ends_with(".framework");
}

bool containsBundle(std::string_view path) {
    return path.find(".app/") != std::string_view::npos ||
           path.find(".framework/") != std::string_view::npos || isBundleName(path);
}

}  // namespace

FileStore::FileStore() = default;
FileStore::~FileStore() = default;

std::shared_ptr<FileStore> FileStore::create() {
    return std::shared_ptr<FileStore>(new FileStore);
}

Directory* FileStore::addRoot(std::string_view path) {
    while (!path.empty() && path.back() == '/') {
        path.remove_suffix(1);
    }
    Directory& root = directories_.emplace_back();
    root.name = keepName(path).data();
    root.nameLength = static_cast<std::uint32_t>(path.size());
    root.pathLength = root.nameLength;
    root.insideBundle = containsBundle(path);
    return &root;
}

Directory* FileStore::addDirectory(const Directory* parent, std::string_view name) {
    Directory& directory = directories_.emplace_back();
    directory.parent = parent;
    directory.name = keepName(name).data();
    directory.nameLength = static_cast<std::uint32_t>(name.size());
    directory.pathLength = parent->pathLength + 1 + directory.nameLength;
    directory.insideBundle = parent->insideBundle || isBundleName(name);
    return &directory;
}

File* FileStore::addFile(const Directory* directory, std::string_view name, std::uint64_t fileSize,
                         std::optional<Timestamp> modified, std::optional<Timestamp> created) {
    if (fileBlocks_.empty() || fileBlockUsed_ == filesPerBlock) {
        fileBlocks_.push_back(
            std::make_unique_for_overwrite<std::byte[]>(filesPerBlock * sizeof(File)));
        fileBlockUsed_ = 0;
    }
    std::byte* memory = fileBlocks_.back().get() + fileBlockUsed_ * sizeof(File);
    ++fileBlockUsed_;
    ++fileCount_;
    return new (memory) File(directory, keepName(name), fileSize, modified, created);
}

File* FileStore::addFile(const Directory* directory, std::string_view name,
                         const FileAttributes& attributes) {
    File* const file =
        addFile(directory, name, attributes.size, attributes.modified, attributes.created);
    if (keepsVersions_) {
        FileVersion& version = versions_.emplace_back();
        version.identity = attributes.identity;
        version.changed = attributes.changed;
        version.linkCount = attributes.linkCount;
        file->state_ = &version;
        file->hasVersion_ = 1;
    }
    return file;
}

void FileStore::keepCompared(File& file, const ComparedState& state) {
    if (FileVersion* const version = file.version()) {
        static_cast<ComparedState&>(*version) = state;
        version->isCompared = true;
        return;
    }
    const std::lock_guard lock(comparedMutex_);
    file.state_ = &compared_.emplace_back(state);
}

std::shared_ptr<File> FileStore::share(File* file) {
    return std::shared_ptr<File>(shared_from_this(), file);
}

std::shared_ptr<File> FileStore::standalone(std::string_view path, std::uint64_t fileSize,
                                            std::optional<Timestamp> modified,
                                            std::optional<Timestamp> created) {
    const std::size_t slash = path.rfind('/');
    const bool hasFolder = slash != std::string_view::npos;
    const std::shared_ptr<FileStore> store = create();
    const Directory* directory = store->addRoot(hasFolder ? path.substr(0, slash) : "");
    const std::string_view name = hasFolder ? path.substr(slash + 1) : path;
    return store->share(store->addFile(directory, name, fileSize, modified, created));
}

std::string_view FileStore::keepName(std::string_view name) {
    const std::size_t needed = name.size() + 1;
    if (nameBlocks_.empty() || nameBlockUsed_ + needed > nameBlockSize_) {
        nameBlockSize_ = std::max(needed, nameBlockBytes);
        nameBlocks_.push_back(std::make_unique_for_overwrite<char[]>(nameBlockSize_));
        nameBlockUsed_ = 0;
    }
    char* text = nameBlocks_.back().get() + nameBlockUsed_;
    name.copy(text, name.size());
    text[name.size()] = '\0';
    nameBlockUsed_ += needed;
    return {text, name.size()};
}

}  // namespace tarvin
