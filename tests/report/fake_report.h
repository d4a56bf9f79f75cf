#pragma once

#include "model/file_store.h"
#include "report/result_writer.h"
#include "report/scan_report.h"
#include "scan/duplicate_finder.h"
#include "support/pipe.h"

#include <gtest/gtest.h>

#include <array>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <memory>
#include <optional>
#include <string>
#include <thread>
#include <vector>

namespace tarvin {

/// One file of a fake result.
struct MadeUpFile {
    std::string path;
    std::uint64_t size = 0;
    std::optional<std::int64_t> modified{};  ///< nanoseconds since 1970
    std::optional<std::int64_t> created{};
};

/// A fake scan report, built set by set.
class MadeUpReport final {
 public:
    /// The first file's name decides the extension of the set.
    void addSet(Category category, std::initializer_list<MadeUpFile> files) {
        std::vector<std::shared_ptr<File>> group;
        for (const MadeUpFile& file : files) {
            group.push_back(FileStore::standalone(file.path, file.size, dateOf(file.modified),
                                                  dateOf(file.created)));
        }
        fileSetUnderExtension(*results_[static_cast<std::size_t>(category)], group);
    }

    void setCollected(Category category, std::uint64_t count) {
        report_.categories[static_cast<std::size_t>(category)].collected = count;
    }

    void addUnreadable(const std::string& path, const std::string& reason) {
        report_.unreadable.push_back({path, reason});
    }

    /// Marks all files but the first one of each set.
    void markDuplicates() {
        for (const std::shared_ptr<Modal>& result : results_) {
            result->markAllExtension();
        }
        report_.hasMarks = true;
    }

    void setNotCompared(std::uint64_t files) { report_.notCompared = files; }
    void setStopped() { report_.stopped = true; }
    void setElapsedSeconds(double seconds) { report_.elapsedSeconds = seconds; }

    [[nodiscard]] ScanReport report() const {
        ScanReport report = report_;
        for (std::size_t position = 0; position < results_.size(); ++position) {
            report.categories[position].result = results_[position];
        }
        return report;
    }

 private:
    static std::optional<Timestamp> dateOf(std::optional<std::int64_t> nanoseconds) {
        return nanoseconds ? std::optional(Timestamp(std::chrono::nanoseconds(*nanoseconds)))
                           : std::nullopt;
    }

    std::array<std::shared_ptr<Modal>, allCategories.size()> results_{
        std::make_shared<Modal>(), std::make_shared<Modal>(), std::make_shared<Modal>(),
        std::make_shared<Modal>(), std::make_shared<Modal>()};
    ScanReport report_;
};

/// The output of a writer for a report.
inline std::string writtenBy(void (*write)(const ScanReport&, Output&),
                             const MadeUpReport& madeUp) {
    Pipe pipe;
    std::string text;
    std::thread reader([&] { text = pipe.readAll(); });
    Output output(pipe.writing());
    write(madeUp.report(), output);
    EXPECT_TRUE(output.flush());
    pipe.closeWriting();
    reader.join();
    return text;
}

}  // namespace tarvin
