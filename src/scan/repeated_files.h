#pragma once

#include "scan/candidate_reader.h"
#include "scan/content_verdict.h"

#include <optional>
#include <span>

namespace tarvin {

/// Removes files that a group of equal files holds more than once, under different paths: a folder
/// that has become reachable through a link, a file mounted over another, a name that the listing
/// returned twice. Hard links are different files. Where the
/// volume is unsteady (UnsteadyVolumes), only an equal path tells. Every member of the group has a
/// stamp. Pure.
[[nodiscard]] FileGroup withoutRepeats(FileGroup group, std::span<File* const> files,
                                       std::span<const std::optional<FileStamp>> stamps);

/// The same for files that have versions, by these.
[[nodiscard]] FileGroup withoutRepeats(FileGroup group, std::span<File* const> files);

}  // namespace tarvin
