#pragma once

#include "controller/file_reasons.h"
#include "controller/information_window.h"
#include "controller/kept_files.h"

#include <QObject>

namespace tarvin {

class MainWindow;

/// The list of the files to look at after a clean-up (KeptFiles), which takes the place of its
/// report while a person looks at it. Owned by DeletionTask; main thread.
class KeptList final : public QObject {
    Q_OBJECT

 public:
    /// Both outlive it.
    KeptList(MainWindow& window, InformationWindow& information);
    KeptList(const KeptList&) = delete;
    KeptList& operator=(const KeptList&) = delete;
    ~KeptList() override;

    /// What the list and the button that opens it show from now on.
    void setFiles(const KeptFiles& files);

 private:
    void setWords(const KeptFiles& files);
    void show();
    void close();
    void copy() const;

    MainWindow& window_;
    InformationWindow& information_;
    FileReasons files_;
    // Where all files were left, as the window has them.
    const QString usualTitle_;
    const QString usualSentence_;
    const QString usualListName_;
    const QString usualShowName_;
};

}  // namespace tarvin
