#pragma once

#include "store/store_error.h"

#include <string_view>

namespace tarvin {

/// Writes "tarvin: ", the text and a line end to standard error, in one piece, the name in red
/// where there is colour. What is not harmless on a terminal has to be quoted already. Any thread.
void complain(std::string_view text);

/// The same about a file or folder: "tarvin: PATH: REASON". Quotes the path where needed.
void complainAbout(std::string_view path, std::string_view reason);

/// Tells a failure of something stored.
void complainOf(const StoreError& error);

/// About a file of ours that was of no use and now has the name `aside`.
void complainPutAside(std::string_view path, std::string_view aside);

}  // namespace tarvin
