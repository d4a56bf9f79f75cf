#pragma once

#include "controller/file_reasons.h"
#include "controller/information_window.h"
#include "controller/kept_files.h"

#include <QObject>

namespace tarvin {

class MainWindow;

/// The panel with the files to check after a clean-up (KeptFiles). It replaces the report while it
/// is open. Owned by DeletionTask. Main thread only.
class KeptList final : public QObject {
    Q_OBJECT

 public:
    /// Both must outlive this object.
    KeptList(MainWindow& window, InformationWindow& information);
    KeptList(const KeptList&) = delete;
    KeptList& operator=(const KeptList&) = delete;
    ~KeptList() override;

    /// Sets the files and words of the list and of the button that opens it.
    void setFiles(const KeptFiles& files);

 private:
    void setWords(const KeptFiles& files);
    void show();
    void close();
    void copy() const;

    MainWindow& window_;
    InformationWindow& information_;
    FileReasons files_;
    // The window's own words, for when every file was left where it is.
    const QString usualTitle_;
    const QString usualSentence_;
    const QString usualListName_;
    const QString usualShowName_;
};

}  // namespace tarvin
