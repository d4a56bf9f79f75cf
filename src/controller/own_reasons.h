#pragma once

#include "platform/trash_move.h"
#include "store/store_error.h"

#include <QCoreApplication>
#include <QString>
#include <string>

namespace tarvin {

/// Reasons that the product itself has found, in the language of the window; the engine has them in
/// English. Those of the system stay in the system's words. Main thread.
class OwnReasons final {
    Q_DECLARE_TR_FUNCTIONS(tarvin::OwnReasons)

 public:
    /// Why the Trash did not take a file or give it back; `words` are shown if the system refused.
    [[nodiscard]] static QString ofTrash(TrashRefusalKind kind, const std::string& words);
    /// Why what the product keeps could not be read or written.
    [[nodiscard]] static QString of(const StoreError& error) { return ofStore(error.text); }
    /// The same, by the text of the error.
    [[nodiscard]] static QString ofStore(const std::string& text);
};

}  // namespace tarvin
