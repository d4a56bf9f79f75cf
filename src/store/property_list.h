#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tarvin {

/// A property list in memory, parsed or new. One thread at a time.
///
/// Supports only dictionaries of integers (totals) and of texts (URLs, update descriptions), and
/// arrays of paths (exceptions). Other content is preserved.
class PropertyList final {
 public:
    /// Parses an XML or binary list; nullopt if it is damaged or not safe (isSafePropertyList).
    static std::optional<PropertyList> parse(std::string_view bytes);
    static PropertyList dictionary();

    /// An array of paths. A path in UTF-8 without characters that XML cannot represent becomes a
    /// string, any other data with its exact bytes. Skips empty paths.
    static PropertyList arrayOfPaths(const std::vector<std::string>& paths);

    [[nodiscard]] bool isDictionary() const;
    [[nodiscard]] bool isArray() const;

    /// The paths of an array: its strings and data, in order. Skips other elements.
    [[nodiscard]] std::vector<std::string> paths() const;

    /// The number under `key` of a dictionary as unsigned 64 bits: an integer, a real without its
    /// fraction, or a string of digits. nullopt if missing or of another type; 0 for a negative
    /// integer.
    [[nodiscard]] std::optional<std::uint64_t> number(const char* key) const;
    /// The same, signed; 0 for an integer of more than 63 bits.
    [[nodiscard]] std::optional<std::int64_t> signedNumber(const char* key) const;
    /// Whether a dictionary has `key`, with a value of any type.
    [[nodiscard]] bool has(const char* key) const;
    /// The UTF-8 string under `key` of a dictionary; nullopt if missing or of another type.
    [[nodiscard]] std::optional<std::string> text(const char* key) const;
    void setNumber(const char* key, std::uint64_t number);
    void setSignedNumber(const char* key, std::int64_t number);

    /// The list as XML; empty if memory runs out.
    [[nodiscard]] std::string xml() const;

 private:
    struct Deleter {
        void operator()(void* root) const;
    };

    explicit PropertyList(void* root) : root_(root) {}

    std::unique_ptr<void, Deleter> root_;
};

}  // namespace tarvin
