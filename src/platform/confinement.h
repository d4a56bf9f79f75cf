#pragma once

namespace tarvin {

/// What a process gives up that reads files of unknown origin. For the whole process.

/// The system ends this process when the one that started it ends; at once if that has ended
/// meanwhile. Once, before there are threads.
void endWithParent();

/// Threads that are started from now on get a stack of 1 MB instead of what the user's limits say,
/// which would count against a limit of memory once for each processor. Threads that ask for a size
/// get that.
void limitThreadStacks();

/// From now on no thread of this process opens a file, asks for one by its path, uses a network or
/// starts a process: the system refuses each with ENOSYS, at once. What is open can be read and
/// written, not mapped; memory and threads can be had. Cannot be taken back. False if the system
/// cannot do that; then nothing has changed.
[[nodiscard]] bool confineToOpenFiles();

}  // namespace tarvin
