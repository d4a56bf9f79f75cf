#pragma once

#include <QString>
#include <QStringList>
#include <functional>
#include <string>
#include <vector>

namespace tarvin {

/// What an open panel lets the user choose.
struct OpenPanel {
    bool canChooseDirectories = false;  ///< only folders; otherwise only files
    QStringList allowedFileTypes;       ///< extensions without a dot; all files if empty
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
};

}  // namespace tarvin
