#pragma once

#include "controller/file_panels.h"

#include <QPointer>
#include <QWidget>

namespace tarvin {

/// FilePanels as QFileDialogs. The file dialog is the desktop's native one, if there is one. Native
/// folder dialogs of most desktops select only one folder, so that one is Qt's. Main thread only.
class FileDialogs final : public FilePanels {
 public:
    /// The dialogs are children of `window`.
    explicit FileDialogs(QWidget* window) : window_(window) {}

    void open(const OpenPanel& panel,
              std::function<void(const std::vector<std::string>& paths)> chosen) override;
    /// Begins in the documents folder.
    void save(const SavePanel& panel,
              std::function<void(const std::string& path, std::size_t type)> chosen) override;

 private:
    QPointer<QWidget> window_;
};

}  // namespace tarvin
