#include "platform/trash.h"

#include "platform/linux/user_environment.h"

#include <dlfcn.h>
#include <gio/gio.h>
#include <sys/stat.h>
#include <sys/statvfs.h>
#include <unistd.h>

#include <cstdint>
#include <string>
#include <utility>

namespace tarvin {

namespace {

/// What we call of the system's library. It is loaded when it is first needed, which many a start
/// of the program never does: with all that it needs itself, it takes longer than our own code.
class Library final {
 public:
    /// None where it cannot be loaded; one for the process.
    static const Library* get() {
        static const Library library;
        return library.isWhole_ ? &library : nullptr;
    }

    decltype(&::g_get_user_data_dir) userDataDir = nullptr;
    decltype(&::g_vfs_get_local) localVfs = nullptr;
    decltype(&::g_vfs_get_file_for_path) fileForPath = nullptr;
    decltype(&::g_file_trash) trash = nullptr;
    decltype(&::g_object_unref) unref = nullptr;

 private:
    Library()
        : handle_(::dlopen("libgio-2.0.so.0", RTLD_NOW | RTLD_LOCAL | RTLD_NODELETE)),
          isWhole_(find("g_get_user_data_dir", userDataDir) && find("g_vfs_get_local", localVfs) &&
                   find("g_vfs_get_file_for_path", fileForPath) && find("g_file_trash", trash) &&
                   find("g_object_unref", unref)) {}

    template <typename Function>
    bool find(const char* name, Function& function) const {
        function =
            handle_ == nullptr ? nullptr : reinterpret_cast<Function>(::dlsym(handle_, name));
        return function != nullptr;
    }

    void* const handle_;
    const bool isWhole_;
};

/// A note takes a block, and a folder may need another for the new names.
constexpr std::uint64_t leastRoom = 64 * 1024;

bool isLink(const std::string& path) {
    struct stat status{};
    return ::lstat(path.c_str(), &status) == 0 && S_ISLNK(status.st_mode);
}

/// What is behind a link need not be anybody's Trash.
bool hasLinks(const std::string& trash) {
    return isLink(trash) || isLink(trash + "/files") || isLink(trash + "/info");
}

/// The folder above `path`, which is absolute.
std::string folderOf(const std::string& path) {
    const std::size_t slash = path.rfind('/');
    return slash == 0 || slash == std::string::npos ? "/" : path.substr(0, slash);
}

/// The uppermost folder of the volume that `folder` is on.
std::string volumeOf(std::string folder, dev_t device) {
    while (folder != "/") {
        std::string above = folderOf(folder);
        struct stat status{};
        if (::stat(above.c_str(), &status) != 0 || status.st_dev != device) {
            break;
        }
        folder = std::move(above);
    }
    return folder;
}

/// The system's library takes the folder of the home from the same variable, but a relative one,
/// too, which would mean a Trash in whatever folder the program was started from.
bool isAstray(const Library& library) {
    return *library.userDataDir() != '/';
}

/// The desktop's Trash by its own rules, in this process: no service is asked (unless a person
/// sets GTK_USE_PORTAL), and what cannot go to the Trash of its own volume does not go.
class DesktopTrash final : public Trash {
 public:
    bool fileExistsAtPath(const std::string& path) override {
        struct stat status{};
        return ::stat(path.c_str(), &status) == 0;
    }

    bool trashItemAtPath(const std::string& path) override {
        const Library* const library = Library::get();
        if (library == nullptr || !hasPlaceFor(path, *library)) {
            return false;
        }
        GFile* const file = library->fileForPath(library->localVfs(), path.c_str());
        const bool moved = library->trash(file, nullptr, nullptr) == TRUE;
        library->unref(file);
        return moved;
    }

 private:
    /// What the library does not look at, though a file would be lost behind a link, and its note
    /// would be empty on a full volume.
    bool hasPlaceFor(const std::string& path, const Library& library) {
        const auto homeTrash = homeTrashFolder(processEnvironment());
        const auto home = homeFolder(processEnvironment());
        struct stat item{};
        struct stat homeStatus{};
        if (!homeTrash || !home || ::lstat(path.c_str(), &item) != 0 ||
            ::stat(home->c_str(), &homeStatus) != 0 || !hasRoom(folderOf(path))) {
            return false;
        }
        if (item.st_dev == homeStatus.st_dev) {
            return !isAstray(library) && !hasLinks(*homeTrash);
        }
        const bool isTheSame = device_ == item.st_dev && path.starts_with(volume_ + '/');
        if (volume_.empty() || !isTheSame) {
            device_ = item.st_dev;
            volume_ = volumeOf(folderOf(path), device_);
        }
        const std::string user = std::to_string(::getuid());
        return !hasLinks(volume_ + "/.Trash/" + user) && !hasLinks(volume_ + "/.Trash-" + user);
    }

    static bool hasRoom(const std::string& folder) {
        struct statvfs status{};
        return ::statvfs(folder.c_str(), &status) == 0 &&
               std::uint64_t{status.f_bavail} * status.f_frsize >= leastRoom;
    }

    // Of the file asked for last: files come folder by folder.
    dev_t device_ = 0;
    std::string volume_;
};

}  // namespace

Trash& systemTrash() {
    static DesktopTrash trash;
    return trash;
}

}  // namespace tarvin
