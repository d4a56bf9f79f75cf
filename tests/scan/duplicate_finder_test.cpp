#include "scan/duplicate_finder.h"

#include "support/comparison_fixture.h"
#include "support/faulty_file_system.h"
#include "support/pairwise_finder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

namespace tarvin {
namespace {

using Paths = std::vector<std::string>;

TEST(DuplicateFinder, EmptyListGivesAnEmptyResult) {
    ComparisonFixture fixture;
    const auto modal = fixture.find();
    EXPECT_EQ(modal->extensionCount(), 0U);
    EXPECT_EQ(fixture.processed(), 0U);
}

TEST(DuplicateFinder, OneFileGivesAnEmptyResult) {
    ComparisonFixture fixture;
    fixture.add("a.jpg", "x");
    const auto modal = fixture.find();
    EXPECT_EQ(modal->extensionCount(), 0U);
    EXPECT_EQ(modal->totalFiles(), 0U);
    EXPECT_EQ(fixture.processed(), 1U);
    EXPECT_TRUE(fixture.list().empty());
}

TEST(DuplicateFinder, ThreeEqualFilesFormOneSetInTheirOrder) {
    ComparisonFixture fixture;
    File* f1 = fixture.add("f1.jpg", "same bytes");
    File* f2 = fixture.add("f2.jpg", "same bytes");
    File* f3 = fixture.add("f3.jpg", "same bytes");
    const auto modal = fixture.find();
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
    ComparisonFixture fixture;
    fixture.add("a.jpg", "abc");
    fixture.add("b.jpg", "abd");
    EXPECT_EQ(fixture.find()->extensionCount(), 0U);
    EXPECT_EQ(fixture.processed(), 2U);
}

TEST(DuplicateFinder, SetBelongsToTheExtensionOfItsFirstFile) {
    ComparisonFixture fixture;
    fixture.add("a.JPG", "same");
    fixture.add("b.jpeg", "same");
    const auto modal = fixture.find();
    ASSERT_EQ(modal->extensionCount(), 1U);
    EXPECT_EQ(modal->extensions().front()->name(), "jpg");
    EXPECT_EQ(modal->getExtensionWithName("jpeg"), nullptr);
    EXPECT_EQ(modal->totalFiles(), 1U);
}

TEST(DuplicateFinder, ExtensionEndsAtItsFirstSpace) {
    ComparisonFixture fixture;
    fixture.add("a.jpg copy", "same");
    fixture.add("b.jpg", "same");
    const auto modal = fixture.find();
    ASSERT_EQ(modal->extensionCount(), 1U);
    EXPECT_EQ(modal->extensions().front()->name(), "jpg");
}

TEST(DuplicateFinder, TwoEmptyFilesFormASetOfNoSize) {
    ComparisonFixture fixture;
    fixture.add("a.jpg", "");
    fixture.add("b.jpg", "");
    const auto modal = fixture.find();
    ASSERT_EQ(modal->extensionCount(), 1U);
    EXPECT_EQ(modal->totalFiles(), 1U);
    EXPECT_EQ(modal->totalFilesSize(), 0U);
}

TEST(DuplicateFinder, OrdersExtensionsAndSetsByTheirFirstFiles) {
    ComparisonFixture fixture;
    const Paths jpg1{fixture.add("a1.jpg", "one")->filePath(), ""};
    const std::string png = fixture.add("p1.png", "two")->filePath();
    const std::string jpg2 = fixture.add("b1.jpg", "three")->filePath();
    const std::string png2 = fixture.add("p2.png", "two")->filePath();
    const std::string jpg2b = fixture.add("b2.jpg", "three")->filePath();
    const std::string jpg1b = fixture.add("a2.jpg", "one")->filePath();
    const PlainResult expected{{"jpg", {{jpg1[0], jpg1b}, {jpg2, jpg2b}}}, {"png", {{png, png2}}}};
    EXPECT_EQ(plainResultOf(*fixture.find()), expected);
}

TEST(DuplicateFinder, ReportsPivotsAndDuplicatesInListOrder) {
    ComparisonFixture fixture;
    const std::string a = fixture.add("a.jpg", "same")->filePath();
    const std::string b = fixture.add("b.jpg", "lone!")->filePath();
    const std::string c = fixture.add("c.jpg", "same")->filePath();
    const std::string d = fixture.add("d.jpg", "diff")->filePath();
    fixture.find();
    EXPECT_EQ(fixture.reported(), (Paths{a, c, b, d}));
    EXPECT_EQ(fixture.processed(), 4U);
}

TEST(DuplicateFinder, UsesRecordedSizesAndCurrentContents) {
    ComparisonFixture fixture;
    const std::string grown = fixture.folder().writeFile("grown.jpg", "longer than recorded");
    const std::string twin = fixture.folder().writeFile("twin.jpg", "longer than recorded");
    const std::string other = fixture.folder().writeFile("other.jpg", "ab");
    fixture.addPath(grown, 2);
    fixture.addPath(twin, 2);
    fixture.addPath(other, 2);
    const PlainResult expected{{"jpg", {{grown, twin}}}};
    EXPECT_EQ(plainResultOf(*fixture.find()), expected);
}

TEST(DuplicateFinder, FileThatHasGrownIsComparedToItsEnd) {
    ComparisonFixture fixture;
    const std::string content = noise(300'000, 1);
    std::string late = content;
    late[200'000] = static_cast<char>(late[200'000] ^ 1);
    const std::string a = fixture.folder().writeFile("a.jpg", content);
    const std::string b = fixture.folder().writeFile("b.jpg", late);
    const std::string c = fixture.folder().writeFile("c.jpg", content);
    for (const std::string& path : {a, b, c}) {
        fixture.addPath(path, 10);
    }
    const PlainResult expected{{"jpg", {{a, c}}}};
    EXPECT_EQ(plainResultOf(*fixture.find()), expected);
}

TEST(DuplicateFinder, FilesRecordedWithDifferentSizesAreNeverCompared) {
    ComparisonFixture fixture;
    fixture.addPath(fixture.folder().writeFile("a.jpg", "same"), 4);
    fixture.addPath(fixture.folder().writeFile("b.jpg", "same"), 5);
    EXPECT_EQ(fixture.find()->extensionCount(), 0U);
}

TEST(DuplicateFinder, StopBeforeTheFirstFileKeepsTheOthersInTheList) {
    ComparisonFixture fixture;
    fixture.add("a.jpg", "same");
    fixture.add("b.jpg", "same");
    fixture.add("c.jpg", "same");
    fixture.control().setStop(true);
    EXPECT_EQ(fixture.find()->extensionCount(), 0U);
    // The first file was taken out before the walk saw the stop.
    EXPECT_EQ(fixture.processed(), 1U);
    EXPECT_EQ(fixture.list().size(), 2U);
}

/// Stops the scan when a certain file is reported.
class StoppingBench {
 public:
    explicit StoppingBench(std::string at) : at_(std::move(at)), observer_(*this) {}

    std::shared_ptr<Modal> find(std::vector<File*>& list, FileStore& store) {
        ScanTools tools(systemFileSystem(), {2, 2});
        ProgressGate gate(std::chrono::milliseconds(0));
        std::atomic<std::uint64_t> processed{0};
        ComparedBytes bytes{1};
        DuplicateFinder finder(tools.servicesWith(control_), observer_, gate, processed, bytes);
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

TEST(DuplicateFinder, StopInsideASetKeepsTheWholeSet) {
    ComparisonFixture files;
    const std::string a = files.add("a.jpg", "same")->filePath();
    const std::string b = files.add("b.jpg", "same")->filePath();
    const std::string c = files.add("c.jpg", "same")->filePath();
    files.add("d.jpg", "other");
    files.add("e.jpg", "single");
    const auto modal = StoppingBench("/b.jpg").find(files.list(), files.store());
    const PlainResult expected{{"jpg", {{a, b, c}}}};
    EXPECT_EQ(plainResultOf(*modal), expected);
    // The next pivot, d, had left the list before the walk saw the stop.
    ASSERT_EQ(files.list().size(), 1U);
    EXPECT_EQ(files.list()[0]->fileName(), "e.jpg");
}

TEST(DuplicateFinder, StopAtAPivotKeepsEarlierAndConfirmedSets) {
    ComparisonFixture files;
    const std::string a = files.add("a.jpg", "same")->filePath();
    const std::string b = files.add("b.jpg", "same")->filePath();
    const std::string c = files.add("c.jpg", "twin")->filePath();
    const std::string d = files.add("d.jpg", "twin")->filePath();
    const auto modal = StoppingBench("/c.jpg").find(files.list(), files.store());
    const PlainResult expected{{"jpg", {{a, b}, {c, d}}}};
    EXPECT_EQ(plainResultOf(*modal), expected);
}

TEST(DuplicateFinder, FilesKeepTheirStoreAlive) {
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
        ComparisonFixture fixture;
        modal = fixture.finder().findDuplicates(list, *store);
    }
    ASSERT_EQ(modal->extensionCount(), 1U);
    EXPECT_EQ(modal->extensions()[0]->sets()[0]->files()[1]->fileName(), "b.txt");
}

TEST(DuplicateFinder, SetTotalsCountAllFilesButTheFirst) {
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

TEST(FilesOfAFolder, AreOpenedByTheirNames) {
    FaultyFileSystem fileSystem;
    ComparisonFixture fixture(fileSystem);
    fixture.add("a.jpg", "content");
    fixture.add("b.jpg", "content");
    EXPECT_EQ(fixture.find()->totalFiles(), 1U);
    EXPECT_GE(fileSystem.calls(FileCall::openFolderOfFiles), 1U);
    EXPECT_EQ(fileSystem.calls(FileCall::openFileAt), 2U);
}

TEST(FilesOfAFolder, AreFoundInTheFolderThatHasReplacedIt) {
    FaultyFileSystem fileSystem;
    ComparisonFixture fixture(fileSystem, {1, 1});
    fixture.add("folder/a.jpg", "content");
    const std::string path = fixture.add("folder/b.jpg", "content")->filePath();
    const std::string folder = fixture.folder().pathOf("folder");
    fileSystem.beforeCall(
        FileCall::openFile, 1,
        [&] {
            const std::string aside = fixture.folder().pathOf("aside");
            std::filesystem::rename(path, aside);
            std::filesystem::rename(folder, fixture.folder().pathOf("old"));
            std::filesystem::create_directory(folder);
            std::filesystem::rename(aside, path);
        },
        "/b.jpg");
    EXPECT_EQ(fixture.find()->totalFiles(), 1U);
    EXPECT_EQ(fixture.unreadable().total(), 0U);
}

TEST(FilesOfAFolder, AreOpenedByTheirPathsIfFewFilesMayBeOpen) {
    FaultyFileSystem fileSystem;
    fileSystem.setDescriptorLimit(32);
    ComparisonFixture fixture(fileSystem);
    fixture.add("a.jpg", "content");
    fixture.add("b.jpg", "content");
    EXPECT_EQ(fixture.find()->totalFiles(), 1U);
    EXPECT_EQ(fileSystem.calls(FileCall::openFolderOfFiles), 0U);
}

}  // namespace
}  // namespace tarvin
