#pragma once

#include <string>

namespace tarvin {

/// The path of the fake updater, which writes its arguments, one a line, into a file "told" beside
/// itself.
std::string updaterProgramPath();

/// The path of the built URL reader.
std::string urlReaderPath();

/// The path of the Urls.plist that is installed.
std::string installedUrlsPath();

}  // namespace tarvin
