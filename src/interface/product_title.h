#pragma once

#include <QString>

namespace tarvin {

/// The name of the product, the same in every language.
[[nodiscard]] inline QString productTitle() {
    return QStringLiteral("Tarvin Duplicate File Remover");
}

}  // namespace tarvin
