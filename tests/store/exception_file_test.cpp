#include "store/exception_file.h"

#include "store/plist_library.h"
#include "store/plist_text.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>
#include <plist/plist.h>
#include <sys/stat.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

namespace tarvin {
namespace {

using Paths = std::vector<std::string>;

class ExceptionFile : public ::testing::Test {
 protected:
    ExceptionList read(const std::string& content) const {
        return readExceptionFile(folder_.writeFile("exception.plist", content));
    }

    /// An unusable list reports its path, the reason and the kind.
    void expectRefused(const std::string& content,
                       const std::string& reason = "not a property list") const {
        const ExceptionList list = read(content);
        EXPECT_EQ(list.paths, Paths{});
        ASSERT_TRUE(list.error) << content;
        EXPECT_EQ(list.error->path, folder_.pathOf("exception.plist"));
        EXPECT_EQ(list.error->text, reason);
        EXPECT_EQ(list.error->kind, StoreError::Kind::unusable);
    }

    TemporaryFolder folder_;
};

TEST_F(ExceptionFile, ReturnsThePathsInOrder) {
    const ExceptionList list =
        read(plistText("<array><string>/z/b.jpg</string><string>/a/c.jpg</string></array>"));
    EXPECT_FALSE(list.error);
    EXPECT_EQ(list.paths, (Paths{"/z/b.jpg", "/a/c.jpg"}));
}

TEST_F(ExceptionFile, ReadsBinaryListsToo) {
    plist_t array = plist_new_array();
    plist_array_append_item(array, plist_new_string("/photos/grün.jpg"));
    plist_array_append_item(array, plist_new_string("/photos/b.jpg"));
    char* bytes = nullptr;
    std::uint32_t length = 0;
    plist_to_bin(array, &bytes, &length);
    const ExceptionList list = read(std::string(bytes, length));
    freeWrittenList(bytes);
    plist_free(array);
    EXPECT_FALSE(list.error);
    EXPECT_EQ(list.paths, (Paths{"/photos/grün.jpg", "/photos/b.jpg"}));
}

TEST_F(ExceptionFile, AnEmptyListIsAList) {
    const ExceptionList list = read(plistText("<array/>"));
    EXPECT_FALSE(list.error);
    EXPECT_EQ(list.paths, Paths{});
}

TEST_F(ExceptionFile, UnescapesXml) {
    EXPECT_EQ(read(plistText("<array><string>/a &amp; b/&lt;c&gt;.jpg</string></array>")).paths,
              (Paths{"/a & b/<c>.jpg"}));
}

TEST_F(ExceptionFile, SkipsOtherElements) {
    EXPECT_EQ(read(plistText("<array><integer>3</integer><string>/a.jpg</string><true/>"
                             "<dict><key>k</key><string>/in/dict.jpg</string></dict>"
                             "<array><string>/in/array.jpg</string></array></array>"))
                  .paths,
              (Paths{"/a.jpg"}));
}

TEST_F(ExceptionFile, FollowsALink) {
    folder_.writeFile("kept/list.plist", plistText("<array><string>/a.jpg</string></array>"));
    folder_.makeLink("exception.plist", "kept/list.plist");
    EXPECT_EQ(readExceptionFile(folder_.pathOf("exception.plist")).paths, (Paths{"/a.jpg"}));
}

TEST_F(ExceptionFile, ReportsAMissingFile) {
    const ExceptionList list = readExceptionFile(folder_.pathOf("exception.plist"));
    EXPECT_EQ(list.paths, Paths{});
    ASSERT_TRUE(list.error);
    EXPECT_EQ(list.error->kind, StoreError::Kind::missing);
    EXPECT_EQ(list.error->text, "No such file or directory");
}

TEST_F(ExceptionFile, DanglingLinkIsMissing) {
    folder_.makeLink("exception.plist", "nowhere");
    const ExceptionList list = readExceptionFile(folder_.pathOf("exception.plist"));
    ASSERT_TRUE(list.error);
    EXPECT_EQ(list.error->kind, StoreError::Kind::missing);
}

TEST_F(ExceptionFile, RefusesAnythingButAnArray) {
    expectRefused("");
    expectRefused("no list");
    expectRefused("<html><body>not found</body></html>");
    expectRefused(plistText("<dict><key>k</key><string>/a.jpg</string></dict>"),
                  "not a property list of paths");
    expectRefused(plistText("<string>/a.jpg</string>"), "not a property list of paths");
    expectRefused("bplist00");
    expectRefused("bplist00" + std::string(100, '\xff'));
    expectRefused(std::string(10'000, '\0'));
}

TEST_F(ExceptionFile, TruncatedListIsRefusedUnlessAllPathsAreThere) {
    const std::string whole =
        plistText("<array><string>/a.jpg</string><string>/b.jpg</string></array>");
    const Paths paths{"/a.jpg", "/b.jpg"};
    for (std::size_t length = 0; length < whole.size(); ++length) {
        const ExceptionList list = read(whole.substr(0, length));
        EXPECT_TRUE(list.error ? list.paths.empty() : list.paths == paths) << length;
    }
}

TEST_F(ExceptionFile, RefusesAFolder) {
    const ExceptionList list = readExceptionFile(folder_.makeFolder("exception.plist"));
    ASSERT_TRUE(list.error);
    EXPECT_EQ(list.error->text, "not a regular file");
    EXPECT_EQ(list.error->kind, StoreError::Kind::unusable);
}

TEST_F(ExceptionFile, RefusesAPipeWithoutBlocking) {
    const std::string path = folder_.pathOf("exception.plist");
    ASSERT_EQ(::mkfifo(path.c_str(), 0600), 0);
    const ExceptionList list = readExceptionFile(path);
    ASSERT_TRUE(list.error);
    EXPECT_EQ(list.error->text, "not a regular file");
}

TEST_F(ExceptionFile, RefusesATooLargeFile) {
    const std::string path = folder_.writeFile("exception.plist", "");
    std::filesystem::resize_file(path, 256ULL * 1024 * 1024 + 1);
    const ExceptionList list = readExceptionFile(path);
    ASSERT_TRUE(list.error);
    EXPECT_EQ(list.error->text, "the file is too large");
}

TEST_F(ExceptionFile, ReadsAHundredThousandPaths) {
    std::string array = "<array>";
    for (int number = 0; number < 100'000; ++number) {
        array += "<string>/photos/" + std::to_string(number) + ".jpg</string>";
    }
    const ExceptionList list = read(plistText(array + "</array>"));
    ASSERT_EQ(list.paths.size(), 100'000U);
    EXPECT_EQ(list.paths.front(), "/photos/0.jpg");
    EXPECT_EQ(list.paths.back(), "/photos/99999.jpg");
}

/// Two instances that share a data folder with three exceptions.
class RemovedExceptions : public ::testing::Test {
 protected:
    RemovedExceptions() { static_cast<void>(own_.addExceptions({"/a.jpg", "/b.jpg", "/c.jpg"})); }

    Paths stored() const { return readExceptionFile(own_.path()).paths; }

    TemporaryFolder folder_;
    tarvin::ExceptionFile own_{folder_.path()};
    tarvin::ExceptionFile other_{folder_.path()};
};

TEST_F(RemovedExceptions, LeaveTheOthersInOrder) {
    EXPECT_FALSE(own_.removeExceptions({"/b.jpg", "/not/listed.jpg"}));
    EXPECT_EQ(own_.exceptionArrayData(), (Paths{"/a.jpg", "/c.jpg"}));
    EXPECT_EQ(stored(), (Paths{"/a.jpg", "/c.jpg"}));
}

TEST_F(RemovedExceptions, LeaveWhatAnotherInstanceHasAdded) {
    EXPECT_FALSE(other_.addExceptions({"/d.jpg"}));
    EXPECT_FALSE(own_.removeExceptions({"/a.jpg"}));
    EXPECT_EQ(stored(), (Paths{"/b.jpg", "/c.jpg", "/d.jpg"}));
}

TEST_F(RemovedExceptions, DoNotRestoreWhatAnotherInstanceHasRemoved) {
    EXPECT_FALSE(other_.removeExceptions());
    EXPECT_FALSE(own_.removeExceptions({"/a.jpg"}));
    EXPECT_EQ(stored(), Paths{});
}

TEST_F(RemovedExceptions, AreNotRestoredByAnAdditionOfAnotherInstance) {
    EXPECT_FALSE(other_.load());
    EXPECT_FALSE(own_.removeExceptions({"/b.jpg"}));
    EXPECT_FALSE(other_.addExceptions({"/d.jpg"}));
    EXPECT_EQ(stored(), (Paths{"/a.jpg", "/c.jpg", "/d.jpg"}));
    EXPECT_FALSE(own_.removeExceptions());
    EXPECT_FALSE(other_.addExceptions({"/b.jpg"}));
    EXPECT_EQ(stored(), Paths{"/b.jpg"});
}

TEST_F(RemovedExceptions, LeaveAdditionsThatCouldNotBeWrittenForTheNext) {
    const std::string blocked = folder_.writeFile("exception.plist.new/x", "");
    EXPECT_TRUE(own_.addExceptions({"/d.jpg", "/e.jpg"}));
    EXPECT_FALSE(own_.removeExceptions({"/e.jpg"}));  // it is in memory only
    std::filesystem::remove_all(std::filesystem::path(blocked).parent_path());
    EXPECT_FALSE(own_.addExceptions({"/f.jpg"}));
    EXPECT_EQ(stored(), (Paths{"/a.jpg", "/b.jpg", "/c.jpg", "/d.jpg", "/f.jpg"}));
}

TEST_F(RemovedExceptions, CanHaveAnyBytes) {
    EXPECT_FALSE(own_.addExceptions({"/\xff.jpg", "/line\nend.jpg"}));
    EXPECT_FALSE(own_.removeExceptions({"/\xff.jpg", "/line\nend.jpg"}));
    EXPECT_EQ(stored(), (Paths{"/a.jpg", "/b.jpg", "/c.jpg"}));
}

TEST_F(RemovedExceptions, StayIfTheFileCannotBeWritten) {
    // The temporary file's name is taken by a folder.
    folder_.writeFile("exception.plist.new/x", "");
    const std::optional<StoreError> failure = own_.removeExceptions({"/a.jpg"});
    ASSERT_TRUE(failure);
    EXPECT_EQ(failure->path, own_.path());
    EXPECT_EQ(own_.exceptionArrayData(), (Paths{"/a.jpg", "/b.jpg", "/c.jpg"}));
    EXPECT_EQ(stored(), (Paths{"/a.jpg", "/b.jpg", "/c.jpg"}));
}

TEST_F(RemovedExceptions, StayIfTheFileIsDamaged) {
    folder_.writeFile("exception.plist", "damaged");
    const std::optional<StoreError> failure = own_.removeExceptions({"/a.jpg"});
    ASSERT_TRUE(failure);
    EXPECT_EQ(failure->text, "not a property list");
    EXPECT_EQ(own_.exceptionArrayData(), (Paths{"/a.jpg", "/b.jpg", "/c.jpg"}));
    EXPECT_EQ(own_.putAside(), "");
    EXPECT_FALSE(std::filesystem::exists(folder_.pathOf("exception.plist.unreadable")));
}

TEST_F(RemovedExceptions, NeedNoFile) {
    std::filesystem::remove(own_.path());
    EXPECT_FALSE(own_.removeExceptions({"/a.jpg"}));
    EXPECT_EQ(own_.exceptionArrayData(), (Paths{"/b.jpg", "/c.jpg"}));
    EXPECT_FALSE(std::filesystem::exists(own_.path()));
    tarvin::ExceptionFile inMemory{std::nullopt};
    EXPECT_FALSE(inMemory.addExceptions({"/a.jpg", "/b.jpg"}));
    EXPECT_FALSE(inMemory.removeExceptions({"/a.jpg"}));
    EXPECT_EQ(inMemory.exceptionArrayData(), (Paths{"/b.jpg"}));
}

}  // namespace
}  // namespace tarvin
