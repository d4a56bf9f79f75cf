#pragma once

#include "controller/file_reasons.h"
#include "scan/scan_result.h"

#include <QCoreApplication>
#include <QString>
#include <QVector>
#include <cstdint>

namespace tarvin {

/// The locations, folders and files that a scan could not read, as the window shows them. A folder
/// inside another one of them is left out: nothing in it could be reached either way. Main thread
/// only.
class NotReadFiles final {
    Q_DECLARE_TR_FUNCTIONS(tarvin::NotReadFiles)

 public:
    /// None.
    NotReadFiles() = default;
    explicit NotReadFiles(const ScanResult& result);

    [[nodiscard]] std::uint64_t folders() const { return folders_; }
    [[nodiscard]] std::uint64_t files() const { return files_; }
    [[nodiscard]] std::uint64_t all() const { return folders_ + files_; }
    /// At most FileReasons::maxListed: folders first, then files, each sorted by path.
    [[nodiscard]] const QVector<FileReason>& reasons() const { return reasons_; }

    /// "3 folders and 12 files could not be read."; empty if there are none.
    [[nodiscard]] QString notice() const;

    /// Why a folder or file could not be read: in the language of the window where the reason is
    /// frequent, otherwise the system's text.
    [[nodiscard]] static QString reasonOf(SystemError error);

 private:
    void add(std::string_view path, const QString& reason, FileReason::Kind kind);

    std::uint64_t folders_ = 0;
    std::uint64_t files_ = 0;
    QVector<FileReason> reasons_;
};

}  // namespace tarvin
