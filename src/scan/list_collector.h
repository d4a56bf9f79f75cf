#pragma once

#include "platform/file_system.h"
#include "scan/category_lists.h"
#include "scan/collector.h"
#include "scan/exception_filter.h"
#include "scan/listed_files.h"
#include "scan/progress_gate.h"
#include "scan/scan_observer.h"
#include "scan/scan_services.h"

#include <string>
#include <string_view>
#include <unordered_map>

namespace tarvin {

/// The first phase of a scan of listed files instead of folders: reads the metadata of each file
/// and puts all files that can be compared into one list, whatever their category, so that equal
/// files with different extensions can form a set. Made for one scan and used on one thread.
class ListCollector final {
 public:
    /// All references must outlive the collector.
    ListCollector(const ScanServices& services, const ExceptionFilter& exceptions,
                  ScanObserver& observer, ProgressGate& gate, CategoryLists& lists);

    /// Sets `state` and `file` of each usable or repeated entry. A failure concerns only its entry.
    Collector::Outcome collect(ListedFiles& files);

 private:
    struct Folder {
        Directory* directory = nullptr;
        ListedState state = ListedState::usable;
        SystemError error{};
    };

    void take(ListedFile& entry);
    void add(ListedFile& entry, const Folder& folder, std::string_view name,
             const FileAttributes& attributes);
    [[nodiscard]] const Folder& folderOf(std::string_view path);
    void examine(Folder& folder);

    FileSystem& fileSystem_;
    ScanControl& control_;
    IoWatch& watch_;
    UnsteadyVolumes& unsteadyVolumes_;
    const ExceptionFilter& exceptions_;
    ScanObserver& observer_;
    ProgressGate& gate_;
    CategoryLists& lists_;
    std::unordered_map<std::string, Folder> folders_;  // by path
};

}  // namespace tarvin
