#pragma once

#include "platform/trash_move.h"
#include "store/store_error.h"

#include <QCoreApplication>
#include <QString>
#include <string>

namespace tarvin {

/// Translations of our own error reasons, which the engine has in English. The system's reasons
/// stay as they are. Main thread only.
class OwnReasons final {
    Q_DECLARE_TR_FUNCTIONS(tarvin::OwnReasons)

 public:
    /// Why the Trash refused to take or return a file; `words` is the system's reason, if it was
    /// the system.
    [[nodiscard]] static QString ofTrash(TrashRefusalKind kind, const std::string& words);
    /// Why a stored file could not be read or written.
    [[nodiscard]] static QString of(const StoreError& error) { return ofStore(error.text); }
    /// The same, by the text of the error.
    [[nodiscard]] static QString ofStore(const std::string& text);
};

}  // namespace tarvin
