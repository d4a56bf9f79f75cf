#pragma once

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <fstream>
#include <string>

namespace tarvin {

inline struct stat statusAt(const std::string& path) {
    struct stat status{};
    EXPECT_EQ(::lstat(path.c_str(), &status), 0) << path;
    return status;
}

inline bool hasSameDateOfChange(const struct stat& one, const struct stat& other) {
    return one.st_ctim.tv_sec == other.st_ctim.tv_sec &&
           one.st_ctim.tv_nsec == other.st_ctim.tv_nsec;
}

/// Overwrites a file in place and sets its date of modification back. Repeated until the date of
/// change, which has a granularity, is another one.
inline void changeSecretly(const std::string& path, const std::string& content) {
    const struct stat before = statusAt(path);
    do {
        std::ofstream(path, std::ios::binary | std::ios::in | std::ios::out) << content;
        const timespec times[2] = {before.st_atim, before.st_mtim};
        ASSERT_EQ(::utimensat(AT_FDCWD, path.c_str(), times, 0), 0);
    } while (hasSameDateOfChange(before, statusAt(path)));
}

}  // namespace tarvin
