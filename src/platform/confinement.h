#pragma once

namespace tarvin {

// Restrictions for a process that reads untrusted files. For the whole process.

/// The system kills this process when its parent ends; at once if the parent has already ended.
/// Call at most once, before threads are started.
void endWithParent();

/// Threads started from now on get a stack of 1 MB instead of the user's limit, which would count
/// against a memory limit once per CPU. Threads that set a stack size get that.
void limitThreadStacks();

/// From now on no thread of this process can open a file, use a path or a network, or start a
/// process: each fails with ENOSYS immediately. Open files can be read and written, but not mapped
/// (on Linux); memory and threads are available. Irrevocable. Returns false if the system does not
/// support it; then nothing has changed.
[[nodiscard]] bool confineToOpenFiles();

}  // namespace tarvin
