#pragma once

#include "cli/command.h"
#include "platform/result.h"
#include "store/store_error.h"

#include <string>
#include <string_view>

namespace tarvin {

// Messages on standard error, and short results on standard output. Any thread, if not said
// otherwise. A path or name may hold any bytes; every other text must be safe to print.

/// Writes "tarvin: TEXT" and a newline in one write, the program's name in red where there is
/// colour.
void printError(std::string_view text);

/// "cannot ACTION OBJECT: REASON". `object` is quoted already where it is a name.
[[nodiscard]] std::string failureText(std::string_view action, std::string_view object,
                                      std::string_view reason);

/// "tarvin: cannot ACTION 'PATH': REASON".
void printPathError(std::string_view action, std::string_view path, std::string_view reason);

/// The same for a stored file; without the path if the error has none. Returns
/// ExitStatus::incomplete.
ExitStatus printStoreError(std::string_view action, const StoreError& error);

/// The same, after files were moved: `error` is about the file of the totals or its folder, or else
/// about the journal.
void printRecordError(const StoreError& error, std::string_view totalsPath);

/// The data folder, which `action` needs, is unknown. Returns ExitStatus::incomplete.
ExitStatus printNoHomeFolder(std::string_view action);

/// There is no terminal for the question whether to `action`, such as "move files".
void printCannotConfirm(std::string_view action);

/// A damaged file of the program's own was renamed to `aside`, and a new one was begun.
void printMovedAside(std::string_view path, std::string_view aside);

/// Writes the text to standard output; reports a failure. Main thread only.
ExitStatus print(std::string_view text);

/// Reports a failure to write to `target`, which must be safe to print, and returns the exit
/// status. A reader that has closed the pipe, as "head" does, is not reported.
[[nodiscard]] ExitStatus statusOfFailure(std::string_view target, const SystemError& failure);

/// Reports a usage error and refers to the help of `helpCommand`, such as "tarvin scan". Returns
/// ExitStatus::wrongUsage. Main thread only.
ExitStatus refuse(const std::string& reason, const std::string& helpCommand);

}  // namespace tarvin
