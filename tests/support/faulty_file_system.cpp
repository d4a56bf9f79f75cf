#include "support/faulty_file_system.h"

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cstring>
#include <random>
#include <utility>

namespace tarvin {

namespace {

// Bytes of a directory record besides the name, about: blocks are as large as those of the kernel.
constexpr std::size_t recordBytes = 24;
constexpr std::size_t portionRoom = 32 * 1024;
constexpr std::string_view inventedName = "invented-";

std::size_t indexOf(FileCall call) {
    return static_cast<std::size_t>(call);
}

/// Copies `name` to the front of `room` and adds it to `block`. Returns false if `room` is too
/// small.
bool addEntry(const std::string& name, EntryType type, std::span<std::byte>& room,
              EntryBlock& block, std::uint64_t inode = 0) {
    if (room.size() < name.size() + recordBytes) {
        return false;
    }
    void* const entry = room.data();
    std::memcpy(entry, name.c_str(), name.size() + 1);
    block.add(static_cast<const char*>(entry), type, inode);
    room = room.subspan(name.size() + recordBytes);
    return true;
}

std::string entryPath(const std::string& folder, const char* name) {
    return folder == "/" ? folder + name : folder + "/" + name;
}

}  // namespace

void FaultyFileSystem::failCall(FileCall call, std::uint64_t nth, int error,
                                std::string_view pathPart) {
    const std::lock_guard lock(mutex_);
    faults_[indexOf(call)].push_back({nth, std::string(pathPart), error, nullptr});
}

void FaultyFileSystem::beforeCall(FileCall call, std::uint64_t nth, Action action,
                                  std::string_view pathPart) {
    const std::lock_guard lock(mutex_);
    faults_[indexOf(call)].push_back({nth, std::string(pathPart), 0, std::move(action)});
}

void FaultyFileSystem::clearFaults() {
    const std::lock_guard lock(mutex_);
    faults_ = {};
}

void FaultyFileSystem::setDescriptorLimit(std::size_t limit) {
    const std::lock_guard lock(mutex_);
    descriptorLimit_ = limit;
}

void FaultyFileSystem::refuseMoreDescriptorsThan(std::size_t max) {
    const std::lock_guard lock(mutex_);
    maxDescriptors_ = max;
}

void FaultyFileSystem::setRotational(bool rotational) {
    const std::lock_guard lock(mutex_);
    rotational_ = rotational;
}

void FaultyFileSystem::setRotationalDisk(std::uint64_t disk) {
    const std::lock_guard lock(mutex_);
    rotationalDisk_ = disk;
}

void FaultyFileSystem::setPseudoFileSystem(std::uint64_t device, bool pseudo) {
    const std::lock_guard lock(mutex_);
    pseudo_[device] = pseudo;
}

void FaultyFileSystem::setHomeTrash(std::optional<FileIdentity> identity) {
    const std::lock_guard lock(mutex_);
    homeTrash_ = identity;
}

void FaultyFileSystem::setOwnFolder(std::optional<FileIdentity> identity) {
    const std::lock_guard lock(mutex_);
    ownFolder_ = identity;
}

void FaultyFileSystem::setImmutable(const std::string& path) {
    const std::lock_guard lock(mutex_);
    immutable_.insert(path);
}

void FaultyFileSystem::setCreated(const std::string& path, Timestamp created) {
    const std::lock_guard lock(mutex_);
    created_[path] = created;
}

void FaultyFileSystem::setIdentity(const std::string& path, FileIdentity identity) {
    const std::lock_guard lock(mutex_);
    identities_[path] = identity;
}

void FaultyFileSystem::setAttributes(const std::string& path, const FileAttributes& attributes) {
    const std::lock_guard lock(mutex_);
    attributes_[path] = attributes;
}

void FaultyFileSystem::setListedInode(const std::string& path, std::uint64_t inode) {
    const std::lock_guard lock(mutex_);
    listedInodes_[path] = inode;
}

void FaultyFileSystem::setPlace(const std::string& path, std::uint64_t place) {
    const std::lock_guard lock(mutex_);
    places_[path] = place;
}

std::vector<FaultyFileSystem::ReadAheadCall> FaultyFileSystem::readAheadCalls() const {
    const std::lock_guard lock(mutex_);
    return readAhead_;
}

void FaultyFileSystem::setVolumeName(std::optional<std::string> name) {
    const std::lock_guard lock(mutex_);
    volumeName_ = std::move(name);
}

void FaultyFileSystem::setMountedFolders(std::vector<MountedFolder> folders) {
    const std::lock_guard lock(mutex_);
    mountedFolders_ = std::move(folders);
}

void FaultyFileSystem::setListingOrder(ListingOrder order, std::uint64_t seed) {
    const std::lock_guard lock(mutex_);
    order_ = order;
    seed_ = seed;
}

void FaultyFileSystem::hideEntryTypes() {
    const std::lock_guard lock(mutex_);
    typesHidden_ = true;
}

void FaultyFileSystem::inventFiles(const std::string& folder, std::uint64_t count) {
    const std::lock_guard lock(mutex_);
    invented_[folder] = count;
}

std::uint64_t FaultyFileSystem::calls(FileCall call) const {
    const std::lock_guard lock(mutex_);
    return calls_[indexOf(call)];
}

std::uint64_t FaultyFileSystem::opens(const std::string& path) const {
    const std::lock_guard lock(mutex_);
    const auto found = paths_.find(path);
    return found == paths_.end() ? 0 : found->second.opens;
}

std::vector<std::string> FaultyFileSystem::openedFiles() const {
    std::vector<std::string> files;
    const std::lock_guard lock(mutex_);
    for (const auto& [path, record] : paths_) {
        if (record.openedAsFile) {
            files.push_back(path);
        }
    }
    std::sort(files.begin(), files.end());
    return files;
}

std::uint64_t FaultyFileSystem::bytesRead(const std::string& path) const {
    const std::lock_guard lock(mutex_);
    const auto found = paths_.find(path);
    return found == paths_.end() ? 0 : found->second.bytesRead;
}

std::uint64_t FaultyFileSystem::bytesRead() const {
    const std::lock_guard lock(mutex_);
    return bytesRead_;
}

std::uint64_t FaultyFileSystem::entriesListed() const {
    const std::lock_guard lock(mutex_);
    return entriesListed_;
}

std::size_t FaultyFileSystem::openNow() const {
    const std::lock_guard lock(mutex_);
    return openNow_;
}

std::size_t FaultyFileSystem::openAtMost() const {
    const std::lock_guard lock(mutex_);
    return openAtMost_;
}

std::size_t FaultyFileSystem::readersOfOneDeviceAtMost() const {
    const std::lock_guard lock(mutex_);
    return readersAtMost_;
}

Result<Descriptor> FaultyFileSystem::openRootDirectory(const std::string& path) {
    if (const auto error = enter(FileCall::openRootDirectory, path)) {
        return *error;
    }
    if (const auto error = reserveDescriptor()) {
        return *error;
    }
    return keepOpen(real_.openRootDirectory(path), path, false);
}

Result<Descriptor> FaultyFileSystem::openDirectory(const std::string& path) {
    if (const auto error = enter(FileCall::openDirectory, path)) {
        return *error;
    }
    if (const auto error = reserveDescriptor()) {
        return *error;
    }
    return keepOpen(real_.openDirectory(path), path, false);
}

Result<Descriptor> FaultyFileSystem::openDirectoryAt(const Descriptor& parent, const char* name) {
    const std::shared_ptr<Open> in = find(parent);
    const std::string path = entryPath(in->path, name);
    if (const auto error = enter(FileCall::openDirectoryAt, path)) {
        return *error;
    }
    if (const auto error = reserveDescriptor()) {
        return *error;
    }
    return keepOpen(real_.openDirectoryAt(in->real, name), path, false);
}

Result<bool> FaultyFileSystem::listEntries(const Descriptor& directory, EntryBlock& block) {
    const std::shared_ptr<Open> folder = find(directory);
    block.clear();
    if (const auto error = enter(FileCall::listEntries, folder->path)) {
        return *error;
    }
    Result<bool> more = listReordered(*folder, block);
    if (more && !*more) {
        more = listInvented(*folder, block);
    }
    const std::lock_guard lock(mutex_);
    entriesListed_ += block.entries().size();
    if (typesHidden_) {
        const std::vector<EntryBlock::Entry> entries(block.entries().begin(),
                                                     block.entries().end());
        block.clear();
        for (const EntryBlock::Entry& entry : entries) {
            block.add(entry.name, EntryType::unknown, entry.inode);
        }
    }
    return more;
}

Result<FileAttributes> FaultyFileSystem::attributesAt(const Descriptor& directory,
                                                      const char* name) {
    const std::shared_ptr<Open> folder = find(directory);
    if (const auto error = enterAt(FileCall::attributesAt, folder->path, name)) {
        return *error;
    }
    if (const auto invented = inventedAttributes(*folder, name)) {
        return *invented;
    }
    return withFlags(real_.attributesAt(folder->real, name), entryPath(folder->path, name));
}

Result<FileAttributes> FaultyFileSystem::targetAttributesAt(const Descriptor& directory,
                                                            const char* name) {
    const std::shared_ptr<Open> folder = find(directory);
    if (const auto error = enterAt(FileCall::targetAttributesAt, folder->path, name)) {
        return *error;
    }
    if (const auto invented = inventedAttributes(*folder, name)) {
        return *invented;
    }
    return real_.targetAttributesAt(folder->real, name);
}

Result<FileAttributes> FaultyFileSystem::attributesAtPath(const std::string& path) {
    if (const auto error = enter(FileCall::attributesAtPath, path)) {
        return *error;
    }
    return withFlags(real_.attributesAtPath(path), path);
}

Result<FileAttributes> FaultyFileSystem::attributesOf(const Descriptor& descriptor) {
    const std::shared_ptr<Open> open = find(descriptor);
    if (const auto error = enter(FileCall::attributesOf, open->path)) {
        return *error;
    }
    return withFlags(real_.attributesOf(open->real), open->path);
}

Result<Descriptor> FaultyFileSystem::openFile(const std::string& path) {
    if (const auto error = enter(FileCall::openFile, path)) {
        return *error;
    }
    if (const auto error = reserveDescriptor()) {
        return *error;
    }
    return keepOpen(real_.openFile(path), path, true);
}

Result<Descriptor> FaultyFileSystem::openFileAt(const Descriptor& folder, const char* name) {
    const std::shared_ptr<Open> in = find(folder);
    const std::string path = entryPath(in->path, name);
    static_cast<void>(enter(FileCall::openFileAt, path));
    if (const auto error = enter(FileCall::openFile, path)) {
        return *error;
    }
    if (const auto error = reserveDescriptor()) {
        return *error;
    }
    return keepOpen(real_.openFileAt(in->real, name), path, true);
}

Result<Descriptor> FaultyFileSystem::openFolderOfFiles(const std::string& path) {
    if (const auto error = enter(FileCall::openFolderOfFiles, path)) {
        return *error;
    }
    if (const auto error = reserveDescriptor()) {
        return *error;
    }
    return keepOpen(real_.openFolderOfFiles(path), path, false);
}

Result<std::size_t> FaultyFileSystem::readAtLeast(const Descriptor& file, std::uint64_t offset,
                                                  std::span<std::byte> into, std::size_t enough) {
    const std::shared_ptr<Open> open = find(file);
    {
        const std::lock_guard lock(mutex_);
        readersAtMost_ = std::max(readersAtMost_, ++readers_[open->device]);
    }
    const std::optional<SystemError> error = enter(FileCall::readAt, open->path);
    const Result<std::size_t> read =
        error ? Result<std::size_t>(*error) : real_.readAtLeast(open->real, offset, into, enough);
    countRead(*open, read);
    const std::lock_guard lock(mutex_);
    --readers_[open->device];
    return read;
}

Result<std::size_t> FaultyFileSystem::readCachedAt(const Descriptor& file, std::uint64_t offset,
                                                   std::span<std::byte> into) {
    const std::shared_ptr<Open> open = find(file);
    if (const auto error = enter(FileCall::readCachedAt, open->path)) {
        return *error;
    }
    const Result<std::size_t> read = real_.readCachedAt(open->real, offset, into);
    countRead(*open, read);
    return read;
}

void FaultyFileSystem::disableReadAhead(const Descriptor& file) {
    const std::shared_ptr<Open> open = find(file);
    enter(FileCall::disableReadAhead, open->path);
    real_.disableReadAhead(open->real);
}

std::optional<std::uint64_t> FaultyFileSystem::placeOnDevice(const Descriptor& file,
                                                             std::uint64_t offset) {
    const std::shared_ptr<Open> open = find(file);
    {
        const std::lock_guard lock(mutex_);
        const auto told = places_.find(open->path);
        if (told != places_.end()) {
            return told->second + offset;
        }
    }
    return real_.placeOnDevice(open->real, offset);
}

void FaultyFileSystem::readAhead(const Descriptor& file, std::uint64_t offset,
                                 std::uint64_t bytes) {
    const std::shared_ptr<Open> open = find(file);
    {
        const std::lock_guard lock(mutex_);
        readAhead_.push_back({open->path, offset, bytes});
    }
    real_.readAhead(open->real, offset, bytes);
}

bool FaultyFileSystem::isPseudoFileSystem(std::uint64_t device) {
    {
        const std::lock_guard lock(mutex_);
        const auto told = pseudo_.find(device);
        if (told != pseudo_.end()) {
            return told->second;
        }
    }
    return real_.isPseudoFileSystem(device);
}

std::optional<std::uint64_t> FaultyFileSystem::rotationalDiskOf(std::uint64_t device) {
    {
        const std::lock_guard lock(mutex_);
        if (rotational_ && !*rotational_) {
            return std::nullopt;
        }
        if (rotationalDisk_ || rotational_) {
            return rotationalDisk_.value_or(device);
        }
    }
    return real_.rotationalDiskOf(device);
}

std::optional<std::string> FaultyFileSystem::lastingVolumeName(const std::string& folder,
                                                               std::uint64_t device) {
    static_cast<void>(enter(FileCall::lastingVolumeName, folder));
    const std::lock_guard lock(mutex_);
    return volumeName_ ? *volumeName_ : real_.lastingVolumeName(folder, device);
}

std::vector<MountedFolder> FaultyFileSystem::mountedFolders() {
    const std::lock_guard lock(mutex_);
    return mountedFolders_ ? *mountedFolders_ : real_.mountedFolders();
}

std::optional<FileIdentity> FaultyFileSystem::homeTrash() {
    const std::lock_guard lock(mutex_);
    return homeTrash_;
}

std::optional<FileIdentity> FaultyFileSystem::ownFolder() {
    const std::lock_guard lock(mutex_);
    return ownFolder_;
}

std::size_t FaultyFileSystem::descriptorLimit() {
    {
        const std::lock_guard lock(mutex_);
        if (descriptorLimit_) {
            return *descriptorLimit_;
        }
    }
    return real_.descriptorLimit();
}

void FaultyFileSystem::close(int number) {
    std::shared_ptr<Open> open;
    const std::lock_guard lock(mutex_);
    const auto found = open_.find(number);
    open = std::move(found->second);
    open_.erase(found);
    --openNow_;
    // Closed with the lock held, so that no other thread gets the same descriptor before.
    open->real.reset();
}

/// Counts the call, runs its actions and returns its fault, if any.
std::optional<SystemError> FaultyFileSystem::enter(FileCall call, const std::string& path) {
    std::vector<Action> actions;
    std::optional<SystemError> error;
    {
        const std::lock_guard lock(mutex_);
        ++calls_[indexOf(call)];
        for (Fault& fault : faults_[indexOf(call)]) {
            if (path.find(fault.pathPart) == std::string::npos) {
                continue;
            }
            ++fault.seen;
            if (fault.nth != each && fault.nth != fault.seen) {
                continue;
            }
            if (fault.action) {
                actions.push_back(fault.action);
            } else if (!error) {
                error = SystemError{fault.error};
            }
        }
        if (call == FileCall::openRootDirectory || call == FileCall::openDirectory ||
            call == FileCall::openDirectoryAt || call == FileCall::openFile) {
            PathRecord& record = paths_[path];
            ++record.opens;
            record.openedAsFile = record.openedAsFile || call == FileCall::openFile;
        }
    }
    for (const Action& action : actions) {
        action();
    }
    return error;
}

/// Like enter(), for an entry. Builds the path only if a fault needs it.
std::optional<SystemError> FaultyFileSystem::enterAt(FileCall call, const std::string& folder,
                                                     const char* name) {
    {
        const std::lock_guard lock(mutex_);
        if (faults_[indexOf(call)].empty()) {
            ++calls_[indexOf(call)];
            return std::nullopt;
        }
    }
    return enter(call, entryPath(folder, name));
}

/// Counts the descriptor before it is opened, so that concurrent opens respect the limit.
std::optional<SystemError> FaultyFileSystem::reserveDescriptor() {
    const std::lock_guard lock(mutex_);
    if (maxDescriptors_ && openNow_ >= *maxDescriptors_) {
        return SystemError{EMFILE};
    }
    openAtMost_ = std::max(openAtMost_, ++openNow_);
    return std::nullopt;
}

Result<Descriptor> FaultyFileSystem::keepOpen(Result<Descriptor> opened, const std::string& path,
                                              bool isFile) {
    if (!opened) {
        const std::lock_guard lock(mutex_);
        --openNow_;
        return opened.error();
    }
    auto open = std::make_shared<Open>();
    if (isFile) {
        const Result<FileAttributes> attributes = real_.attributesOf(*opened);
        open->device = attributes ? attributes->identity.device : 0;
    }
    const int number = opened->number();
    open->real = std::move(*opened);
    open->path = path;
    const std::lock_guard lock(mutex_);
    const auto invented = invented_.find(path);
    open->invented = invented == invented_.end() ? 0 : invented->second;
    open_[number] = std::move(open);
    return Descriptor(*this, number);
}

std::shared_ptr<FaultyFileSystem::Open> FaultyFileSystem::find(const Descriptor& descriptor) const {
    const std::lock_guard lock(mutex_);
    return open_.at(descriptor.number());
}

Result<bool> FaultyFileSystem::listReordered(Open& folder, EntryBlock& block) {
    bool asListed = false;
    {
        const std::lock_guard lock(mutex_);
        asListed = order_ == ListingOrder::asListed;
    }
    if (asListed) {
        return real_.listEntries(folder.real, block);
    }
    if (!folder.allListed) {
        if (const auto error = listAll(folder)) {
            return *error;
        }
    }
    std::span<std::byte> room = block.bytes();
    while (folder.nextName < folder.names.size()) {
        const ListedName& next = folder.names[folder.nextName];
        if (!addEntry(next.name, next.type, room, block,
                      listedInode(entryPath(folder.path, next.name.c_str())))) {
            break;
        }
        ++folder.nextName;
    }
    return !block.entries().empty();
}

std::uint64_t FaultyFileSystem::listedInode(const std::string& path) {
    const std::lock_guard lock(mutex_);
    const auto told = listedInodes_.find(path);
    return told == listedInodes_.end() ? 0 : told->second;
}

bool FaultyFileSystem::listInvented(Open& folder, EntryBlock& block) {
    std::span<std::byte> room = block.bytes();
    while (folder.nextInvented < folder.invented &&
           addEntry(std::string(inventedName) + std::to_string(folder.nextInvented) + ".txt",
                    EntryType::regular, room, block)) {
        ++folder.nextInvented;
    }
    return !block.entries().empty();
}

std::optional<SystemError> FaultyFileSystem::listAll(Open& folder) {
    EntryBlock block(portionRoom);
    while (true) {
        const Result<bool> more = real_.listEntries(folder.real, block);
        if (!more) {
            return more.error();
        }
        if (!*more) {
            break;
        }
        for (const EntryBlock::Entry& entry : block.entries()) {
            folder.names.push_back({entry.name, entry.type});
        }
    }
    folder.allListed = true;
    std::sort(folder.names.begin(), folder.names.end(),
              [](const ListedName& one, const ListedName& other) { return one.name < other.name; });
    const std::lock_guard lock(mutex_);
    if (order_ == ListingOrder::reversed) {
        std::reverse(folder.names.begin(), folder.names.end());
    } else if (order_ == ListingOrder::shuffled) {
        std::mt19937_64 generator(seed_ + folder.names.size());
        std::shuffle(folder.names.begin(), folder.names.end(), generator);
    }
    return std::nullopt;
}

void FaultyFileSystem::countRead(const Open& file, const Result<std::size_t>& read) {
    if (!read) {
        return;
    }
    const std::lock_guard lock(mutex_);
    paths_[file.path].bytesRead += *read;
    bytesRead_ += *read;
}

std::optional<FileAttributes> FaultyFileSystem::inventedAttributes(const Open& folder,
                                                                   const char* name) {
    if (folder.invented == 0 || !std::string_view(name).starts_with(inventedName)) {
        return std::nullopt;
    }
    FileAttributes attributes;
    attributes.type = EntryType::regular;
    return attributes;
}

Result<FileAttributes> FaultyFileSystem::withFlags(Result<FileAttributes> attributes,
                                                   const std::string& path) const {
    const std::lock_guard lock(mutex_);
    if (attributes && immutable_.contains(path)) {
        attributes->immutable = true;
    }
    if (const auto created = created_.find(path); attributes && created != created_.end()) {
        attributes->created = created->second;
    }
    if (const auto told = identities_.find(path); attributes && told != identities_.end()) {
        attributes->identity = told->second;
    }
    if (const auto told = attributes_.find(path); attributes && told != attributes_.end()) {
        attributes = told->second;
    }
    if (attributes) {
        jitter(*attributes);
    }
    return attributes;
}

/// The dates go to and fro within a millisecond.
void FaultyFileSystem::jitter(FileAttributes& attributes) const {
    const bool isFile = attributes.type == EntryType::regular;
    const bool isFolder = attributes.type == EntryType::directory;
    const std::uint64_t answer = ++answers_;
    if ((isFile && jittersInodes_) || (isFolder && jittersFolders_)) {
        attributes.identity.inode = (1U << 20U) + answer;
    }
    if (isFile && jittersDates_ && attributes.modified) {
        // Random, so that dates go to and fro for each of several threads.
        attributes.modified = std::chrono::floor<std::chrono::seconds>(*attributes.modified) +
                              std::chrono::microseconds(std::mt19937_64(answer)() % 1000);
        attributes.changed = attributes.modified;
    }
}

}  // namespace tarvin
