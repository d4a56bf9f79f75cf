#include "model/marking_rule.h"

#include "model/result_tree.h"
#include "support/test_seeds.h"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <ctime>
#include <memory>
#include <optional>
#include <ostream>
#include <random>
#include <string>
#include <utility>
#include <vector>

namespace tarvin {

void PrintTo(const MarkingOutcome& outcome, std::ostream* out) {
    *out << outcome.files << " files, " << outcome.bytes << " bytes, " << outcome.sets << " sets, "
         << outcome.blocked << " blocked";
}

namespace {

/// A file of a set, 10 bytes long.
struct Copy {
    std::string path;
    std::optional<std::int64_t> modified{};  ///< nanoseconds since 1970
};

std::shared_ptr<Set> setOf(const std::vector<Copy>& copies) {
    auto set = std::make_shared<Set>();
    for (const Copy& copy : copies) {
        const auto date = copy.modified
                              ? std::optional(Timestamp(std::chrono::nanoseconds(*copy.modified)))
                              : std::nullopt;
        auto file = FileStore::standalone(copy.path, 10, date);
        file->setIndex(static_cast<std::int64_t>(set->files().size()));
        set->addFiles(std::move(file));
    }
    set->setTotalFilesInSet(lessened(copies.size(), 1));
    set->setTotalFilesInSetSize(10 * lessened(copies.size(), 1));
    return set;
}

RuleFolder named(const std::string& path) {
    return {{path}};
}

/// The path of the one file that a rule leaves in a set.
std::string stayingBy(KeepRule keep, const std::vector<Copy>& copies,
                      std::vector<RuleFolder> preferred = {}) {
    const std::shared_ptr<Set> set = setOf(copies);
    Modal modal;
    fill(modal, {makeExtension("jpg", {set})});
    markByRule(modal, {.keep = keep, .preferred = std::move(preferred)});
    std::string staying;
    for (const std::shared_ptr<File>& file : set->files()) {
        if (file->state() == off) {
            staying += file->filePath();
        }
    }
    EXPECT_EQ(set->totalFilesSelectedInSet(), copies.size() - 1);
    return staying;
}

TEST(MarkingRule, KeepsTheFirstFound) {
    EXPECT_EQ(stayingBy(KeepRule::first, {{"/b", 5}, {"/a", 9}, {"/c", 1}}), "/b");
}

TEST(MarkingRule, KeepsTheNewest) {
    EXPECT_EQ(stayingBy(KeepRule::newest, {{"/a", 5}, {"/b", 9}, {"/c", -1}}), "/b");
}

TEST(MarkingRule, KeepsTheOldest) {
    EXPECT_EQ(stayingBy(KeepRule::oldest, {{"/a", 5}, {"/b", 9}, {"/c", -1}}), "/c");
}

TEST(MarkingRule, AFileWithoutADateIsNeitherNewestNorOldest) {
    for (const KeepRule keep : {KeepRule::newest, KeepRule::oldest}) {
        EXPECT_EQ(stayingBy(keep, {{"/a"}, {"/b", -5}, {"/c"}}), "/b");
        EXPECT_EQ(stayingBy(keep, {{"/b", -5}, {"/c"}}), "/b");
        EXPECT_EQ(stayingBy(keep, {{"/a"}, {"/b"}}), "/a");
    }
}

TEST(MarkingRule, KeepsTheShortestPathInBytes) {
    EXPECT_EQ(stayingBy(KeepRule::shortest, {{"/long/a"}, {"/s/bcd"}, {"/longer/a"}}), "/s/bcd");
    EXPECT_EQ(stayingBy(KeepRule::shortest, {{"/\u00E4\u00E4"}, {"/aaa"}}), "/aaa");
}

TEST(MarkingRule, KeepsTheLongestPath) {
    EXPECT_EQ(stayingBy(KeepRule::longest, {{"/long/a"}, {"/s/bcd"}, {"/longer/a"}}), "/longer/a");
}

TEST(MarkingRule, OfEqualCandidatesTheFirstFoundStays) {
    const std::vector<Copy> copies{{"/x/1", 7}, {"/a/2", 7}, {"/b/3", 7}};
    for (const KeepRule keep : {KeepRule::first, KeepRule::newest, KeepRule::oldest,
                                KeepRule::shortest, KeepRule::longest, KeepRule::preferred}) {
        EXPECT_EQ(stayingBy(keep, copies), "/x/1");
        EXPECT_EQ(stayingBy(keep, copies, {named("/elsewhere")}), "/x/1");
        EXPECT_EQ(stayingBy(keep, copies, {named("/")}), "/x/1");
    }
}

TEST(MarkingRule, KeepsTheCopyInTheFirstPreferredFolderThatHoldsOne) {
    const std::vector<Copy> copies{{"/x/1"}, {"/b/2"}, {"/a/deep/3"}, {"/a/4"}};
    EXPECT_EQ(stayingBy(KeepRule::preferred, copies, {named("/a"), named("/b")}), "/a/deep/3");
    EXPECT_EQ(stayingBy(KeepRule::preferred, copies, {named("/b"), named("/a")}), "/b/2");
    EXPECT_EQ(stayingBy(KeepRule::preferred, copies, {named("/none"), named("/b/2")}), "/x/1");
}

TEST(MarkingRule, APreferredFolderMayHaveSeveralPaths) {
    const std::vector<Copy> copies{{"/x/1"}, {"/b/2"}, {"/link/3"}};
    EXPECT_EQ(stayingBy(KeepRule::preferred, copies, {{{"/real", "/link"}}, named("/b")}),
              "/link/3");
}

TEST(MarkingRule, PreferredFoldersCountOnlyForTheirRule) {
    EXPECT_EQ(stayingBy(KeepRule::first, {{"/x/1"}, {"/a/2"}}, {named("/a")}), "/x/1");
}

/// Two extensions with three sets; the files are marked otherwise before.
class MarkingByRule : public testing::Test {
 protected:
    MarkingByRule() {
        jpgs_ = makeExtension("jpg", {two_, three_});
        pngs_ = makeExtension("png", {single_});
        fill(modal_, {jpgs_, pngs_});
        modal_.markAllExtension();
    }

    std::shared_ptr<Set> two_ = setOf({{"/a/1", 1}, {"/p/2", 2}});
    std::shared_ptr<Set> three_ = setOf({{"/p/3", 1}, {"/a/4", 3}, {"/p/5", 2}});
    std::shared_ptr<Set> single_ = setOf({{"/a/6"}});
    std::shared_ptr<Extensions> jpgs_;
    std::shared_ptr<Extensions> pngs_;
    Modal modal_;
};

TEST_F(MarkingByRule, ReplacesAllMarksAndUpdatesEveryLevel) {
    EXPECT_EQ(markByRule(modal_, {.keep = KeepRule::newest}), (MarkingOutcome{3, 30, 2, 0}));
    EXPECT_EQ(marksOf(*two_), (std::vector{on, off}));
    EXPECT_EQ(marksOf(*three_), (std::vector{on, off, on}));
    EXPECT_EQ(marksOf(*single_), (std::vector{off}));
    EXPECT_EQ(levelOf(*two_), (Level{on, 1, 10, 1, 10}));
    EXPECT_EQ(levelOf(*three_), (Level{on, 2, 20, 2, 20}));
    EXPECT_EQ(levelOf(*single_), (Level{off, 0, 0, 0, 0}));
    EXPECT_EQ(levelOf(*jpgs_), (Level{on, 3, 30, 3, 30}));
    EXPECT_EQ(levelOf(*pngs_), (Level{off, 0, 0, 0, 0}));
    EXPECT_EQ(levelOf(modal_), (Level{off, 3, 30, 3, 30}));
}

TEST_F(MarkingByRule, ProtectedFilesAreNeverMarked) {
    EXPECT_EQ(markByRule(modal_, {.keep = KeepRule::newest, .protectedFolders = {named("/p")}}),
              (MarkingOutcome{1, 10, 1, 1}));
    EXPECT_EQ(marksOf(*two_), (std::vector{on, off}));
    EXPECT_EQ(marksOf(*three_), (std::vector{off, off, off}));
    EXPECT_EQ(levelOf(*jpgs_), (Level{mixed, 3, 30, 1, 10}));
    EXPECT_EQ(levelOf(modal_), (Level{off, 3, 30, 1, 10}));
}

TEST_F(MarkingByRule, AProtectedFileThatStaysKeepsTheChosenOneToo) {
    EXPECT_EQ(markByRule(modal_, {.keep = KeepRule::first,
                                  .protectedFolders = {named("/p/5"), named("/p")}}),
              (MarkingOutcome{1, 10, 1, 1}));
    EXPECT_EQ(marksOf(*two_), (std::vector{off, off}));
    EXPECT_EQ(marksOf(*three_), (std::vector{off, on, off}));
    EXPECT_EQ(levelOf(*three_), (Level{mixed, 2, 20, 1, 10}));
}

TEST_F(MarkingByRule, WhereEveryFileIsProtectedNothingIsMarked) {
    EXPECT_EQ(markByRule(modal_, {.protectedFolders = {named("/")}}), (MarkingOutcome{0, 0, 0, 2}));
    EXPECT_EQ(levelOf(*jpgs_), (Level{off, 3, 30, 0, 0}));
    EXPECT_EQ(levelOf(modal_), (Level{off, 3, 30, 0, 0}));
}

TEST(MarkingRule, AFolderIsRecognisedByItsIdentity) {
    const std::shared_ptr<FileStore> store = FileStore::create();
    Directory* const one = store->addRoot("/one");
    Directory* const bound = store->addRoot("/bound");
    one->identity = {1, 10};
    bound->identity = {1, 20};
    auto set = std::make_shared<Set>();
    for (const Directory* folder : {one, bound}) {
        set->addFiles(store->share(store->addFile(folder, "a", 10, std::nullopt, std::nullopt)));
    }
    Modal modal;
    fill(modal, {makeExtension("jpg", {set})});
    const RuleFolder elsewhere{{"/elsewhere"}, {{1, 20}}};
    EXPECT_EQ(markByRule(modal, {.keep = KeepRule::preferred, .preferred = {elsewhere}}).files, 1U);
    EXPECT_EQ(marksOf(*set), (std::vector{on, off}));
    EXPECT_EQ(markByRule(modal, {.protectedFolders = {elsewhere}}).blocked, 1U);
    EXPECT_EQ(marksOf(*set), (std::vector{off, off}));
}

TEST_F(MarkingByRule, ClearsAMarkOfTheFirstFile) {
    modal_.unmarkAllExtension();
    modal_.changeStateOfExtension(jpgs_, two_, two_->files()[0]);
    EXPECT_EQ(markByRule(modal_, {}), (MarkingOutcome{3, 30, 2, 0}));
    EXPECT_EQ(marksOf(*two_), (std::vector{off, on}));
    EXPECT_EQ(levelOf(modal_), (Level{off, 3, 30, 3, 30}));
}

TEST_F(MarkingByRule, CountingChangesNothing) {
    const MarkingRule rule{.keep = KeepRule::newest, .protectedFolders = {named("/a")}};
    EXPECT_EQ(countByRule(modal_, rule), (MarkingOutcome{2, 20, 1, 1}));
    EXPECT_EQ(marksOf(*two_), (std::vector{off, on}));
    EXPECT_EQ(levelOf(modal_), (Level{off, 3, 30, 3, 30}));
    EXPECT_EQ(markByRule(modal_, rule), (MarkingOutcome{2, 20, 1, 1}));
}

TEST_F(MarkingByRule, ACountCanBeStopped) {
    std::atomic<bool> stop{false};
    EXPECT_EQ(countByRule(modal_, {}, &stop), (MarkingOutcome{3, 30, 2, 0}));
    stop = true;
    EXPECT_EQ(countByRule(modal_, {}, &stop), MarkingOutcome());
}

TEST_F(MarkingByRule, SetsAndExtensionsWithoutFilesStayUnmarked) {
    modal_.addExtension(std::make_shared<Extensions>("empty"));
    modal_.addExtension(makeExtension("none", {std::make_shared<Set>()}));
    EXPECT_EQ(markByRule(modal_, {}), (MarkingOutcome{3, 30, 2, 0}));
    EXPECT_EQ(modal_.extensions()[2]->extensionState(), off);
    EXPECT_EQ(modal_.extensions()[3]->extensionState(), off);
}

TEST_F(MarkingByRule, AnEmptyListHasNoOutcome) {
    Modal empty;
    EXPECT_EQ(markByRule(empty, {.keep = KeepRule::oldest}), MarkingOutcome());
}

TEST(MarkingRule, EverySetKeepsAFileAndNoProtectedFileIsMarked) {
    for (const auto seed : testSeeds(10)) {
        SCOPED_TRACE(seed);
        std::mt19937_64 random(seed);
        const std::vector<std::string> folders{"/a", "/a/b", "/ab", "/c"};
        Modal modal;
        auto extension = std::make_shared<Extensions>("jpg");
        for (int number = 0; number < 100; ++number) {
            std::vector<Copy> copies;
            for (std::size_t count = 1 + random() % 4; count > 0; --count) {
                copies.push_back({folders[random() % 4] + numbered("/", count),
                                  static_cast<std::int64_t>(random() % 3)});
            }
            extension->addSet(setOf(copies));
        }
        fill(modal, {extension});
        for (int keep = 0; keep < 6; ++keep) {
            const MarkingRule rule{
                .keep = static_cast<KeepRule>(keep),
                .preferred = {named(folders[random() % 4]), named(folders[random() % 4])},
                .protectedFolders = {named("/a/b")}};
            const MarkingOutcome outcome = markByRule(modal, rule);
            EXPECT_EQ(countByRule(modal, rule), outcome);
            std::uint64_t marked = 0;
            for (const std::shared_ptr<Set>& set : extension->sets()) {
                std::uint64_t ofSet = 0;
                for (const std::shared_ptr<File>& file : set->files()) {
                    ofSet += std::uint64_t{file->state() == on};
                    EXPECT_TRUE(file->state() == off || !file->filePath().starts_with("/a/b/"));
                }
                EXPECT_LT(ofSet, set->files().size());
                EXPECT_EQ(set->totalFilesSelectedInSet(), ofSet);
                EXPECT_EQ(set->setsState(), set->determineSelfState());
                marked += ofSet;
            }
            EXPECT_EQ(outcome.files, marked);
            EXPECT_EQ(outcome.bytes, 10 * marked);
            EXPECT_EQ(modal.totalFilesSelected(), marked);
        }
    }
}

}  // namespace
}  // namespace tarvin
