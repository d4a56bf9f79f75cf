#include "controller/location_folders.h"

#include "controller/path_text.h"

#include <QCollator>
#include <QLocale>
#include <algorithm>
#include <cstddef>
#include <iterator>
#include <utility>

namespace tarvin {

namespace {

constexpr std::string_view hiddenBeginnings = R"(!~`@#$%^&*-+();:={}[],.<>?\/"')";
constexpr std::size_t portionBytes = std::size_t{64} << 10U;

std::string joined(const std::string& folder, std::string_view name) {
    std::string path = folder;
    if (!path.ends_with('/')) {
        path += '/';
    }
    return path.append(name);
}

/// Whether an entry is a folder or a symbolic link to one.
bool isFolder(FileSystem& fileSystem, const Descriptor& directory, const EntryBlock::Entry& entry) {
    if (entry.type == EntryType::directory || entry.type == EntryType::regular) {
        return entry.type == EntryType::directory;
    }
    const auto target = fileSystem.targetAttributesAt(directory, entry.name);
    return target && target->type == EntryType::directory;
}

bool isIn(std::string_view path, std::string_view folder) {
    return folder == "/" || path == folder ||
           (path.starts_with(folder) && path.substr(folder.size()).starts_with('/'));
}

std::string_view folderOf(std::string_view path) {
    return path.substr(0, std::max<std::size_t>(path.rfind('/'), 1));
}

QCollator collatorForNames() {
    const QLocale locale = QLocale().collation();
    // The "C" locale compares code points only.
    QCollator collator(locale == QLocale::c() ? QLocale(QLocale::English) : locale);
    collator.setNumericMode(true);
    return collator;
}

std::vector<std::string> sortedByName(std::vector<std::string> folders) {
    const QCollator collator = collatorForNames();
    std::vector<std::pair<QCollatorSortKey, std::string>> keyed;
    keyed.reserve(folders.size());
    for (std::string& folder : folders) {
        QCollatorSortKey key = collator.sortKey(textOfPath(lastPathComponent(folder)));
        keyed.emplace_back(std::move(key), std::move(folder));
    }
    std::sort(keyed.begin(), keyed.end(), [](const auto& one, const auto& other) {
        const int order = one.first.compare(other.first);
        return order != 0 ? order < 0 : one.second < other.second;
    });
    std::transform(keyed.begin(), keyed.end(), folders.begin(),
                   [](auto& entry) { return std::move(entry.second); });
    return folders;
}

std::string imageNameOfVolume(VolumeKind kind) {
    switch (kind) {
        case VolumeKind::network:
            return "network_drive.png";
        case VolumeKind::removable:
            return "usb_drive.png";
        case VolumeKind::internal:
            return "g5_apple_drive.png";
        case VolumeKind::other:
            break;
    }
    return "folder.png";
}

}  // namespace

bool isSpecialFolder(std::string_view name) {
    return !name.empty() && hiddenBeginnings.find(name.front()) != std::string_view::npos;
}

std::vector<std::string> getFoldersAtPath(FileSystem& fileSystem, const std::string& path) {
    const Result<Descriptor> directory = fileSystem.openRootDirectory(path);
    if (!directory) {
        return {};
    }
    std::vector<std::string> folders;
    EntryBlock block(portionBytes);
    while (true) {
        const Result<bool> more = fileSystem.listEntries(*directory, block);
        if (!more) {
            return {};
        }
        if (!*more) {
            return sortedByName(std::move(folders));
        }
        for (const EntryBlock::Entry& entry : block.entries()) {
            if (!isSpecialFolder(entry.name) && isFolder(fileSystem, *directory, entry)) {
                folders.push_back(joined(path, entry.name));
            }
        }
    }
}

std::vector<Volume> listedVolumes(const std::vector<Volume>& volumes) {
    std::vector<Volume> listed;
    std::copy_if(volumes.begin(), volumes.end(), std::back_inserter(listed),
                 [](const Volume& volume) {
                     const bool isHidden =
                         volume.path != "/" && isSpecialFolder(lastPathComponent(volume.path));
                     return volume.kind != VolumeKind::network && !isHidden;
                 });
    return listed;
}

std::string imageNameOfPath(const std::string& path, const std::vector<Volume>& volumes,
                            const std::optional<std::string>& desktop) {
    if (lastPathComponent(path) == "Desktop" || path == desktop) {
        return "mymac.png";
    }
    const auto volume =
        std::find_if(volumes.begin(), volumes.end(),
                     [&path](const Volume& candidate) { return candidate.path == path; });
    return imageNameOfVolume(volume == volumes.end() ? VolumeKind::other : volume->kind);
}

std::string getVolumeName(Platform& platform) {
    const std::optional<std::string> home = platform.userFolder(UserFolder::home);
    if (!home) {
        return {};
    }
    const std::string_view folder = folderOf(*home);
    std::string_view holder;  // the longest match: volumes can be mounted below others
    const std::vector<Volume> volumes = platform.mountedVolumes();
    for (const Volume& volume : volumes) {
        if (volume.path != "/" && folderOf(volume.path) == folder) {
            return platform.userName().value_or(std::string());
        }
        if (isIn(folder, volume.path) && volume.path.size() > holder.size()) {
            holder = volume.path;
        }
    }
    return std::string(lastPathComponent(holder));
}

std::string_view lastPathComponent(std::string_view path) {
    const std::size_t end = path.find_last_not_of('/');
    if (end == std::string_view::npos) {
        return path.substr(0, 1);
    }
    path = path.substr(0, end + 1);
    return path.substr(path.rfind('/') + 1);
}

}  // namespace tarvin
