#pragma once

#include <QString>
#include <QStringList>
#include <string>

namespace tarvin {

/// Opens files and URLs in the user's default applications, and starts programs. Main thread only.
/// Tests replace it.
class Desktop {
 public:
    virtual ~Desktop() = default;

    /// Opens a file or folder by its absolute path, native bytes. Returns false if the desktop
    /// refuses.
    virtual bool openPath(const std::string& path) = 0;

    /// Shows the folder of a file, by its absolute path, native bytes, with the file selected if
    /// the file manager can do that. Returns immediately: a file manager that does not answer is
    /// not waited for, and after 10 s, or if it refuses, the folder is opened instead.
    virtual void showInFolder(const std::string& path) = 0;

    /// Opens a URL with the scheme "file", "http", "https" or "mailto". Returns false for any other
    /// scheme and for an invalid URL, or if the desktop refuses.
    virtual bool openUrl(const QString& url) = 0;

    /// Starts a detached process. Returns false if it cannot be started.
    virtual bool startProgram(const QString& program, const QStringList& arguments) = 0;
};

/// The user's desktop; one instance per process.
Desktop& systemDesktop();

}  // namespace tarvin
