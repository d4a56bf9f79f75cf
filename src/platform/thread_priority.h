#pragma once

namespace tarvin {

/// Lowers the priority of the calling thread and of every thread that it starts afterwards, so that
/// under CPU contention they get about a third of a normal thread's share. Cannot be undone. Does
/// nothing if the system has no such priorities.
void lowerThreadPriority();

}  // namespace tarvin
