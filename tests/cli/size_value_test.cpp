#include "cli/size_value.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace tarvin {
namespace {

std::optional<std::uint64_t> bytes(std::string_view size) {
    const auto value = bytesFrom(size);
    return value ? std::optional(*value) : std::nullopt;
}

std::string errorOf(std::string_view size) {
    const auto value = bytesFrom(size);
    return value ? "" : value.error();
}

TEST(SizeValue, WithoutAUnitIsBytes) {
    EXPECT_EQ(bytes("0"), 0U);
    EXPECT_EQ(bytes("100"), 100U);
    EXPECT_EQ(bytes("0100"), 100U);
    EXPECT_EQ(bytes("100B"), 100U);
    EXPECT_EQ(bytes("18446744073709551615"), 18446744073709551615U);
}

TEST(SizeValue, UnitsArePowersOf1000) {
    EXPECT_EQ(bytes("10KB"), 10'000U);
    EXPECT_EQ(bytes("10kB"), 10'000U);
    EXPECT_EQ(bytes("10kb"), 10'000U);
    EXPECT_EQ(bytes("3MB"), 3'000'000U);
    EXPECT_EQ(bytes("2GB"), 2'000'000'000U);
    EXPECT_EQ(bytes("4 TB"), 4'000'000'000'000U);
}

TEST(SizeValue, UnitsWithAnIArePowersOf1024) {
    EXPECT_EQ(bytes("10KiB"), 10'240U);
    EXPECT_EQ(bytes("1MiB"), 1'048'576U);
    EXPECT_EQ(bytes("2 GiB"), 2'147'483'648U);
    EXPECT_EQ(bytes("1tib"), 1'099'511'627'776U);
}

TEST(SizeValue, FractionsAreExactAndRoundedDown) {
    EXPECT_EQ(bytes("1.5MB"), 1'500'000U);
    EXPECT_EQ(bytes("0.1KiB"), 102U);
    EXPECT_EQ(bytes("0.9999KB"), 999U);
    EXPECT_EQ(bytes("2.000000000001TB"), 2'000'000'000'001U);
    EXPECT_EQ(bytes("0.99999999999999999999999999TB"), 999'999'999'999U);
    EXPECT_EQ(bytes("1.0KB"), 1'000U);
}

TEST(SizeValue, ThatIsNoSizeIsRefused) {
    const std::string expected =
        "expected a number of bytes, or one with KB, MB, GB, TB, KiB, MiB, GiB or TiB";
    for (const char* text :
         {"", " ", "-1", "+1", "MB", ".5MB", "1.", "1.MB", "1,5MB", "1.5.2MB", "10k", "10 ", " 10",
          "10  KB", "10PB", "10KBs", "0x10", "1e3", "ten"}) {
        EXPECT_EQ(errorOf(text), expected) << text;
    }
    EXPECT_EQ(errorOf("1.5"), "expected whole bytes");
    EXPECT_EQ(errorOf("1.5B"), "expected whole bytes");
}

TEST(SizeValue, ThatDoesNotFitIsRefused) {
    EXPECT_EQ(errorOf("18446744073709551616"), "too large");
    EXPECT_EQ(errorOf("99999999999999999999999"), "too large");
    EXPECT_EQ(errorOf("18446744073709551.7KB"), "too large");
    EXPECT_EQ(bytes("18446744073709551.6KB"), 18446744073709551600U);
    EXPECT_EQ(errorOf("16777216TiB"), "too large");
}

}  // namespace
}  // namespace tarvin
