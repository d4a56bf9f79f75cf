#pragma once

#include "controller/urls.h"

#include <QByteArray>
#include <QString>
#include <QUrl>
#include <optional>

namespace tarvin {

/// Where the update description is: "Update.plist" in the folder that the list of addresses names,
/// joined as parts of a path, with "%20" for each blank. Empty if the list names none, or one that
/// is no http, https or file address. Pure.
[[nodiscard]] QUrl updateAddress(const Urls& urls);

/// In UTF-16 units; a longer one is cut, because it would not fit into the question.
inline constexpr qsizetype maxVersionLength = 64;

/// What an update description tells the users of `version` to move to, as it is shown; none if that
/// is nothing.
///
/// The description is a property list, a dictionary whose keys are versions, each with the version
/// that its users should move to. There is no order of versions: any other text is an update, an
/// empty one too. What is no text is no version. Pure.
[[nodiscard]] std::optional<QString> updateFor(const QString& version,
                                               const QByteArray& description);

}  // namespace tarvin
