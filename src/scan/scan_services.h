#pragma once

#include "platform/file_system.h"
#include "platform/unsteady_volumes.h"
#include "scan/io_watch.h"
#include "scan/scan_control.h"
#include "scan/unreadable.h"
#include "scan/worker_pool.h"

namespace tarvin {

/// The objects shared by all parts of one scan. They must outlive the parts and their tasks.
struct ScanServices {
    FileSystem& fileSystem;
    WorkerPool& pool;
    ScanControl& control;
    IoWatch& watch;
    UnreadableLog& unreadable;
    UnsteadyVolumes& unsteadyVolumes;
};

}  // namespace tarvin
