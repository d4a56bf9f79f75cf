#pragma once

#include "clean/clean_up_run.h"
#include "cli/command.h"
#include "cli/folder_scan.h"
#include "cli/scan_options.h"
#include "model/deletion_walk.h"
#include "model/marking_rule.h"
#include "platform/platform.h"
#include "report/output_file.h"
#include "scan/listed_files.h"

#include <atomic>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>

namespace tarvin {

/// "tarvin clean": finds identical files and moves all but one of each set to the Trash, or those
/// that an edited list of sets does not keep.
class CleanCommand final : public Command {
 public:
    explicit CleanCommand(Platform& platform) : platform_(platform) {}

    CLI::App& addTo(CLI::App& program) override;
    ExitStatus run() override;

 private:
    /// Decides what a Ctrl-C does.
    enum class Stage : std::uint8_t { scanning, asking, planning, moving };

    ExitStatus clean(OutputFile& output, ExceptionFilter exceptions,
                     const std::shared_ptr<ListedFiles>& list);
    ExitStatus cleanFoundBy(FolderScan& scan, OutputFile& output, ExceptionFilter exceptions,
                            const std::shared_ptr<ListedFiles>& list);
    void stopOnFirstSignal(FolderScan& scan, const OutputFile& output);
    void endOnSecondSignal(const OutputFile& output) const;
    ExitStatus plan(const Modal& modal, OutputFile& output);
    ExitStatus move(Modal& modal, OutputFile& output);
    [[nodiscard]] bool finish(std::unique_ptr<CleanUpRun> run, DataFile& totals);
    void moveJournalAside(const StoreError& error);

    Platform& platform_;
    ScanOptions options_;
    MarkingRule rule_;
    bool dryRun_ = false;
    bool yes_ = false;
    std::optional<std::string> from_;  ///< the list of sets, instead of folders
    DeletionControl control_;
    std::atomic<Stage> stage_{Stage::scanning};
};

}  // namespace tarvin
