#pragma once

#include "platform/file_system.h"
#include "scan/category.h"
#include "scan/category_lists.h"
#include "scan/exception_filter.h"
#include "scan/location_row.h"
#include "scan/progress_gate.h"
#include "scan/scan_filter.h"
#include "scan/scan_observer.h"
#include "scan/scan_services.h"
#include "scan/taken_files.h"
#include "scan/tree_reader.h"

#include <optional>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <vector>

namespace tarvin {

/// The first phase of a scan: walks the checked locations and puts every file that has a file-name
/// extension into the list of its category, in the order of the listings.
///
/// Made for one scan and used on one thread; the workers of the pool list ahead. A folder is walked
/// once per scan and a file taken once, even if several paths lead to it; on a volume whose folders
/// have no lasting inode numbers (UnsteadyVolumes), if these are one path after symbolic links and
/// bind mounts are resolved, and at most 100 levels below a location. A file that is a location
/// itself is taken even if it is hidden; all else that is skipped inside folders, it is too.
/// Folders that cannot be listed and files whose attributes cannot be read go to the UnreadableLog;
/// see unreadableLocations() for the locations.
class Collector final {
 public:
    enum class Outcome {
        collected,  ///< there are files to compare
        nothing,    ///< not one file
        stopped     ///< stopped between two locations; ignore what was collected
    };

    /// All references must outlive the collector and its tasks.
    Collector(const ScanServices& services, const ExceptionFilter& exceptions,
              const ScanFilter& filter, ScanObserver& observer, ProgressGate& gate,
              CategoryLists& lists);

    /// Walks the checked folders of `rows` and takes the given files, in order, then empties
    /// `rows`, unless stopped.
    Outcome addAllPhotos(std::vector<LocationRow>& rows);

    /// Walks one folder tree, depth first.
    void acceptFilenameDrag3(const std::string& path);

    /// The locations that could not be listed, in the order of the rows.
    [[nodiscard]] const std::vector<UnreadableLocation>& unreadableLocations() const {
        return unreadable_;
    }

 private:
    struct OpenFolder;

    /// A folder that contains given files.
    struct GivenFolder {
        Directory* directory = nullptr;
        bool isChecked = false;  // the next two are known
        bool isTrash = false;
        bool isOwn = false;
        std::optional<SystemError> failure;  // why files in it cannot be taken
    };

    void waitWhilePaused();
    void takeGiven(const std::string& path);
    void takeGivenFile(GivenFolder& folder, std::string_view name,
                       const FileAttributes& attributes);
    void check(GivenFolder& folder);
    [[nodiscard]] Result<FileAttributes> attributesOf(GivenFolder& folder);
    [[nodiscard]] bool enter(Directory& directory,
                             const std::shared_ptr<TreeReader::Listing>& listing);
    void leave(const OpenFolder& folder);
    void examineVolume(const Directory& directory, const FileIdentity& told);
    [[nodiscard]] FileIdentity identityFor(const Directory& directory, const FileIdentity& told);
    [[nodiscard]] std::string realPathOf(const Directory& directory);
    [[nodiscard]] std::string placeOf(const std::string& realPath);
    void noteFailure(const Directory& directory,
                     const std::shared_ptr<TreeReader::Listing>& listing);
    void walk(std::vector<OpenFolder>& open);
    void takeFile(const Directory& directory, const ListedEntry& entry);
    void reportFile(const Directory& directory, const ListedEntry& entry);
    [[nodiscard]] Result<bool> isLocationInTrash(const Directory& location);
    [[nodiscard]] bool holdsOwnFiles(const Directory& folder);
    void addToArrayFile(const Directory& directory, const ListedEntry& entry);

    FileSystem& fileSystem_;
    ScanControl& control_;
    IoWatch& watch_;
    UnreadableLog& unreadableLog_;
    UnsteadyVolumes& unsteadyVolumes_;
    const ExceptionFilter& exceptions_;
    const ScanFilter& filter_;
    ScanObserver& observer_;
    ProgressGate& gate_;
    CategoryLists& lists_;
    TreeReader reader_;
    Classifier classifier_;
    std::unordered_set<FileIdentity, FileIdentityHash> walked_;
    // Of folders without lasting inode numbers, by placeOf().
    std::unordered_map<std::string, FileIdentity> madeIdentities_;
    std::unordered_map<const Directory*, std::string> realRoots_;
    std::optional<std::vector<MountedFolder>> mounted_;          // once it is needed
    std::unordered_map<std::string, GivenFolder> givenFolders_;  // by path
    std::optional<TakenFiles> taken_;                            // from the first given file on
    std::vector<UnreadableLocation> unreadable_;
};

}  // namespace tarvin
