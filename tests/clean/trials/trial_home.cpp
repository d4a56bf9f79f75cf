#include "clean/trials/trial_home.h"

#include "clean/recovery.h"
#include "platform/platform.h"
#include "scan/scan_run.h"
#include "store/clean_up_journal.h"
#include "store/data_file.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

namespace tarvin {

namespace {

namespace fs = std::filesystem;

std::vector<fs::path> entriesOf(const std::string& folder) {
    std::error_code missing;
    std::vector<fs::path> entries;
    for (const fs::directory_entry& entry : fs::directory_iterator(folder, missing)) {
        entries.push_back(entry.path());
    }
    return entries;
}

std::string decoded(std::string_view text) {
    std::string bytes;
    for (std::size_t at = 0; at < text.size(); ++at) {
        if (text[at] == '%' && at + 2 < text.size()) {
            bytes += static_cast<char>(std::stoi(std::string(text.substr(at + 1, 2)), nullptr, 16));
            at += 2;
        } else {
            bytes += text[at];
        }
    }
    return bytes;
}

/// Returns the path in a .trashinfo file; empty if the file is incomplete.
std::string pathInTrashInfo(const std::string& text) {
    constexpr std::string_view head = "[Trash Info]\nPath=";
    constexpr std::string_view date = "\nDeletionDate=";
    constexpr std::size_t dateLength = std::string_view("2026-01-31T12:00:00\n").size();
    const std::size_t at = text.find(date);
    if (!text.starts_with(head) || at == std::string::npos || !text.ends_with('\n') ||
        text.size() != at + date.size() + dateLength) {
        return {};
    }
    return decoded(std::string_view(text).substr(head.size(), at - head.size()));
}

std::string supportFolder() {
    return systemPlatform().applicationSupportFolder().value_or("");
}

/// Returns the names in the Trash that the journal has as moved.
std::set<std::string> journalNames(const std::string& trash) {
    std::set<std::string> names;
    auto opened = CleanUpJournal::open(supportFolder());
    auto* journal = std::get_if<CleanUpJournal>(&opened);
    if (journal == nullptr) {
        return names;
    }
    auto cleanUps = journal->cleanUps();
    for (const CleanUpSummary& each : std::get<std::vector<CleanUpSummary>>(cleanUps)) {
        const auto failure =
            journal->forEachMove(each.id, {MoveState::moved}, CleanUpJournal::Order::asPlanned,
                                 [&](const JournalMove& move) {
                                     if (move.trashFolder == trash) {
                                         names.insert(move.trashName);
                                     }
                                     return true;
                                 });
        static_cast<void>(failure);  // shows as missing names
    }
    return names;
}

}  // namespace

TrialHome::TrialHome(std::string path) : path_(std::move(path)) {
    // NOLINTBEGIN(concurrency-mt-unsafe)
    ::setenv("HOME", path_.c_str(), 1);
    ::setenv("XDG_DATA_HOME", (path_ + "/data").c_str(), 1);
    // NOLINTEND(concurrency-mt-unsafe)
    renew();
}

void TrialHome::renew() const {
    fs::remove_all(path_);
    fs::create_directories(path_ + "/data");
}

std::size_t TrialHome::trashed() const {
    return entriesOf(trash() + "/files").size();
}

std::size_t TrialHome::trashInfosWithoutFile() const {
    std::size_t count = 0;
    for (const fs::path& info : entriesOf(trash() + "/info")) {
        count += std::size_t{!fs::exists(trash() + "/files/" + info.stem().native())};
    }
    return count;
}

Losses& Losses::operator+=(const Losses& more) {
    contents += more.contents;
    files += more.files;
    trashInfos += more.trashInfos;
    rows += more.rows;
    totals += more.totals;
    return *this;
}

std::string described(const Losses& losses) {
    std::string text = std::to_string(losses.contents) + " without a living copy";
    text += ", " + std::to_string(losses.files) + " files lost";
    text += ", " + std::to_string(losses.trashInfos) + " without a .trashinfo file";
    text += ", " + std::to_string(losses.rows) + " without a journal row";
    text += ", " + std::to_string(losses.totals) + " wrong totals";
    return text;
}

Losses lossesOf(const TrialHome& home, const Originals& originals) {
    Losses losses;
    std::set<std::string> living;
    std::set<std::string> missing;
    std::set<std::string> contents;
    for (const auto& [path, bytes] : originals) {
        contents.insert(bytes);
        if (bytesOf(path) == bytes) {
            living.insert(bytes);
        } else {
            missing.insert(path);
        }
    }
    losses.contents = contents.size() - living.size();
    std::set<std::string> rows = journalNames(home.trash());
    std::int64_t count = 0;
    std::uint64_t size = 0;
    for (const fs::path& file : entriesOf(home.trash() + "/files")) {
        const std::string name = file.filename();
        const std::string from =
            pathInTrashInfo(bytesOf(home.trash() + "/info/" + name + ".trashinfo"));
        const auto original = originals.find(from);
        const std::string bytes = bytesOf(file);
        losses.trashInfos += std::uint64_t{original == originals.end()};
        losses.rows += std::uint64_t{rows.erase(name) == 0};
        if (original != originals.end() && original->second == bytes) {
            missing.erase(from);
        }
        ++count;
        size += bytes.size();
    }
    losses.rows += rows.size();
    losses.files = missing.size();
    DataFile totals(supportFolder());
    totals.refresh();
    losses.totals =
        std::uint64_t{totals.alreadyDeletedCount() != count || totals.alreadyDeletedSize() != size};
    return losses;
}

Originals writeSets(const std::string& tree, std::initializer_list<const char*> folders,
                    std::size_t sets) {
    Originals originals;
    for (const char* folder : folders) {
        fs::create_directories(tree + folder);
        for (std::size_t number = 0; number < sets; ++number) {
            const std::string path = tree + folder + '/' + std::to_string(number) + ".jpg";
            originals[path] = "content " + std::to_string(number);
            writeBytes(path, originals[path]);
        }
    }
    return originals;
}

bool recoverAsAtTheStart() {
    DataFile totals(supportFolder());
    return !recoverAtStart(systemPlatform(), totals).has_value();
}

std::shared_ptr<Modal> scanned(const std::vector<std::string>& folders) {
    ScanObserver observer;
    ScanRun run(systemPlatform(), observer);
    std::vector<LocationRow> rows;
    for (const std::string& folder : folders) {
        rows.push_back({folder, "", "", true, true});
    }
    run.start(std::move(rows), {});
    run.wait();
    std::shared_ptr<Modal> modal = run.result().modal;
    modal->markAllExtension();
    return modal;
}

std::string bytesOf(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

void writeBytes(const std::string& path, const std::string& bytes) {
    std::ofstream(path, std::ios::binary) << bytes;
}

}  // namespace tarvin
