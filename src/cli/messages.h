#pragma once

#include "store/store_error.h"

#include <string>
#include <string_view>

namespace tarvin {

// Messages on standard error. Any thread. A path or name may hold any bytes; every other text must
// be safe to print.

/// Writes "tarvin: TEXT" and a newline in one write, the program's name in red where there is
/// colour.
void printError(std::string_view text);

/// "cannot ACTION OBJECT: REASON". `object` is quoted already where it is a name.
[[nodiscard]] std::string failureText(std::string_view action, std::string_view object,
                                      std::string_view reason);

/// "tarvin: cannot ACTION 'PATH': REASON".
void printPathError(std::string_view action, std::string_view path, std::string_view reason);

/// The same for a stored file; without the path if the error has none.
void printStoreError(std::string_view action, const StoreError& error);

/// The same, after files were moved: `error` is about the file of the totals or its folder, or else
/// about the journal.
void printRecordError(const StoreError& error, std::string_view totalsPath);

/// The data folder, which `action` needs, is unknown.
void printNoHomeFolder(std::string_view action);

/// There is no terminal for the question whether to `action`, such as "move files".
void printCannotConfirm(std::string_view action);

/// A damaged file of the program's own was renamed to `aside`, and a new one was begun.
void printMovedAside(std::string_view path, std::string_view aside);

}  // namespace tarvin
