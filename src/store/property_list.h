#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tarvin {

/// A property list in memory: the root of what was read, or made anew. One thread at a time.
///
/// Only what the program needs: dictionaries of whole numbers (totals) and of texts (addresses,
/// update descriptions), and arrays of paths (exceptions). What else they hold stays in them.
class PropertyList final {
 public:
    /// An XML or binary list; none if it is not one, or one that no honest program writes
    /// (isSafePropertyList).
    static std::optional<PropertyList> parse(std::string_view bytes);
    static PropertyList dictionary();

    /// An array of paths. A path that is UTF-8 and free of characters that XML cannot hold is a
    /// string; any other is data, which holds its exact bytes. An empty one is no path.
    static PropertyList arrayOfPaths(const std::vector<std::string>& paths);

    [[nodiscard]] bool isDictionary() const;
    [[nodiscard]] bool isArray() const;

    /// The paths of an array: its strings and data, in order. What else it holds is passed over.
    [[nodiscard]] std::vector<std::string> paths() const;

    /// The number under `key` of a dictionary, as 64 bits without a sign: a whole number, a real
    /// without its fraction, or a string of digits. None if there is none or something else; 0 for
    /// an integer below zero.
    [[nodiscard]] std::optional<std::uint64_t> number(const char* key) const;
    /// The same with a sign; 0 for an integer beyond 63 bits.
    [[nodiscard]] std::optional<std::int64_t> signedNumber(const char* key) const;
    /// Whether a dictionary has `key`, whatever is under it.
    [[nodiscard]] bool has(const char* key) const;
    /// The string under `key` of a dictionary, in UTF-8; none if there is none or something else.
    [[nodiscard]] std::optional<std::string> text(const char* key) const;
    void setNumber(const char* key, std::uint64_t number);
    void setSignedNumber(const char* key, std::int64_t number);

    /// The list as an XML property list; empty if there is no memory for it.
    [[nodiscard]] std::string xml() const;

 private:
    struct Deleter {
        void operator()(void* root) const;
    };

    explicit PropertyList(void* root) : root_(root) {}

    std::unique_ptr<void, Deleter> root_;
};

}  // namespace tarvin
