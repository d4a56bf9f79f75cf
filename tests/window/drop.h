#pragma once

#include "window/input.h"

#include <string>
#include <vector>

namespace tarvin {

/// The path of the program drop_source. Its arguments are TYPE FILE; it shows a window with "Drag
/// me".
std::string dropSource();

/// Starts drop_source and drags `content`, data of the MIME type `type`, from its window to
/// `target`. Returns when the target program has finished the drop.
void dropFromElsewhere(const std::string& type, const std::string& content, Spot target);

/// Drags files, as a list of percent-encoded URLs.
void dropFiles(const std::vector<std::string>& paths, Spot target);

}  // namespace tarvin
