#pragma once

#include <string>

namespace tarvin {

/// The path of a program that is built for tests in place of an updater: it writes what it was
/// given, a line for each argument, beside itself into a file "told".
std::string updaterProgramPath();

/// The path of the built program that reads addresses.
std::string urlReaderPath();

/// The path of the list of addresses that is installed.
std::string installedUrlsPath();

}  // namespace tarvin
