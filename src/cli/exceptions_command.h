#pragma once

#include "cli/command.h"
#include "platform/platform.h"
#include "report/result_writer.h"
#include "store/exception_file.h"

#include <string>
#include <vector>

namespace tarvin {

/// "tarvin exceptions": lists and edits the list of files that scans skip.
class ExceptionsCommand final : public Command {
 public:
    explicit ExceptionsCommand(Platform& platform) : platform_(platform) {}

    CLI::App& addTo(CLI::App& program) override;
    ExitStatus run() override;

 private:
    [[nodiscard]] ExitStatus list(const ExceptionFile& exceptions) const;
    [[nodiscard]] ExitStatus add(ExceptionFile& exceptions) const;
    [[nodiscard]] ExitStatus remove(ExceptionFile& exceptions) const;
    static ExitStatus clear(ExceptionFile& exceptions);
    [[nodiscard]] ExitStatus clearMissing(ExceptionFile& exceptions) const;

    Platform& platform_;
    CLI::App* list_ = nullptr;
    CLI::App* add_ = nullptr;
    CLI::App* remove_ = nullptr;
    CLI::App* clear_ = nullptr;
    std::vector<std::string> files_;
    ResultFormat format_ = ResultFormat::text;
    bool onlyMissing_ = false;
};

}  // namespace tarvin
