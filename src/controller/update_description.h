#pragma once

#include "controller/urls.h"

#include <QByteArray>
#include <QString>
#include <QUrl>
#include <optional>

namespace tarvin {

/// The URL of the update description: "Update.plist" in the folder named by Urls.plist, joined as
/// parts of a path, with "%20" for each space. Empty if there is none or its scheme is not http,
/// https or file. Pure.
[[nodiscard]] QUrl updateUrl(const Urls& urls);

/// UTF-16 units. A longer version is cut to fit into the question.
inline constexpr qsizetype maxVersionLength = 64;

/// The version that an update description names for users of `version`, as it is shown; nullopt if
/// none.
///
/// The description is a property list: a dictionary from versions to the version to update to.
/// Versions have no order: any other text is an update, also an empty one. A value that is not a
/// string is ignored. Pure.
[[nodiscard]] std::optional<QString> updateFor(const QString& version,
                                               const QByteArray& description);

}  // namespace tarvin
