#include "store/data_file.h"

#include "store/exception_file.h"
#include "store/plist_library.h"
#include "store/plist_text.h"
#include "store/property_list.h"
#include "support/add_to_totals.h"
#include "support/file_content.h"
#include "support/mount.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>
#include <plist/plist.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <limits>
#include <sstream>
#include <string>
#include <variant>
#include <vector>

namespace tarvin {
namespace {

using Paths = std::vector<std::string>;

/// The number under a key of "data.plist".
std::optional<std::uint64_t> stored(const std::string& path, const char* key) {
    const auto list = PropertyList::parse(contentOf(path));
    return list ? list->number(key) : std::nullopt;
}

/// A binary property list of three numbers: deletedCount 7, deletedSize 8, other 9.
std::string binaryDictionary() {
    plist_t dictionary = plist_new_dict();
    plist_dict_set_item(dictionary, "deletedCount", plist_new_uint(7));
    plist_dict_set_item(dictionary, "deletedSize", plist_new_uint(8));
    plist_dict_set_item(dictionary, "other", plist_new_uint(9));
    char* bytes = nullptr;
    std::uint32_t length = 0;
    plist_to_bin(dictionary, &bytes, &length);
    std::string copy(bytes, length);
    freeWrittenList(bytes);
    plist_free(dictionary);
    return copy;
}

class DataFileTest : public ::testing::Test {
 protected:
    void write(const std::string& content) const { folder_.writeFile("own/data.plist", content); }

    TemporaryFolder folder_;
    std::string own_ = folder_.pathOf("own");
    std::string path_ = own_ + "/data.plist";
};

TEST_F(DataFileTest, IsCreatedWithItsFolderAtTheFirstStart) {
    DataFile data(own_);
    EXPECT_EQ(data.dataPath(), path_);
    EXPECT_FALSE(data.loadDataFile());
    EXPECT_EQ(data.alreadyDeletedCount(), 0);
    EXPECT_EQ(data.alreadyDeletedSize(), 0U);
    EXPECT_EQ(stored(path_, "deletedCount"), 0U);
    EXPECT_EQ(stored(path_, "deletedSize"), 0U);
    EXPECT_EQ(stored(path_, "matchingLevel"), 5U);
    EXPECT_EQ(stored(path_, "matchingSize"), 2U);
    EXPECT_TRUE(contentOf(path_).starts_with("<?xml"));
}

TEST_F(DataFileTest, AddsToTheStoredTotals) {
    write(
        plistText("<dict><key>deletedCount</key><integer>3</integer>"
                  "<key>deletedSize</key><integer>500</integer></dict>"));
    DataFile data(own_);
    EXPECT_FALSE(data.loadDataFile());
    EXPECT_EQ(data.alreadyDeletedCount(), 3);
    EXPECT_EQ(data.alreadyDeletedSize(), 500U);
    EXPECT_FALSE(addToTotals(data, 2, 70));
    EXPECT_EQ(data.alreadyDeletedCount(), 5);
    EXPECT_EQ(data.alreadyDeletedSize(), 570U);
    EXPECT_EQ(stored(path_, "deletedCount"), 5U);
    EXPECT_EQ(stored(path_, "deletedSize"), 570U);
}

TEST_F(DataFileTest, WithoutAKeyIsNotRepairedByLoading) {
    const std::string content =
        plistText("<dict><key>deletedSize</key><integer>9</integer></dict>");
    write(content);
    DataFile data(own_);
    EXPECT_FALSE(data.loadDataFile());
    EXPECT_EQ(data.alreadyDeletedCount(), 0);
    EXPECT_EQ(data.alreadyDeletedSize(), 9U);
    EXPECT_EQ(contentOf(path_), content);
}

TEST_F(DataFileTest, KeepsOtherKeys) {
    write(plistText("<dict><key>mine</key><string>kept</string></dict>"));
    DataFile data(own_);
    data.loadDataFile();
    EXPECT_FALSE(addToTotals(data, 1, 1));
    EXPECT_NE(contentOf(path_).find("<string>kept</string>"), std::string::npos);
    EXPECT_EQ(stored(path_, "matchingLevel"), std::nullopt);
}

TEST_F(DataFileTest, ReadsNumbersOfOtherTypes) {
    write(
        plistText("<dict><key>deletedCount</key><string>3</string>"
                  "<key>deletedSize</key><real>1000.75</real></dict>"));
    DataFile data(own_);
    EXPECT_FALSE(data.loadDataFile());
    EXPECT_EQ(data.alreadyDeletedCount(), 3);
    EXPECT_EQ(data.alreadyDeletedSize(), 1000U);
    EXPECT_FALSE(addToTotals(data, 1, 10));
    EXPECT_EQ(data.putAside(), "");
    EXPECT_EQ(stored(path_, "deletedCount"), 4U);
    EXPECT_EQ(stored(path_, "deletedSize"), 1010U);
}

TEST_F(DataFileTest, MovesAListWithoutNumbersAside) {
    for (const char* value : {"<array/>", "<string>3 files</string>", "<string></string>",
                              "<real>-1</real>", "<true/>", "<data>AAAA</data>"}) {
        const std::string list = plistText(std::string("<dict><key>deletedSize</key>") + value +
                                           "<key>deletedCount</key><integer>7</integer></dict>");
        write(list);
        DataFile data(own_);
        EXPECT_TRUE(data.loadDataFile()) << value;
        EXPECT_EQ(data.alreadyDeletedCount(), 0) << value;
        EXPECT_FALSE(addToTotals(data, 1, 10)) << value;
        ASSERT_NE(data.putAside(), "") << value;
        EXPECT_EQ(contentOf(data.putAside()), list);
        EXPECT_EQ(stored(path_, "deletedCount"), 1U) << value;
        EXPECT_EQ(stored(path_, "deletedSize"), 10U) << value;
    }
}

TEST_F(DataFileTest, AddsToNegativeTotals) {
    for (const char* count :
         {"<integer>-5</integer>", "<real>-5.5</real>", "<string>-5</string>"}) {
        write(plistText(std::string("<dict><key>deletedCount</key>") + count + "</dict>"));
        DataFile data(own_);
        EXPECT_FALSE(data.loadDataFile());
        EXPECT_EQ(data.alreadyDeletedCount(), -5) << count;
        EXPECT_FALSE(addToTotals(data, 2, 0));
        EXPECT_EQ(data.alreadyDeletedCount(), -3) << count;
        EXPECT_NE(contentOf(path_).find("<integer>-3</integer>"), std::string::npos) << count;
        EXPECT_FALSE(addToTotals(data, 7, 0));
        EXPECT_EQ(stored(path_, "deletedCount"), 4U) << count;
    }
}

TEST_F(DataFileTest, KeepsSizesAsUnsigned64Bits) {
    write(plistText("<dict><key>deletedSize</key><integer>9223372036854775807</integer></dict>"));
    DataFile data(own_);
    EXPECT_FALSE(data.loadDataFile());
    EXPECT_FALSE(addToTotals(data, 1, 1));
    EXPECT_EQ(data.alreadyDeletedSize(), 9'223'372'036'854'775'808U);
    EXPECT_NE(contentOf(path_).find("<integer>9223372036854775808</integer>"), std::string::npos);
    DataFile again(own_);
    EXPECT_FALSE(again.loadDataFile());
    EXPECT_EQ(again.alreadyDeletedSize(), 9'223'372'036'854'775'808U);
}

TEST_F(DataFileTest, InMemorySaturates) {
    write(
        plistText("<dict><key>deletedCount</key><integer>9223372036854775806</integer>"
                  "<key>deletedSize</key><integer>18446744073709551610</integer></dict>"));
    DataFile data(own_);
    data.loadDataFile();
    EXPECT_EQ(data.alreadyDeletedSize(), 18'446'744'073'709'551'610U);
    data.showAtLeast(data.shown(), 5, 50);
    EXPECT_EQ(data.alreadyDeletedCount(), std::numeric_limits<std::int64_t>::max());
    EXPECT_EQ(data.alreadyDeletedSize(), 18'446'744'073'709'551'615U);
}

TEST_F(DataFileTest, ReadsNumbersOutOfRangeAsZero) {
    for (const char* count :
         {"9223372036854775808", "18446744073709551615", "99999999999999999999999999"}) {
        write(plistText(std::string("<dict><key>deletedCount</key><integer>") + count +
                        "</integer><key>deletedSize</key><integer>-5</integer></dict>"));
        DataFile data(own_);
        EXPECT_FALSE(data.loadDataFile()) << count;
        EXPECT_EQ(data.alreadyDeletedCount(), 0) << count;
        EXPECT_EQ(data.alreadyDeletedSize(), 0U) << count;
        EXPECT_FALSE(addToTotals(data, 2, 20)) << count;
        EXPECT_EQ(stored(path_, "deletedCount"), 2U) << count;
        EXPECT_EQ(stored(path_, "deletedSize"), 20U) << count;
    }
}

TEST_F(DataFileTest, BinaryListIsRewrittenAsXmlWithAllKeys) {
    write(binaryDictionary());
    DataFile data(own_);
    EXPECT_FALSE(data.loadDataFile());
    EXPECT_EQ(data.alreadyDeletedCount(), 7);
    EXPECT_FALSE(addToTotals(data, 1, 1));
    EXPECT_TRUE(contentOf(path_).starts_with("<?xml"));
    EXPECT_EQ(stored(path_, "deletedCount"), 8U);
    EXPECT_EQ(stored(path_, "other"), 9U);
}

TEST_F(DataFileTest, CircularLinkIsMovedAside) {
    folder_.makeLink("own/data.plist", "data.plist");
    DataFile data(own_);
    ASSERT_TRUE(data.loadDataFile());
    EXPECT_FALSE(addToTotals(data, 1, 1));
    EXPECT_EQ(data.putAside(), path_ + ".unreadable");
    EXPECT_EQ(stored(path_, "deletedCount"), 1U);
}

TEST_F(DataFileTest, IsCompletedWithTheSameTotals) {
    write(plistText("<dict><key>deletedCount</key><integer>3</integer></dict>"));
    DataFile data(own_);
    data.loadDataFile();
    EXPECT_FALSE(addToTotals(data, 0, 0));
    EXPECT_EQ(stored(path_, "deletedCount"), 3U);
    EXPECT_EQ(stored(path_, "deletedSize"), 0U);
}

TEST_F(DataFileTest, IsUnchangedOnAFullDisk) {
    std::filesystem::create_directories(own_);
    const Mount mount("none", own_, "tmpfs", 0, "size=16k");
    if (mount) {
        write(plistText("<dict><key>deletedCount</key><integer>3</integer></dict>"));
        const std::string old = contentOf(path_);
        DataFile data(own_);
        EXPECT_FALSE(data.loadDataFile());
        folder_.writeFile("own/filling", std::string(100'000, 'x'));
        const auto failure = addToTotals(data, 1, 1);
        ASSERT_TRUE(failure);
        EXPECT_EQ(failure->text, "No space left on device");
        EXPECT_EQ(contentOf(path_), old);
        EXPECT_EQ(data.alreadyDeletedCount(), 3);
    }
}

// After a transient error the list may be intact.
TEST_F(DataFileTest, IsNotReplacedAfterATransientError) {
    write(plistText("<dict><key>deletedCount</key><integer>3</integer></dict>"));
    DataFile data(own_);
    ASSERT_FALSE(addToTotals(data, 1, 1));
    const std::string old = contentOf(path_);
    rlimit allowed{};
    ::getrlimit(RLIMIT_NOFILE, &allowed);
    // One descriptor for the lock, none for the list.
    const int next = ::dup(0);
    ::close(next);
    const rlimit one{static_cast<rlim_t>(next) + 1, allowed.rlim_max};
    ::setrlimit(RLIMIT_NOFILE, &one);
    const auto failure = addToTotals(data, 1, 1);
    ::setrlimit(RLIMIT_NOFILE, &allowed);
    ASSERT_TRUE(failure);
    EXPECT_EQ(failure->text, "Too many open files");
    EXPECT_EQ(contentOf(path_), old);
    EXPECT_FALSE(std::filesystem::exists(path_ + ".unreadable"));
}

TEST_F(DataFileTest, DamagedFileIsMovedAside) {
    const std::vector<std::string> contents{
        "",
        "damaged",
        plistText("<array/>"),
        plistText("<dict><key>deletedCount</key><integer>3</integer>"),
        "bplist00damaged",
        plistText("<string>text</string>")};
    for (const std::string& content : contents) {
        std::filesystem::remove_all(own_);
        write(content);
        DataFile data(own_);
        const auto error = data.loadDataFile();
        ASSERT_TRUE(error) << content;
        EXPECT_EQ(error->path, path_);
        EXPECT_EQ(contentOf(path_), content);
        EXPECT_EQ(data.alreadyDeletedCount(), 0);
        EXPECT_FALSE(addToTotals(data, 1, 10));
        EXPECT_EQ(contentOf(path_ + ".unreadable"), content);
        EXPECT_EQ(stored(path_, "deletedCount"), 1U);
        EXPECT_EQ(stored(path_, "matchingLevel"), std::nullopt);
    }
}

TEST_F(DataFileTest, FolderInItsPlaceIsMovedAside) {
    folder_.writeFile("own/data.plist/inside.txt", "kept");
    DataFile data(own_);
    EXPECT_TRUE(data.loadDataFile());
    EXPECT_FALSE(addToTotals(data, 1, 10));
    EXPECT_EQ(contentOf(path_ + ".unreadable/inside.txt"), "kept");
    EXPECT_EQ(stored(path_, "deletedCount"), 1U);
}

TEST_F(DataFileTest, IsRecreatedByALockAlone) {
    write(plistText("<dict><key>deletedCount</key><integer>3</integer></dict>"));
    DataFile data(own_);
    EXPECT_FALSE(data.loadDataFile());
    std::filesystem::remove(path_);
    EXPECT_FALSE(std::holds_alternative<StoreError>(data.lock()));
    EXPECT_EQ(stored(path_, "deletedCount"), 3U);
    write("damaged");
    EXPECT_FALSE(std::holds_alternative<StoreError>(data.lock()));
    EXPECT_EQ(stored(path_, "deletedCount"), 3U);
    EXPECT_EQ(contentOf(path_ + ".unreadable"), "damaged");
}

TEST_F(DataFileTest, IsRecreatedFromTheTotalsInMemory) {
    write(plistText("<dict><key>deletedCount</key><integer>3</integer></dict>"));
    DataFile data(own_);
    data.loadDataFile();
    std::filesystem::remove_all(own_);
    EXPECT_FALSE(addToTotals(data, 2, 10));
    EXPECT_EQ(stored(path_, "deletedCount"), 5U);
}

TEST_F(DataFileTest, KeepsInMemoryWhatCouldNotBeWritten) {
    const std::string file = folder_.writeFile("file", "");
    DataFile data(file + "/own");
    const auto loading = data.loadDataFile();
    ASSERT_TRUE(loading);
    EXPECT_EQ(loading->text, "Not a directory");
    EXPECT_TRUE(addToTotals(data, 2, 10));
    EXPECT_EQ(data.alreadyDeletedCount(), 0);
    data.showAtLeast({}, 2, 10);
    EXPECT_EQ(data.alreadyDeletedCount(), 2);
    EXPECT_EQ(data.alreadyDeletedSize(), 10U);
}

TEST_F(DataFileTest, InMemoryIsAtLeastTheKnownTotals) {
    write(plistText("<dict><key>deletedCount</key><integer>3</integer></dict>"));
    DataFile data(own_);
    EXPECT_FALSE(data.loadDataFile());
    data.showAtLeast({1, 0}, 1, 10);
    EXPECT_EQ(data.shown(), (StoredTotals{3, 10}));
    data.refresh();
    EXPECT_EQ(data.shown(), (StoredTotals{3, 0}));
}

TEST_F(DataFileTest, OfAHundredMegabytesIsReadOrRefused) {
    const std::string path = folder_.writeFile("own/data.plist", "<plist><dict>");
    {
        std::ofstream file(path, std::ios::app);
        const std::string blank(1'000'000, ' ');
        for (int part = 0; part < 100; ++part) {
            file << blank;
        }
        file << "</dict></plist>";
    }
    DataFile data(own_);
    EXPECT_FALSE(data.loadDataFile());
    EXPECT_EQ(data.alreadyDeletedCount(), 0);
    EXPECT_FALSE(addToTotals(data, 1, 1));
    EXPECT_EQ(stored(path_, "deletedCount"), 1U);
    EXPECT_LT(std::filesystem::file_size(path_), 1'000U);
}

class ExceptionFileTest : public DataFileTest {
 protected:
    [[nodiscard]] Paths storedPaths() const { return readExceptionFile(exceptions_).paths; }

    std::string exceptions_ = own_ + "/exception.plist";
};

TEST_F(ExceptionFileTest, IsNotCreatedAtTheFirstStart) {
    ExceptionFile file(own_);
    EXPECT_EQ(file.path(), exceptions_);
    EXPECT_FALSE(file.load());
    EXPECT_TRUE(file.exceptionArrayData().empty());
    EXPECT_FALSE(std::filesystem::exists(exceptions_));
}

TEST_F(ExceptionFileTest, KeepsEachPathOnce) {
    ExceptionFile file(own_);
    file.load();
    EXPECT_FALSE(file.addExceptions({"/b", "/a", "/b"}));
    EXPECT_FALSE(file.addExceptions({"/c", "/a"}));
    EXPECT_EQ(file.exceptionArrayData(), (Paths{"/b", "/a", "/c"}));
    EXPECT_EQ(storedPaths(), (Paths{"/b", "/a", "/c"}));
}

TEST_F(ExceptionFileTest, IsReadAgainAtTheNextStart) {
    ExceptionFile(own_).addExceptions({"/line\nend", "/\xFF.jpg"});
    ExceptionFile file(own_);
    EXPECT_FALSE(file.load());
    EXPECT_EQ(file.exceptionArrayData(), (Paths{"/line\nend", "/\xFF.jpg"}));
}

TEST_F(ExceptionFileTest, KeepsPathsAddedByAnotherInstance) {
    ExceptionFile one(own_);
    ExceptionFile other(own_);
    one.load();
    other.load();
    EXPECT_FALSE(one.addExceptions({"/one"}));
    EXPECT_FALSE(other.addExceptions({"/other"}));
    EXPECT_EQ(storedPaths(), (Paths{"/one", "/other"}));
    EXPECT_EQ(other.exceptionArrayData(), (Paths{"/other"}));
}

TEST_F(ExceptionFileTest, CanBeEmptied) {
    ExceptionFile file(own_);
    file.addExceptions({"/a"});
    EXPECT_FALSE(file.removeExceptions());
    EXPECT_TRUE(file.exceptionArrayData().empty());
    EXPECT_EQ(storedPaths(), Paths{});
    EXPECT_FALSE(readExceptionFile(exceptions_).error);
}

TEST_F(ExceptionFileTest, DamagedFileIsMovedAside) {
    folder_.writeFile("own/exception.plist", "damaged");
    ExceptionFile file(own_);
    ASSERT_TRUE(file.load());
    EXPECT_EQ(contentOf(exceptions_), "damaged");
    EXPECT_FALSE(file.addExceptions({"/a"}));
    EXPECT_EQ(contentOf(exceptions_ + ".unreadable"), "damaged");
    EXPECT_EQ(storedPaths(), (Paths{"/a"}));
}

TEST_F(ExceptionFileTest, FolderInItsPlaceIsMovedAside) {
    folder_.writeFile("own/exception.plist/inside.txt", "kept");
    ExceptionFile file(own_);
    ASSERT_TRUE(file.load());
    EXPECT_FALSE(file.addExceptions({"/a"}));
    EXPECT_EQ(file.putAside(), exceptions_ + ".unreadable");
    EXPECT_EQ(contentOf(exceptions_ + ".unreadable/inside.txt"), "kept");
    EXPECT_EQ(storedPaths(), (Paths{"/a"}));
}

TEST_F(ExceptionFileTest, EmptyArrayIsAnEmptyList) {
    folder_.writeFile("own/exception.plist", plistText("<array/>"));
    ExceptionFile file(own_);
    EXPECT_FALSE(file.load());
    EXPECT_EQ(file.exceptionArrayData(), Paths{});
}

TEST_F(ExceptionFileTest, IsInMemoryIfItCannotBeWritten) {
    const std::string file = folder_.writeFile("file", "");
    ExceptionFile exceptions(file + "/own");
    const auto failure = exceptions.addExceptions({"/a"});
    ASSERT_TRUE(failure);
    EXPECT_EQ(failure->text, "Not a directory");
    EXPECT_EQ(exceptions.exceptionArrayData(), (Paths{"/a"}));
}

TEST_F(ExceptionFileTest, AndTotalsKeepChangesOfEightProcesses) {
    constexpr int processes = 8;
    constexpr int rounds = 10;
    std::vector<pid_t> children;
    for (int process = 0; process < processes; ++process) {
        const pid_t child = ::fork();
        if (child == 0) {
            DataFile data(own_);
            ExceptionFile exceptions(own_);
            bool good = !data.loadDataFile() && !exceptions.load();
            for (int round = 0; round < rounds; ++round) {
                good = good && !addToTotals(data, 1, 10);
                good = good && !exceptions.addExceptions(
                                   {"/" + std::to_string(process) + "/" + std::to_string(round)});
            }
            ::_exit(good ? 0 : 1);
        }
        children.push_back(child);
    }
    for (const pid_t child : children) {
        int status = 0;
        ::waitpid(child, &status, 0);
        EXPECT_EQ(status, 0);
    }
    EXPECT_EQ(stored(path_, "deletedCount"), std::uint64_t{processes * rounds});
    EXPECT_EQ(stored(path_, "deletedSize"), std::uint64_t{processes * rounds * 10});
    EXPECT_EQ(storedPaths().size(), std::size_t{processes * rounds});
}

}  // namespace
}  // namespace tarvin
