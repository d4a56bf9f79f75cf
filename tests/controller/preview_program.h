#pragma once

#include <QString>

namespace tarvin {

/// The path of the built preview program.
QString previewProgram();

}  // namespace tarvin
