#pragma once

namespace tarvin {

/// From now on the calling thread, and every thread that it starts, leaves the processors to
/// threads that have not stood back, when both want them. Cannot be taken back. Does nothing where
/// the system has no such thing.
void standBack();

}  // namespace tarvin
