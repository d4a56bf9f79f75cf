#pragma once

#include <QString>

namespace tarvin {

/// The path of the built program that makes previews.
QString previewProgram();

}  // namespace tarvin
