#pragma once

#include "clean/put_back.h"
#include "cli/command.h"
#include "cli/output_file.h"
#include "cli/restore_writer.h"
#include "cli/result_writer.h"
#include "platform/platform.h"
#include "store/clean_up_journal.h"
#include "store/data_file.h"
#include "store/store_error.h"

#include <atomic>
#include <cstdint>
#include <mutex>
#include <optional>
#include <string>
#include <variant>

namespace tarvin {

/// "tarvin restore": puts the files of a clean-up back from the Trash to where they were.
class RestoreCommand final : public Command {
 public:
    explicit RestoreCommand(Platform& platform) : platform_(platform) {}

    CLI::App& addTo(CLI::App& program) override;
    ExitStatus run() override;

 private:
    /// What a Ctrl-C means depends on what is being done.
    enum class Stage : std::uint8_t {
        looking,   ///< or asking: it ends the program at once
        planning,  ///< it ends the report of a dry run
        puttingBack
    };
    using Chosen = std::variant<CleanUpSummary, NothingToPutBack, ExitStatus>;

    bool takeNumber();
    ExitStatus restoreOrList(OutputFile& output);
    ExitStatus list(PutBack* putBack, OutputFile& output) const;
    /// Without a PutBack nothing has ever been cleaned up.
    Chosen choose(PutBack* putBack) const;
    Chosen chooseNumbered(PutBack* putBack) const;
    ExitStatus restore(PutBack& putBack, const CleanUpSummary& cleanUp, DataFile& totals,
                       OutputFile& output);
    ExitStatus plan(PutBack& putBack, CleanUpId cleanUp, OutputFile& output);
    ExitStatus bringBack(PutBack& putBack, CleanUpId cleanUp, DataFile& totals, OutputFile& output);
    ExitStatus nothing(NothingToPutBack reason, OutputFile& output) const;

    void enter(Stage stage);
    void stopOnFirstSignal(const OutputFile& output);
    void endOnSecondSignal(const OutputFile& output);

    Platform& platform_;
    ResultFormat format_ = ResultFormat::text;
    std::string output_ = "-";
    std::optional<std::string> number_;  ///< of the clean-up, as given
    CleanUpId cleanUp_ = 0;              ///< 0: the last one
    bool list_ = false;
    bool dryRun_ = false;
    bool yes_ = false;
    std::atomic<bool> stopped_{false};
    std::mutex mutex_;
    Stage stage_ = Stage::looking;  // guarded by mutex_
};

}  // namespace tarvin
