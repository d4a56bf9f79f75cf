#pragma once

#include <string>

namespace tarvin {

/// One row of the location list.
struct LocationRow {
    std::string name;     ///< absolute path of the folder, volume or file; native bytes
    std::string image;    ///< icon name, or empty
    std::string size;     ///< size text of a single-file row; empty for a folder
    bool state = false;   ///< checked for scanning
    bool folder = false;  ///< a folder or volume; single files are listed but never scanned
    /// Given by name: may also be a file, which is scanned then; `folder` is true.
    bool mayBeFile = false;
};

}  // namespace tarvin
