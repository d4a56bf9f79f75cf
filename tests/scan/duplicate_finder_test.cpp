#include "scan/duplicate_finder.h"

#include "support/comparison_fixture.h"
#include "support/pairwise_finder.h"

#include <gtest/gtest.h>

namespace tarvin {
namespace {

using Paths = std::vector<std::string>;

TEST(DuplicateFinder, AnEmptyListGivesAnEmptyResult) {
    ComparisonFixture bench;
    const auto modal = bench.find();
    EXPECT_EQ(modal->extensionCount(), 0U);
    EXPECT_EQ(bench.processed(), 0U);
}

TEST(DuplicateFinder, OneFileGivesAnEmptyResult) {
    ComparisonFixture bench;
    bench.add("a.jpg", "x");
    const auto modal = bench.find();
    EXPECT_EQ(modal->extensionCount(), 0U);
    EXPECT_EQ(modal->totalFiles(), 0U);
    EXPECT_EQ(bench.processed(), 1U);
    EXPECT_TRUE(bench.list().empty());
}

TEST(DuplicateFinder, ThreeEqualFilesFormOneSetInTheirOrder) {
    ComparisonFixture bench;
    File* f1 = bench.add("f1.jpg", "same bytes");
    File* f2 = bench.add("f2.jpg", "same bytes");
    File* f3 = bench.add("f3.jpg", "same bytes");
    const auto modal = bench.find();
    ASSERT_EQ(modal->extensionCount(), 1U);
    const Extensions& extension = *modal->extensions().front();
    ASSERT_EQ(extension.nummberOfSets(), 1U);
    const Set& set = *extension.sets().front();
    ASSERT_EQ(set.files().size(), 3U);
    EXPECT_EQ(set.files()[0].get(), f1);
    EXPECT_EQ(set.files()[1].get(), f2);
    EXPECT_EQ(set.files()[2].get(), f3);
    EXPECT_EQ(set.files()[2]->index(), 2);
    EXPECT_EQ(set.files()[2]->state(), CheckState::off);
    EXPECT_EQ(set.totalFilesInSet(), 2U);
    EXPECT_EQ(set.totalFilesInSetSize(), 20U);
    EXPECT_EQ(extension.totalFilesInExtension(), 2U);
    EXPECT_EQ(extension.totalFilesInExtensionSize(), 20U);
    EXPECT_EQ(modal->totalFiles(), 2U);
    EXPECT_EQ(modal->totalFilesSize(), 20U);
}

TEST(DuplicateFinder, EqualSizesWithDifferentBytesFormNoSet) {
    ComparisonFixture bench;
    bench.add("a.jpg", "abc");
    bench.add("b.jpg", "abd");
    EXPECT_EQ(bench.find()->extensionCount(), 0U);
    EXPECT_EQ(bench.processed(), 2U);
}

TEST(DuplicateFinder, ASetStandsUnderTheExtensionOfItsFirstFile) {
    ComparisonFixture bench;
    bench.add("a.JPG", "same");
    bench.add("b.jpeg", "same");
    const auto modal = bench.find();
    ASSERT_EQ(modal->extensionCount(), 1U);
    EXPECT_EQ(modal->extensions().front()->name(), "jpg");
    EXPECT_EQ(modal->getExtensionWithName("jpeg"), nullptr);
    EXPECT_EQ(modal->totalFiles(), 1U);
}

TEST(DuplicateFinder, AnExtensionEndsAtItsFirstBlank) {
    ComparisonFixture bench;
    bench.add("a.jpg copy", "same");
    bench.add("b.jpg", "same");
    const auto modal = bench.find();
    ASSERT_EQ(modal->extensionCount(), 1U);
    EXPECT_EQ(modal->extensions().front()->name(), "jpg");
}

TEST(DuplicateFinder, TwoEmptyFilesFormASetOfNoSize) {
    ComparisonFixture bench;
    bench.add("a.jpg", "");
    bench.add("b.jpg", "");
    const auto modal = bench.find();
    ASSERT_EQ(modal->extensionCount(), 1U);
    EXPECT_EQ(modal->totalFiles(), 1U);
    EXPECT_EQ(modal->totalFilesSize(), 0U);
}

TEST(DuplicateFinder, ExtensionsAndSetsComeInTheOrderOfTheirFirstFiles) {
    ComparisonFixture bench;
    const Paths jpg1{bench.add("a1.jpg", "one")->filePath(), ""};
    const std::string png = bench.add("p1.png", "two")->filePath();
    const std::string jpg2 = bench.add("b1.jpg", "three")->filePath();
    const std::string png2 = bench.add("p2.png", "two")->filePath();
    const std::string jpg2b = bench.add("b2.jpg", "three")->filePath();
    const std::string jpg1b = bench.add("a2.jpg", "one")->filePath();
    const PlainResult expected{{"jpg", {{jpg1[0], jpg1b}, {jpg2, jpg2b}}}, {"png", {{png, png2}}}};
    EXPECT_EQ(plainResultOf(*bench.find()), expected);
}

TEST(DuplicateFinder, TellsThePivotsAndTheirTwinsInTheOrderTheyLeaveTheList) {
    ComparisonFixture bench;
    const std::string a = bench.add("a.jpg", "same")->filePath();
    const std::string b = bench.add("b.jpg", "lone!")->filePath();
    const std::string c = bench.add("c.jpg", "same")->filePath();
    const std::string d = bench.add("d.jpg", "diff")->filePath();
    bench.find();
    EXPECT_EQ(bench.told(), (Paths{a, c, b, d}));
    EXPECT_EQ(bench.processed(), 4U);
}

TEST(DuplicateFinder, SizesAreThoseRecordedAndContentsThoseOfNow) {
    ComparisonFixture bench;
    const std::string grown = bench.folder().writeFile("grown.jpg", "longer than recorded");
    const std::string twin = bench.folder().writeFile("twin.jpg", "longer than recorded");
    const std::string other = bench.folder().writeFile("other.jpg", "ab");
    bench.addPath(grown, 2);
    bench.addPath(twin, 2);
    bench.addPath(other, 2);
    const PlainResult expected{{"jpg", {{grown, twin}}}};
    EXPECT_EQ(plainResultOf(*bench.find()), expected);
}

TEST(DuplicateFinder, AFileThatGrewFarBeyondItsRecordIsComparedToItsEnd) {
    ComparisonFixture bench;
    const std::string content = noise(300'000, 1);
    std::string late = content;
    late[200'000] = static_cast<char>(late[200'000] ^ 1);
    const std::string a = bench.folder().writeFile("a.jpg", content);
    const std::string b = bench.folder().writeFile("b.jpg", late);
    const std::string c = bench.folder().writeFile("c.jpg", content);
    for (const std::string& path : {a, b, c}) {
        bench.addPath(path, 10);
    }
    const PlainResult expected{{"jpg", {{a, c}}}};
    EXPECT_EQ(plainResultOf(*bench.find()), expected);
}

TEST(DuplicateFinder, FilesRecordedWithDifferentSizesAreNeverCompared) {
    ComparisonFixture bench;
    bench.addPath(bench.folder().writeFile("a.jpg", "same"), 4);
    bench.addPath(bench.folder().writeFile("b.jpg", "same"), 5);
    EXPECT_EQ(bench.find()->extensionCount(), 0U);
}

TEST(DuplicateFinder, AStopBeforeTheFirstFileLeavesTheOthersInTheList) {
    ComparisonFixture bench;
    bench.add("a.jpg", "same");
    bench.add("b.jpg", "same");
    bench.add("c.jpg", "same");
    bench.control().setStop(true);
    EXPECT_EQ(bench.find()->extensionCount(), 0U);
    // The first file was taken out before the stop was noticed.
    EXPECT_EQ(bench.processed(), 1U);
    EXPECT_EQ(bench.list().size(), 2U);
}

/// Stops the scan when it is told of a certain file.
class StoppingBench {
 public:
    explicit StoppingBench(std::string at) : at_(std::move(at)), observer_(*this) {}

    std::shared_ptr<Modal> find(std::vector<File*>& list, FileStore& store) {
        ScanTools tools(systemFileSystem(), {2, 2});
        ProgressGate gate(std::chrono::milliseconds(0));
        std::atomic<std::uint64_t> processed{0};
        DuplicateFinder finder(tools.servicesWith(control_), observer_, gate, processed);
        return finder.findDuplicates(list, store);
    }

 private:
    class Observer final : public ScanObserver {
     public:
        explicit Observer(StoppingBench& owner) : owner_(owner) {}
        void processing(const std::string& path, std::uint64_t) override {
            if (path.ends_with(owner_.at_)) {
                owner_.control_.setStop(true);
            }
        }

     private:
        StoppingBench& owner_;
    };

    std::string at_;
    ScanControl control_;
    Observer observer_;
};

TEST(DuplicateFinder, AStopInsideASetFilesTheWholeSet) {
    ComparisonFixture files;
    const std::string a = files.add("a.jpg", "same")->filePath();
    const std::string b = files.add("b.jpg", "same")->filePath();
    const std::string c = files.add("c.jpg", "same")->filePath();
    files.add("d.jpg", "other");
    files.add("e.jpg", "single");
    const auto modal = StoppingBench("/b.jpg").find(files.list(), files.store());
    const PlainResult expected{{"jpg", {{a, b, c}}}};
    EXPECT_EQ(plainResultOf(*modal), expected);
    // The next pivot, d, had left the list before the stop was noticed.
    ASSERT_EQ(files.list().size(), 1U);
    EXPECT_EQ(files.list()[0]->fileName(), "e.jpg");
}

TEST(DuplicateFinder, AStopAtAPivotKeepsTheSetsBeforeItAndThoseThatAreProven) {
    ComparisonFixture files;
    const std::string a = files.add("a.jpg", "same")->filePath();
    const std::string b = files.add("b.jpg", "same")->filePath();
    const std::string c = files.add("c.jpg", "twin")->filePath();
    const std::string d = files.add("d.jpg", "twin")->filePath();
    const auto modal = StoppingBench("/c.jpg").find(files.list(), files.store());
    const PlainResult expected{{"jpg", {{a, b}, {c, d}}}};
    EXPECT_EQ(plainResultOf(*modal), expected);
}

TEST(DuplicateFinder, FilesOutliveTheStoreTheyCameFrom) {
    std::shared_ptr<Modal> modal;
    {
        auto store = FileStore::create();
        std::vector<File*> list;
        TemporaryFolder folder;
        const Directory* root = store->addRoot(folder.path());
        for (const char* name : {"a.txt", "b.txt"}) {
            folder.writeFile(name, "same");
            list.push_back(store->addFile(root, name, 4, std::nullopt, std::nullopt));
        }
        ComparisonFixture bench;
        modal = bench.finder().findDuplicates(list, *store);
    }
    ASSERT_EQ(modal->extensionCount(), 1U);
    EXPECT_EQ(modal->extensions()[0]->sets()[0]->files()[1]->fileName(), "b.txt");
}

TEST(DuplicateFinder, ASetCountsOnlyItsRedundantCopies) {
    const auto first = FileStore::standalone("/a.txt", 7);
    const auto second = FileStore::standalone("/b.txt", 7);
    second->setState(CheckState::on);
    const auto set = DuplicateFinder::setOfFileDetailsFrom({first, second});
    EXPECT_EQ(set->totalFilesInSet(), 1U);
    EXPECT_EQ(set->totalFilesInSetSize(), 7U);
    EXPECT_EQ(second->state(), CheckState::off);
    EXPECT_EQ(second->index(), 1);
    EXPECT_EQ(set->setsState(), CheckState::off);
}

}  // namespace
}  // namespace tarvin
