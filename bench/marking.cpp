// Measures marking by a rule: 200,000 sets of three files each, in as many folders as sets, with no
// folders in the rule and with a hundred preferred and a hundred protected ones.

#include "model/file_store.h"
#include "model/marking_rule.h"

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <cstdio>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace tarvin {
namespace {

constexpr int setCount = 200'000;
constexpr int copiesOfSet = 3;
constexpr int years = 50;
constexpr int topFolders = 200;
constexpr int runs = 7;

/// Of a folder of the uppermost level.
FileIdentity identityOf(int top) {
    return {1, static_cast<std::uint64_t>(top) + 1};
}

/// The files of a set are in different folders, four levels deep, as copies usually are.
void fillWithSets(Modal& modal) {
    const std::shared_ptr<FileStore> store = FileStore::create();
    const Directory* const root = store->addRoot("/home/anna");
    std::vector<const Directory*> folders;
    for (int top = 0; top < topFolders; ++top) {
        Directory* const above = store->addDirectory(root, "folder " + std::to_string(top));
        above->identity = identityOf(top);
        for (int year = 0; year < years; ++year) {
            const Directory* const of = store->addDirectory(above, std::to_string(1980 + year));
            for (int month = 0; month < setCount / topFolders / years; ++month) {
                folders.push_back(store->addDirectory(of, std::to_string(month)));
            }
        }
    }
    auto extension = std::make_shared<Extensions>("jpg");
    for (std::size_t number = 0; number < setCount; ++number) {
        auto set = std::make_shared<Set>();
        for (std::size_t copy = 0; copy < copiesOfSet; ++copy) {
            const std::size_t place = (number + copy * 70'001) % folders.size();
            set->addFiles(store->share(
                store->addFile(folders[place], "IMG_" + std::to_string(number) + ".jpg", 1'000'000,
                               Timestamp(std::chrono::seconds((number * 7919 + copy * 31) % 1009)),
                               std::nullopt)));
        }
        set->setTotalFilesInSet(copiesOfSet - 1);
        set->setTotalFilesInSetSize((copiesOfSet - 1) * 1'000'000ULL);
        extension->addSet(std::move(set));
    }
    extension->setTotalFilesInExtension(setCount * (copiesOfSet - 1ULL));
    modal.addExtension(std::move(extension));
    modal.calculateTotalFilesAndSize();
}

void measure(Modal& modal, const char* name, const MarkingRule& rule) {
    std::vector<double> milliseconds;
    MarkingOutcome outcome;
    for (int run = 0; run < runs; ++run) {
        const auto start = std::chrono::steady_clock::now();
        outcome = markByRule(modal, rule);
        const std::chrono::duration<double, std::milli> took =
            std::chrono::steady_clock::now() - start;
        milliseconds.push_back(took.count());
    }
    std::sort(milliseconds.begin(), milliseconds.end());
    std::printf("%-34s median %6.1f ms, worst %6.1f ms, %llu files marked, %llu sets blocked\n",
                name, milliseconds[runs / 2], milliseconds.back(),
                static_cast<unsigned long long>(outcome.files),
                static_cast<unsigned long long>(outcome.blocked));
}

int run() {
    Modal modal;
    fillWithSets(modal);
    measure(modal, "first", {.keep = KeepRule::first});
    measure(modal, "newest", {.keep = KeepRule::newest});
    measure(modal, "shortest", {.keep = KeepRule::shortest});
    MarkingRule folders{.keep = KeepRule::preferred};
    for (int top = 0; top < topFolders / 2; ++top) {
        folders.preferred.push_back(
            {{"/home/anna/folder " + std::to_string(2 * top)}, {identityOf(2 * top)}});
        folders.protectedFolders.push_back({{"/home/anna/folder " + std::to_string(2 * top + 1) +
                                             "/" + std::to_string(1980 + top % years)},
                                            {identityOf(2 * top + 1)}});
    }
    measure(modal, "preferred, 100 and 100 folders", folders);
    return 0;
}

}  // namespace
}  // namespace tarvin

int main() {
    return tarvin::run();
}
