#pragma once

#include <QMimeData>
#include <QUrl>
#include <optional>
#include <string>
#include <vector>

namespace tarvin {

/// Returns the absolute path of a file URL of this machine, native bytes, without trailing slashes;
/// nullopt for any other URL. Any thread.
[[nodiscard]] std::optional<std::string> localPath(const QUrl& url);

/// Returns localPath() of each URL that is dropped or pasted, in order, without those that have
/// none. Main thread only.
[[nodiscard]] std::vector<std::string> droppedPaths(const QMimeData& data);

}  // namespace tarvin
