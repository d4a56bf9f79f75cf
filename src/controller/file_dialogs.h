#pragma once

#include "controller/file_panels.h"

#include <QPointer>
#include <QWidget>

namespace tarvin {

/// The panels as Qt's file dialogs. That for files is the desktop's own, where it has one; those of
/// most desktops choose one folder only, so that for folders is Qt's. Main thread.
class FileDialogs final : public FilePanels {
 public:
    /// The dialogs belong to `window`.
    explicit FileDialogs(QWidget* window) : window_(window) {}

    void open(const OpenPanel& panel,
              std::function<void(const std::vector<std::string>& paths)> chosen) override;

 private:
    QPointer<QWidget> window_;
};

}  // namespace tarvin
