#pragma once

#include "controller/file_panels.h"
#include "controller/message_boxes.h"

#include <QPointer>
#include <QWidget>

namespace tarvin {

/// FilePanels as QFileDialogs. The file dialog is the desktop's native one, if there is one. Native
/// folder dialogs of most desktops select only one folder, so that one is Qt's. Main thread only.
class FileDialogs final : public FilePanels {
 public:
    /// The dialogs are children of `window`.
    explicit FileDialogs(QWidget* window) : window_(window), boxes_(window) {}

    void open(const OpenPanel& panel,
              std::function<void(const std::vector<std::string>& paths)> chosen) override;
    /// Begins in the documents folder. A panel of the desktop may have asked about another name
    /// than the one with the extension: then a box asks about that.
    void save(const SavePanel& panel,
              std::function<void(const std::string& path, std::size_t type)> chosen) override;

 private:
    QPointer<QWidget> window_;
    MessageBoxes boxes_;
};

}  // namespace tarvin
