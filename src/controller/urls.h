#pragma once

#include <QString>

namespace tarvin {

/// The addresses that are installed with the program and that a packager may change. Each is empty
/// if there is none.
struct Urls {
    QString support{};         ///< where a person is helped
    QString folderLocation{};  ///< of the folder with the update description, without its name
    QString folderName{};      ///< the name of that folder
};

/// Reads a property list with the texts "Support", "FolderLocation" and "FolderName". A text that
/// is missing stays empty, as all do if the list is missing, damaged or larger than a megabyte.
/// `path` may be empty. Any thread.
[[nodiscard]] Urls readUrls(const QString& path);

}  // namespace tarvin
