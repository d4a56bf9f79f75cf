#include "scan/recollection.h"

#include <algorithm>
#include <chrono>
#include <limits>
#include <utility>
#include <variant>

namespace tarvin {

namespace {

static_assert(FileStore::firstNewNumber == ScanMemory::firstNewNumber);

// Files looked up or stored at a time: a few megabytes.
constexpr std::size_t filesAtOnce = 32 * 1024;
// Files that were not stored for so long are stored again, so that they are not dropped while they
// are still scanned. In days, far less than ScanMemory::Limits::maxDays.
constexpr std::int64_t daysUntilFading = 30;

constexpr std::uint64_t maxStored = std::numeric_limits<std::int64_t>::max();

std::int64_t nanoseconds(const std::optional<Timestamp>& date) {
    return date ? date->time_since_epoch().count() : 0;
}

RememberedFile stateOf(const File& file) {
    const FileVersion& version = *file.version();
    return {version.identity.inode,
            file.fileSize(),
            nanoseconds(file.fileModificationDate()),
            nanoseconds(version.changed),
            nanoseconds(file.fileCreationDate()),
            0,
            0,
            0};
}

std::size_t indexOf(Category category) {
    return static_cast<std::size_t>(category);
}

/// The name in the memory of a volume's files of a category.
std::string nameOf(const std::string& volume, Category category) {
    return volume + ':' + std::string(categoryName(category));
}

}  // namespace

void Recollection::recall(CategoryLists& lists, const ScanServices& services) {
    sortByVolume(lists, services);
    readAhead_.expect(filesToFind());
    readAhead_.wait(services);
    // After a stop the file may still be open there, and closing it would release SQLite's locks.
    if (volumes_.empty() || services.control.stop()) {
        return;
    }
    if (recallFromMemory(services.control)) {
        return;
    }
    const std::optional<StoreError> error = report_.notRead;
    if (!error || error->kind != StoreError::Kind::unusable) {
        return;
    }
    forgetFound();
    const StoreResult<bool> removed = ScanMemory::remove(folder_);
    if (std::holds_alternative<bool>(removed)) {
        report_.damaged = error->path;
        report_.notRead.reset();
        static_cast<void>(recallFromMemory(services.control));
    }
}

void Recollection::sortByVolume(CategoryLists& lists, const ScanServices& services) {
    for (const Category category : allCategories) {
        for (File* const file : lists.of(category)) {
            if (!services.control.mayGoOn()) {
                return;
            }
            add(*file, category, services);
        }
    }
    dropAmbiguousVolumes();
    for (auto& [device, volume] : volumes_) {
        for (std::vector<File*>& files : volume.lists) {
            std::sort(files.begin(), files.end(), [](const File* one, const File* other) {
                return one->version()->identity.inode < other->version()->identity.inode;
            });
        }
    }
}

void Recollection::add(File& file, Category category, const ScanServices& services) {
    const FileVersion& version = *file.version();
    if (!hasSettled(file) || version.identity.inode > maxStored || file.fileSize() > maxStored) {
        return;
    }
    const auto [known, isNew] = volumes_.try_emplace(version.identity.device);
    if (isNew) {
        const IoWatch::Call call(services.watch, *file.directory());
        known->second.name =
            services.fileSystem.lastingVolumeName(file.directory()->path(), version.identity.device)
                .value_or(std::string());
    }
    if (!known->second.name.empty()) {
        known->second.lists[indexOf(category)].push_back(&file);
    }
}

/// Copies of a volume, such as a backup image, have its name.
void Recollection::dropAmbiguousVolumes() {
    std::unordered_map<std::string, int> named;
    for (const auto& [device, volume] : volumes_) {
        ++named[volume.name];
    }
    std::erase_if(volumes_, [&](const auto& volume) {
        return volume.second.name.empty() || named[volume.second.name] > 1;
    });
}

std::uint64_t Recollection::filesToFind() const {
    std::uint64_t count = 0;
    for (const auto& [device, volume] : volumes_) {
        for (const std::vector<File*>& files : volume.lists) {
            count += files.size();
        }
    }
    return count;
}

/// Ends early after a stop. Returns false if the memory fails.
bool Recollection::find(ScanMemory& memory, const Volume& volume, const ScanControl& control) {
    return std::all_of(allCategories.begin(), allCategories.end(), [&](Category category) {
        return findFiles(memory, nameOf(volume.name, category), volume.lists[indexOf(category)],
                         control);
    });
}

bool Recollection::findFiles(ScanMemory& memory, const std::string& name,
                             std::span<File* const> all, const ScanControl& control) {
    std::vector<RememberedFile> found;
    for (std::size_t first = 0; first < all.size(); first += filesAtOnce) {
        if (control.stop()) {
            return true;
        }
        const auto files = all.subspan(first, std::min(filesAtOnce, all.size() - first));
        found.clear();
        for (const File* const file : files) {
            found.push_back(stateOf(*file));
        }
        if (std::optional<StoreError> error = memory.find(name, found)) {
            report_.notRead = std::move(error);
            return false;
        }
        takeFound(files, found);
    }
    return true;
}

void Recollection::takeFound(std::span<File* const> files,
                             std::span<const RememberedFile> found) const {
    for (std::size_t at = 0; at < files.size(); ++at) {
        if (found[at].comparison != 0 && found[at].content != 0) {
            FileVersion& version = *files[at]->version();
            version.comparison = found[at].comparison;
            version.content = found[at].content;
            version.isFading = today() - found[at].seen > daysUntilFading;
        }
    }
}

void Recollection::store(const FileStore& store) {
    const bool isAny = std::any_of(volumes_.begin(), volumes_.end(), [](const auto& volume) {
        const Lists& lists = volume.second.lists;
        return std::any_of(lists.begin(), lists.end(), [](const std::vector<File*>& files) {
            return std::any_of(files.begin(), files.end(),
                               [](const File* file) { return isToBeStored(*file); });
        });
    });
    if (!isAny || !generation_) {
        return;
    }
    // One that was removed since is not wanted: the user has made the program forget.
    StoreResult<std::optional<ScanMemory>> memory = ScanMemory::openIfThere(folder_);
    if (auto* error = std::get_if<StoreError>(&memory)) {
        report_.notStored = std::move(*error);
        return;
    }
    auto& opened = std::get<std::optional<ScanMemory>>(memory);
    // In another memory, which was begun since, the known numbers may be of other contents.
    if (opened && opened->generation() == *generation_) {
        report_.notStored = storeIn(*opened, store.newNumbers());
    }
}

std::optional<StoreError> Recollection::storeIn(ScanMemory& memory, std::uint64_t newNumbers) {
    memory.begin(newNumbers, today());
    for (const auto& [device, volume] : volumes_) {
        for (const Category category : allCategories) {
            addTo(memory, nameOf(volume.name, category), volume.lists[indexOf(category)]);
        }
    }
    return memory.commit();
}

void Recollection::addTo(ScanMemory& memory, const std::string& name,
                         std::span<File* const> files) {
    std::vector<RememberedFile> rows;
    const auto flush = [&] {
        if (!rows.empty()) {
            memory.add(name, rows);
            rows.clear();
        }
    };
    for (const File* const file : files) {
        if (isToBeStored(*file)) {
            rows.push_back(stateOf(*file));
            rows.back().comparison = file->version()->comparison;
            rows.back().content = file->version()->content;
        }
        if (rows.size() == filesAtOnce) {
            flush();
        }
    }
    flush();
}

bool Recollection::hasSettled(const File& file) const {
    const Timestamp latest = now_ - FileSystem::timeToSettle;
    const std::optional<Timestamp> modified = file.fileModificationDate();
    const std::optional<Timestamp>& changed = file.version()->changed;
    return modified && changed && *modified <= latest && *changed <= latest;
}

bool Recollection::isToBeStored(const File& file) {
    const FileVersion& version = *file.version();
    return !version.isDoubtful &&
           (version.comparison >= FileStore::firstNewNumber || version.isFading);
}

/// nullopt if it cannot be opened; see the report.
std::optional<ScanMemory> Recollection::open() {
    StoreResult<ScanMemory> memory = ScanMemory::open(folder_);
    if (auto* error = std::get_if<StoreError>(&memory)) {
        report_.notRead = std::move(*error);
        return std::nullopt;
    }
    return std::get<ScanMemory>(std::move(memory));
}

/// Reads the memory. Returns false if that fails.
bool Recollection::recallFromMemory(const ScanControl& control) {
    std::optional<ScanMemory> memory = open();
    if (!memory) {
        return false;
    }
    generation_ = memory->generation();
    return std::all_of(volumes_.begin(), volumes_.end(), [&](const auto& volume) {
        return control.stop() || find(*memory, volume.second, control);
    });
}

/// What was read of a memory before it turned out to be damaged is not used.
void Recollection::forgetFound() {
    for (const auto& [device, volume] : volumes_) {
        for (const std::vector<File*>& files : volume.lists) {
            for (const File* const file : files) {
                file->version()->comparison = 0;
                file->version()->content = 0;
                file->version()->isFading = false;
            }
        }
    }
}

std::int64_t Recollection::today() const {
    return std::chrono::floor<std::chrono::days>(now_).time_since_epoch().count();
}

}  // namespace tarvin
