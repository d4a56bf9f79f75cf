#pragma once

#include "controller/file_reasons.h"
#include "controller/not_read_files.h"

#include <QObject>

namespace tarvin {

class InformationWindow;
class MainWindow;

/// The notice in the bar of the results about what the scan could not read, and the panel that it
/// opens. In the summary of a scan without duplicates, which covers the notice, a button opens the
/// panel in place of the summary; after a scan without files its owner shows the panel. Owned by
/// AppDelegate. Main thread only.
class NotReadList final : public QObject {
    Q_OBJECT

 public:
    /// Both must outlive this object.
    NotReadList(MainWindow& window, InformationWindow& information);
    NotReadList(const NotReadList&) = delete;
    NotReadList& operator=(const NotReadList&) = delete;
    ~NotReadList() override;

    /// Shows the notice with the results if there are any; otherwise hides it.
    void setFiles(const NotReadFiles& files);
    void show();

 Q_SIGNALS:
    /// The panel of show() was closed.
    void closed();

 private:
    void showInPlaceOfSummary();
    void close();
    void copy() const;

    MainWindow& window_;
    InformationWindow& information_;
    bool hidesSummary_ = false;
    FileReasons files_;
};

}  // namespace tarvin
