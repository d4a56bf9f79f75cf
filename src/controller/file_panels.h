#pragma once

#include <QString>
#include <QStringList>
#include <functional>
#include <string>
#include <vector>

namespace tarvin {

/// What an open panel offers.
struct OpenPanel {
    bool canChooseDirectories = false;  ///< folders alone; otherwise files alone
    QStringList allowedFileTypes;       ///< extensions without a dot; empty: all files
};

/// Lets a person choose files or folders, several at once, over the window. Nothing waits for it.
/// Main thread. Tests answer in its place.
class FilePanels {
 public:
    virtual ~FilePanels() = default;

    /// `chosen` is called with absolute paths, native bytes, in the panel's order; not at all if
    /// the person thinks better of it.
    virtual void open(const OpenPanel& panel,
                      std::function<void(const std::vector<std::string>& paths)> chosen) = 0;
};

}  // namespace tarvin
