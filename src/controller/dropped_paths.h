#pragma once

#include <QMimeData>
#include <QUrl>
#include <optional>
#include <string>
#include <vector>

namespace tarvin {

/// The absolute path of a file or folder of this machine, native bytes, without slashes at its end;
/// nothing for any other address. Any thread.
[[nodiscard]] std::optional<std::string> localPath(const QUrl& url);

/// The files and folders of this machine among the addresses that are dropped or pasted: their
/// absolute paths in native bytes, in their order, without slashes at their ends. Everything else
/// (text, addresses of the web or of other machines, damaged ones) is left out. Main thread.
[[nodiscard]] std::vector<std::string> droppedPaths(const QMimeData& data);

}  // namespace tarvin
