#include "scan/known_contents.h"

#include "model/file_store.h"

#include <algorithm>
#include <cstddef>
#include <unordered_map>
#include <utility>

namespace tarvin {

namespace {

bool isKnown(const FileVersion& version) {
    return version.comparison != 0 && !version.isDoubtful;
}

/// The content of a group: a known one of its files, or else a new one.
std::uint64_t contentOf(std::span<File* const> files, const FileGroup& group, FileStore& store) {
    std::uint64_t content = 0;
    for (const std::uint32_t number : group) {
        const FileVersion& version = *files[number]->version();
        if (isKnown(version) && (content == 0 || version.content < content)) {
            content = version.content;
        }
    }
    return content != 0 ? content : store.newNumber();
}

}  // namespace

KnownContents::KnownContents(std::span<File* const> files) : files_(files) {
    FileGroup unknownFiles;
    std::vector<std::pair<std::uint64_t, std::uint32_t>> known;  // content and file
    bool isOneComparison = true;
    for (std::uint32_t number = 0; number < files.size(); ++number) {
        const FileVersion& version = *files[number]->version();
        if (!isKnown(version)) {
            unknownFiles.push_back(number);
            continue;
        }
        isOneComparison = isOneComparison &&
                          (known.empty() || version.comparison ==
                                                files[known.front().second]->version()->comparison);
        known.emplace_back(version.content, number);
    }
    std::sort(known.begin(), known.end());
    std::vector<std::pair<std::uint32_t, std::uint32_t>> read;  // file and group
    for (auto first = known.begin(); first != known.end();) {
        const auto end = std::find_if(first, known.end(),
                                      [&](const auto& each) { return each.first != first->first; });
        read.emplace_back(first->second, alone);
        if (end - first > 1) {
            read.back().second = static_cast<std::uint32_t>(groups_.size());
            FileGroup& group = groups_.emplace_back();
            std::for_each(first, end, [&](const auto& each) { group.push_back(each.second); });
        }
        first = end;
    }
    if (unknownFiles.empty() && (isOneComparison || read.size() == 1)) {
        return;
    }
    for (const std::uint32_t number : unknownFiles) {
        read.emplace_back(number, unknown);
    }
    std::sort(read.begin(), read.end());
    for (const auto& [number, group] : read) {
        toRead_.push_back(number);
        groupOf_.push_back(group);
    }
}

FileGroup KnownContents::withKnown(const FileGroup& read) const {
    FileGroup all;
    for (const std::uint32_t position : read) {
        const std::uint32_t number = toRead_[position];
        const std::uint32_t group = groupOf_[position];
        if (group >= alone || files_[number]->version()->isDoubtful) {
            all.push_back(number);
        } else {
            all.insert(all.end(), groups_[group].begin(), groups_[group].end());
        }
    }
    std::sort(all.begin(), all.end());
    return all;
}

void noteContents(std::span<File* const> files, const std::vector<FileGroup>& groups,
                  FileStore& store) {
    // By identity, since a file that is there twice, under two paths, is in a group once.
    std::unordered_map<FileIdentity, std::uint64_t, FileIdentityHash> contents;
    std::vector<std::uint64_t> contentOfFile(files.size(), 0);
    for (const FileGroup& group : groups) {
        const std::uint64_t content = contentOf(files, group, store);
        for (const std::uint32_t number : group) {
            contentOfFile[number] = content;
            contents.emplace(files[number]->version()->identity, content);
        }
    }
    for (std::uint32_t number = 0; number < files.size(); ++number) {
        const FileVersion& version = *files[number]->version();
        if (contentOfFile[number] == 0 && !version.isDoubtful) {
            const auto known = contents.find(version.identity);
            contentOfFile[number] =
                known != contents.end() ? known->second : contentOf(files, {number}, store);
            contents.emplace(version.identity, contentOfFile[number]);
        }
    }
    const std::uint64_t comparison = store.newNumber();
    for (std::uint32_t number = 0; number < files.size(); ++number) {
        FileVersion& version = *files[number]->version();
        if (!version.isDoubtful) {
            version.content = contentOfFile[number];
            version.comparison = comparison;
        }
    }
}

}  // namespace tarvin
