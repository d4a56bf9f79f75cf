#pragma once

#include "controller/file_reasons.h"
#include "controller/not_read_files.h"

#include <QObject>

namespace tarvin {

class MainWindow;

/// The notice in the bar of the results about what the scan could not read, and the panel that it
/// opens. Owned by AppDelegate. Main thread only.
class NotReadList final : public QObject {
    Q_OBJECT

 public:
    /// `window` must outlive this object.
    explicit NotReadList(MainWindow& window);
    NotReadList(const NotReadList&) = delete;
    NotReadList& operator=(const NotReadList&) = delete;
    ~NotReadList() override;

    /// Shows the notice with the results if there are any; otherwise hides it.
    void setFiles(const NotReadFiles& files);

 private:
    void show() const;
    void close() const;
    void copy() const;

    MainWindow& window_;
    FileReasons files_;
};

}  // namespace tarvin
