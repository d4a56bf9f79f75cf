#include "rules/project_files.h"

#include <gtest/gtest.h>

#include <string>

namespace tarvin {
namespace {

/// Whether the file belongs to a terminal program, which may print.
bool answersACommand(const std::string& file) {
    return file.starts_with("src/cli/") || file == "src/app/main.cpp";
}

TEST(Silence, NothingIsLogged) {
    for (const std::filesystem::path& file : cppFilesBelow("src")) {
        if (answersACommand(file.string())) {
            continue;
        }
        const std::string text = readProjectFile(file);
        for (const char* way : {"qWarning", "qDebug", "qInfo", "qCritical", "stderr", "std::cerr",
                                "std::clog", "syslog", "perror", "g_warning"}) {
            EXPECT_EQ(text.find(way), std::string::npos) << file << " uses " << way;
        }
    }
}

}  // namespace
}  // namespace tarvin
