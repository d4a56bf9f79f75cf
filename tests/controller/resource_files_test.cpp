#include "controller/resource_files.h"

#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

namespace tarvin {
namespace {

class HelperProgram : public ::testing::Test {
 protected:
    std::string writeProgram(const std::string& name) const {
        std::string path = folder_.writeFile(name, "#!/bin/sh\n");
        std::filesystem::permissions(path, std::filesystem::perms::owner_all);
        return path;
    }
    [[nodiscard]] std::string find() const {
        return helperProgram("helper", QString::fromStdString(folder_.pathOf("bin"))).toStdString();
    }

    TemporaryFolder folder_;
};

TEST_F(HelperProgram, IsBesideTheProgram) {
    const std::string path = writeProgram("bin/helper");
    EXPECT_EQ(find(), path);
}

TEST_F(HelperProgram, IsWhereItIsInstalled) {
    const std::string path = writeProgram("libexec/tarvin-duplicate-file-remover/helper");
    EXPECT_EQ(find(), path);
}

TEST_F(HelperProgram, IsNoneIfItIsMissingOrNoProgram) {
    EXPECT_EQ(find(), "");
    folder_.writeFile("bin/helper", "text");
    EXPECT_EQ(find(), "");
    folder_.makeFolder("libexec/tarvin-duplicate-file-remover/helper");
    EXPECT_EQ(find(), "");
}

TEST_F(HelperProgram, MayBeAnUpdater) {
    EXPECT_EQ(updaterProgram(QString::fromStdString(folder_.pathOf("bin"))), QString());
    const std::string path =
        writeProgram("libexec/tarvin-duplicate-file-remover/Tarvin Duplicate File Remover Updater");
    EXPECT_EQ(updaterProgram(QString::fromStdString(folder_.pathOf("bin"))).toStdString(), path);
}

}  // namespace
}  // namespace tarvin
