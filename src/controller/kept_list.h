#pragma once

#include "controller/file_reasons.h"
#include "controller/information_window.h"
#include "controller/kept_files.h"

#include <QObject>

namespace tarvin {

class MainWindow;

/// The list of the files that a clean-up has left, which takes the place of its report while a
/// person looks at it. Owned by DeletionTask; main thread.
class KeptList final : public QObject {
    Q_OBJECT

 public:
    /// Both outlive it.
    KeptList(MainWindow& window, InformationWindow& information);
    KeptList(const KeptList&) = delete;
    KeptList& operator=(const KeptList&) = delete;
    ~KeptList() override;

    /// What the list shows from now on.
    void setFiles(const KeptFiles& files);

 private:
    void show();
    void close();
    void copy() const;

    MainWindow& window_;
    InformationWindow& information_;
    FileReasons files_;
};

}  // namespace tarvin
