#pragma once

#include "clean/put_back.h"
#include "cli/command.h"
#include "cli/restore_writer.h"
#include "platform/platform.h"
#include "report/output_file.h"
#include "report/result_writer.h"
#include "store/clean_up_journal.h"
#include "store/data_file.h"

#include <atomic>
#include <cstdint>
#include <mutex>
#include <optional>
#include <string>
#include <variant>

namespace tarvin {

/// "tarvin restore": puts the files of a clean-up back from the Trash.
class RestoreCommand final : public Command {
 public:
    explicit RestoreCommand(Platform& platform) : platform_(platform) {}

    CLI::App& addTo(CLI::App& program) override;
    ExitStatus run() override;

 private:
    /// Decides what a Ctrl-C does.
    enum class Stage : std::uint8_t {
        searching,   ///< or asking: ends the program at once
        planning,    ///< the first ends the report of a dry run, the second the program
        puttingBack  ///< the first stops after the current file, the second is ignored
    };
    using Chosen = std::variant<CleanUpSummary, NothingToPutBack, ExitStatus>;

    bool parseNumber();
    ExitStatus restoreOrList(OutputFile& output);
    ExitStatus list(PutBack* putBack, OutputFile& output) const;
    /// Without a PutBack nothing has ever been cleaned up.
    Chosen choose(PutBack* putBack) const;
    Chosen chooseNumbered(PutBack* putBack) const;
    ExitStatus restore(PutBack& putBack, const CleanUpSummary& cleanUp, DataFile& totals,
                       OutputFile& output);
    ExitStatus plan(PutBack& putBack, CleanUpId cleanUp, OutputFile& output);
    ExitStatus putBackFiles(PutBack& putBack, CleanUpId cleanUp, DataFile& totals,
                            OutputFile& output);
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
    Stage stage_ = Stage::searching;  // guarded by mutex_
};

}  // namespace tarvin
