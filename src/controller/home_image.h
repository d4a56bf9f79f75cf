#pragma once

#include <QCoreApplication>
#include <QString>
#include <QVariant>
#include <cstdint>

namespace tarvin {

// The image of the home screen changes from start to start; a counter selects it. Pure functions.

/// The settings key of the counter.
inline constexpr const char* homeImageKey = "HomeImageValue";

/// The counter of this start: 1 if none is stored. The leading decimal number of the stored value
/// is used, 0 if there is none, clamped to 32 bits.
[[nodiscard]] std::int32_t homeImageCounter(const QVariant& stored);

/// "HomePage2.png" for 2, "HomePage3.png" for 3, "HomePage1.png" for any other counter.
[[nodiscard]] QString homeImageName(std::int32_t counter);

/// The counter of the next start: 3 becomes 1, any other is incremented.
[[nodiscard]] std::int32_t nextHomeImageCounter(std::int32_t counter);

/// The stored form of the counter.
[[nodiscard]] QString storedHomeImageCounter(std::int32_t counter);

/// The label of the home screen. Main thread only.
class HomeTexts final {
    Q_DECLARE_TR_FUNCTIONS(tarvin::HomeTexts)

 public:
    /// "Files cleaned so far: 12 (3.45 MB)". Shown only if the count is not 0.
    [[nodiscard]] static QString cleanHistory(std::int64_t alreadyDeletedCount,
                                              std::uint64_t alreadyDeletedSize);
};

}  // namespace tarvin
