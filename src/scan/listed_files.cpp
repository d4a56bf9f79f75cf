#include "scan/listed_files.h"

#include "scan/duplicate_finder.h"

#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <span>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <utility>

namespace tarvin {

namespace {

/// A file of the result, and the number of its set there.
struct FoundFile {
    std::uint32_t group = 0;
    std::shared_ptr<File> file;
};

using FoundFiles = std::unordered_map<const File*, FoundFile>;

/// An entry of the list and the file that was found there.
struct Member {
    ListedFile* entry = nullptr;
    const FoundFile* found = nullptr;
};

bool isExactPath(std::string_view path) {
    if (!path.starts_with('/') || path.find('\0') != std::string_view::npos) {
        return false;
    }
    while (!path.empty()) {
        path.remove_prefix(1);
        const std::string_view part = path.substr(0, path.find('/'));
        if (part.empty() || part == "." || part == "..") {
            return false;
        }
        path.remove_prefix(part.size());
    }
    return true;
}

/// Calls `action` with the entries of each set.
template <class Action>
void forEachListedSet(ListedFiles& files, const Action& action) {
    for (auto begin = files.begin(); begin != files.end();) {
        const auto end = std::find_if(
            begin, files.end(), [begin](const ListedFile& file) { return file.set != begin->set; });
        action(std::span(begin, end));
        begin = end;
    }
}

void keepFirstOf(std::span<ListedFile> set) {
    if (std::none_of(set.begin(), set.end(), [](const ListedFile& file) { return file.keep; })) {
        set.front().keep = true;
    }
}

void findRepetitions(ListedFiles& files) {
    std::unordered_map<std::string_view, ListedFile*> firsts;
    firsts.reserve(files.size());
    for (ListedFile& file : files) {
        const auto [known, isNew] = firsts.try_emplace(file.path, &file);
        ListedFile*& first = known->second;
        if (isNew) {
            continue;
        }
        if (first->state == ListedState::usable) {
            first->state = ListedState::repeated;
        }
        if (file.state != ListedState::usable) {
            continue;
        }
        if (first->state == ListedState::repeated) {
            file.state = ListedState::repetition;
        } else {
            // The earlier ones have other faults.
            file.state = ListedState::repeated;
            first = &file;
        }
    }
}

FoundFiles filesOf(const Modal& result) {
    FoundFiles files;
    std::uint32_t number = 0;
    for (const std::shared_ptr<Extensions>& extension : result.extensions()) {
        for (const std::shared_ptr<Set>& set : extension->sets()) {
            for (const std::shared_ptr<File>& file : set->files()) {
                files.emplace(file.get(), FoundFile{number, file});
            }
            ++number;
        }
    }
    return files;
}

bool stays(const ListedFile& file) {
    return file.keep || file.state != ListedState::usable;
}

/// Adds the set of equal files to the tree and marks those that need not stay.
void addMarkedSet(std::span<const Member> members, Modal& modal) {
    std::vector<std::shared_ptr<File>> group;
    group.reserve(members.size());
    for (const Member& member : members) {
        group.push_back(member.found->file);
    }
    const std::shared_ptr<Extensions> extension = fileSetUnderExtension(modal, group);
    const std::shared_ptr<Set> set = extension->sets().back();
    for (std::size_t position = 0; position < members.size(); ++position) {
        if (!stays(*members[position].entry)) {
            modal.changeStateOfExtension(extension, set, group[position]);
        }
    }
}

/// The same for files that were listed as a set and have the same bytes, if one of them stays;
/// otherwise they get the state `without`.
void addEqualFiles(std::span<const Member> members, ListedState without, Modal& modal) {
    const auto staying = std::count_if(members.begin(), members.end(),
                                       [](const Member& member) { return stays(*member.entry); });
    if (staying > 0 && static_cast<std::size_t>(staying) < members.size()) {
        addMarkedSet(members, modal);
    }
    if (staying > 0) {
        return;
    }
    for (const Member& member : members) {
        member.entry->state = without;
    }
}

using Paths = std::unordered_set<std::string_view>;

/// Why a file of the set has no survivor. Sets the state of files that could not be read.
ListedState noteUnread(std::span<ListedFile> listed, const Paths& unread) {
    ListedState without = ListedState::hasNoSurvivor;
    for (ListedFile& file : listed) {
        if (file.state == ListedState::usable && unread.contains(file.path)) {
            file.state = ListedState::unread;
        }
        const bool isUnread = file.state == ListedState::unread ||
                              (file.state == ListedState::unreadable && file.error.code != ENOENT);
        if (file.keep && isUnread) {
            without = ListedState::survivorUnread;
        }
    }
    return without;
}

void addListedSet(std::span<ListedFile> listed, const FoundFiles& found, const Paths& unread,
                  Modal& modal) {
    const ListedState without = noteUnread(listed, unread);
    std::vector<Member> members;
    for (ListedFile& file : listed) {
        const auto known = found.find(file.file);
        if (known != found.end()) {
            members.push_back({&file, &known->second});
        } else if (!stays(file)) {
            file.state = without;
        }
    }
    std::stable_sort(members.begin(), members.end(), [](const Member& one, const Member& other) {
        return one.found->group < other.found->group;
    });
    for (auto begin = members.begin(); begin != members.end();) {
        const auto end = std::find_if(begin, members.end(), [begin](const Member& member) {
            return member.found->group != begin->found->group;
        });
        addEqualFiles(std::span(begin, end), without, modal);
        begin = end;
    }
}

}  // namespace

void checkListedFiles(ListedFiles& files) {
    forEachListedSet(files, keepFirstOf);
    for (ListedFile& file : files) {
        if (file.state == ListedState::usable && !isExactPath(file.path)) {
            file.state = ListedState::notAbsolute;
        }
    }
    findRepetitions(files);
}

std::shared_ptr<Modal> markListedFiles(ListedFiles& files, const Modal& found,
                                       const UnreadableReport& unread) {
    const FoundFiles known = filesOf(found);
    Paths unreadPaths;
    for (const Unreadable& each : unread.kept) {
        unreadPaths.insert(each.path);
    }
    auto modal = std::make_shared<Modal>();
    forEachListedSet(
        files, [&](std::span<ListedFile> set) { addListedSet(set, known, unreadPaths, *modal); });
    return modal;
}

}  // namespace tarvin
