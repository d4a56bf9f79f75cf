#pragma once

#include <QString>

namespace tarvin {

/// The URLs of Urls.plist, which a packager may change. Each is empty if there is none.
struct Urls {
    QString support{};         ///< the support page
    QString folderLocation{};  ///< URL of the parent of the folder with the update description
    QString folderName{};      ///< name of that folder
};

/// Reads a property list with the strings "Support", "FolderLocation" and "FolderName". A missing
/// string is empty; all are if the list is missing, damaged or larger than 1 MB. `path` may be
/// empty. Any thread.
[[nodiscard]] Urls readUrls(const QString& path);

}  // namespace tarvin
