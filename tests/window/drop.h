#pragma once

#include "window/input.h"

#include <string>
#include <vector>

namespace tarvin {

/// The path of that other program: dropSource() TYPE FILE shows a window with "Drag me" in it.
std::string dropSource();

/// Starts another program with a window and drags `content`, data of the MIME type `type`, from
/// there to `target`. Returns when the program there is done with it.
void dropFromElsewhere(const std::string& type, const std::string& content, Spot target);

/// The same with files, by their paths, of which each byte that is no plain letter is encoded.
void dropFiles(const std::vector<std::string>& paths, Spot target);

}  // namespace tarvin
