#pragma once

#include <QString>
#include <QStringList>
#include <cstddef>
#include <functional>
#include <string>
#include <vector>

namespace tarvin {

/// What an open panel lets the user choose.
struct OpenPanel {
    bool canChooseDirectories = false;  ///< only folders; otherwise only files
    QStringList allowedFileTypes;       ///< extensions without a dot; all files if empty
    bool mayBeDropped = true;  ///< what the panel does not offer may be dropped instead: it says so
};

/// What a save panel lets the user choose.
struct SavePanel {
    /// A kind of file. A name without an extension gets its extension.
    struct Type {
        QString name;       ///< shown to the user
        QString extension;  ///< without a dot
    };

    QString title;
    QString fileName;         ///< suggested, without a folder and an extension
    std::vector<Type> types;  ///< the first is suggested; not empty
};

/// Lets the user choose one or more files or folders. Asynchronous. Main thread only. Tests replace
/// it.
class FilePanels {
 public:
    virtual ~FilePanels() = default;

    /// Calls `chosen` with absolute paths, native bytes, in the panel's order; not at all if the
    /// user cancels.
    virtual void open(const OpenPanel& panel,
                      std::function<void(const std::vector<std::string>& paths)> chosen) = 0;

    /// Calls `chosen` with the absolute path of a file to write, native bytes, and the position of
    /// its type: that of its extension or, if that belongs to no type, the chosen one. Not at all
    /// if the user cancels. If there is a file, the user wants to replace it.
    virtual void save(const SavePanel& panel,
                      std::function<void(const std::string& path, std::size_t type)> chosen) = 0;
};

}  // namespace tarvin
