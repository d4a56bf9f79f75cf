#include "platform/trash.h"

#include "platform/linux/user_environment.h"

#include <gio/gio.h>
#include <sys/stat.h>

#include <memory>

namespace tarvin {

namespace {

struct ObjectDeleter {
    void operator()(GFile* file) const { g_object_unref(file); }
};

/// Whether the Trash of the home, where files of the home's file system go, is a link: what is
/// behind one need not be anybody's Trash. Of other file systems the library looks itself.
bool wouldGoThroughALink(const std::string& path) {
    const auto trash = homeTrashFolder(processEnvironment());
    const auto home = homeFolder(processEnvironment());
    struct stat trashStatus {};
    struct stat homeStatus {};
    struct stat fileStatus {};
    return trash && home && ::lstat(trash->c_str(), &trashStatus) == 0 &&
           S_ISLNK(trashStatus.st_mode) && ::stat(home->c_str(), &homeStatus) == 0 &&
           ::lstat(path.c_str(), &fileStatus) == 0 && homeStatus.st_dev == fileStatus.st_dev;
}

/// The desktop's Trash by its own rules, in this process: no service is asked, and what cannot go
/// to the Trash of its own volume does not go.
class DesktopTrash final : public Trash {
 public:
    bool fileExistsAtPath(const std::string& path) override {
        struct stat status {};
        return ::stat(path.c_str(), &status) == 0;
    }

    bool trashItemAtPath(const std::string& path) override {
        if (wouldGoThroughALink(path)) {
            return false;
        }
        const std::unique_ptr<GFile, ObjectDeleter> file(
            g_vfs_get_file_for_path(g_vfs_get_local(), path.c_str()));
        return g_file_trash(file.get(), nullptr, nullptr) == TRUE;
    }
};

}  // namespace

Trash& systemTrash() {
    static DesktopTrash trash;
    return trash;
}

}  // namespace tarvin
