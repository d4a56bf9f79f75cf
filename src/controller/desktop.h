#pragma once

#include <QString>
#include <QStringList>
#include <string>

namespace tarvin {

/// What the desktop does for the program: opening things with the program that the user has chosen
/// for them, and starting programs. Main thread. Tests bring a fake.
class Desktop {
 public:
    virtual ~Desktop() = default;

    /// Opens a file or folder by its absolute path, native bytes. False if the desktop refuses.
    virtual bool openPath(const std::string& path) = 0;

    /// Opens an address. Only "file", "http", "https" and "mailto" are opened; anything else, such
    /// as a damaged text, is refused without asking the desktop.
    virtual bool openAddress(const QString& address) = 0;

    /// Starts a program that goes on when this one ends. False if it cannot be started.
    virtual bool startProgram(const QString& program, const QStringList& arguments) = 0;
};

/// The desktop of the user; one for the process.
Desktop& systemDesktop();

}  // namespace tarvin
