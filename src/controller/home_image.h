#pragma once

#include <QCoreApplication>
#include <QString>
#include <QVariant>
#include <cstdint>

namespace tarvin {

// The picture of the home screen changes from start to start; a counter says which one is shown.
// All pure.

/// The name that the counter is stored under among the user's settings.
inline constexpr const char* homeImageKey = "HomeImageValue";

/// The counter of this start, given the stored value: 1 if there is none. A value is read as far as
/// it is a decimal number; any other reads as 0, and what is beyond 32 bits as the nearest number.
[[nodiscard]] std::int32_t homeImageCounter(const QVariant& stored);

/// "HomePage2.png" for 2, "HomePage3.png" for 3, "HomePage1.png" for any other counter.
[[nodiscard]] QString homeImageName(std::int32_t counter);

/// The counter of the next start: 3 becomes 1, any other grows by one.
[[nodiscard]] std::int32_t nextHomeImageCounter(std::int32_t counter);

/// The counter as it is stored.
[[nodiscard]] QString storedHomeImageCounter(std::int32_t counter);

/// The label of the home screen. Main thread.
class HomeTexts final {
    Q_DECLARE_TR_FUNCTIONS(tarvin::HomeTexts)

 public:
    /// "Files cleaned so far: 12 (3.45 MB)". Shown only if the count is not 0.
    [[nodiscard]] static QString cleanHistory(std::int64_t alreadyDeletedCount,
                                              std::uint64_t alreadyDeletedSize);
};

}  // namespace tarvin
