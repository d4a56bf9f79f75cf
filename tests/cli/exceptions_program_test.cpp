#include "cli/program_run.h"
#include "cli/result_json.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <string>

namespace tarvin {
namespace {

constexpr const char* ownList =
    "data/Tarvin Software/Tarvin Duplicate File Remover/exception.plist";

/// Three equal files in `photos`, and a data folder.
class Exceptions : public testing::Test {
 protected:
    Exceptions() {
        for (const char* name : {"photos/a.jpg", "photos/b.jpg", "photos/c.jpg"}) {
            folder_.writeFile(name, "photo");
        }
    }

    std::string writeList(const std::string& name, const std::string& path) const {
        return folder_.writeFile(
            name, "<?xml version=\"1.0\"?><plist version=\"1.0\"><array><string>" + path +
                      "</string></array></plist>");
    }

    ProgramResult scan(ProgramRun::Words options) const {
        options.insert(options.begin(), {"scan", "--format", "json", folder_.pathOf("photos")});
        return runTarvin(options, {.environment = {{"XDG_DATA_HOME", folder_.pathOf("data")}}});
    }

    Sets setsOf(const ProgramResult& result) const {
        return setsIn(parsedJson(result.output), folder_.pathOf("photos/"));
    }

    TemporaryFolder folder_;
};

TEST_F(Exceptions, WithoutAListAllFilesAreCompared) {
    const ProgramResult result = scan({});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.errors, "");
    EXPECT_EQ(setsOf(result), (Sets{{"a.jpg", "b.jpg", "c.jpg"}}));
}

TEST_F(Exceptions, FilesOnTheUsersListAreSkipped) {
    writeList(ownList, folder_.pathOf("photos/b.jpg"));
    const ProgramResult result = scan({});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(setsOf(result), (Sets{{"a.jpg", "c.jpg"}}));
}

TEST_F(Exceptions, TheUsersListCanBeIgnored) {
    writeList(ownList, folder_.pathOf("photos/b.jpg"));
    EXPECT_EQ(setsOf(scan({"--no-exceptions"})), (Sets{{"a.jpg", "b.jpg", "c.jpg"}}));
}

TEST_F(Exceptions, AnotherListReplacesTheUsersList) {
    writeList(ownList, folder_.pathOf("photos/b.jpg"));
    const std::string other = writeList("other.plist", folder_.pathOf("photos/a.jpg"));
    EXPECT_EQ(setsOf(scan({"--exceptions", other})), (Sets{{"b.jpg", "c.jpg"}}));
}

TEST_F(Exceptions, ADamagedUsersListIsReportedAndTheScanContinues) {
    const std::string path = folder_.writeFile(ownList, "damaged");
    const ProgramResult result = scan({});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.errors, "tarvin: cannot read exceptions list '" + path +
                                 "': not a property list; continuing without exceptions\n");
    EXPECT_EQ(setsOf(result), (Sets{{"a.jpg", "b.jpg", "c.jpg"}}));
}

TEST_F(Exceptions, ADamagedListByOptionIsAUsageError) {
    const std::string path = folder_.writeFile("other.plist", "damaged");
    const ProgramResult result = scan({"--exceptions", path});
    EXPECT_EQ(result.status, 2);
    EXPECT_EQ(result.output, "");
    EXPECT_EQ(result.errors,
              "tarvin: cannot read exceptions list '" + path + "': not a property list\n");
}

TEST_F(Exceptions, AMissingListByOptionIsAUsageError) {
    const std::string path = folder_.pathOf("other.plist");
    const ProgramResult result = scan({"--exceptions", path});
    EXPECT_EQ(result.status, 2);
    EXPECT_EQ(result.output, "");
    EXPECT_EQ(result.errors,
              "tarvin: cannot read exceptions list '" + path + "': No such file or directory\n");
}

}  // namespace
}  // namespace tarvin
