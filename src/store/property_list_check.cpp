#include "store/property_list_check.h"

#include <algorithm>
#include <cstdint>
#include <optional>
#include <vector>

namespace tarvin {

namespace {

constexpr std::string_view binaryBeginning = "bplist";

bool isNameCharacter(char character) {
    return (character >= 'a' && character <= 'z') || (character >= 'A' && character <= 'Z');
}

bool hasEvenQuotes(std::string_view text) {
    return std::count(text.begin(), text.end(), '"') % 2 == 0;
}

/// Counts the levels and values of an XML list by its tags. libplist ignores an end inside double
/// quotes when it looks for the end of a tag, an instruction or a DOCTYPE. A text that can be read
/// in two ways is refused, so that no level is hidden from this check and open to libplist: behind
/// each of the inputs below, 100,000 levels overflowed the stack.
class XmlCheck final {
 public:
    explicit XmlCheck(std::string_view text) : text_(text) {}

    [[nodiscard]] bool passes() {
        // libplist 2.6 also reads JSON and OpenStep lists, both recursively: 100,000 times "["
        // overflows the stack, with any tags in its strings. 2.2 refuses them.
        const std::size_t first = text_.find_first_not_of(blanks);
        if (first == std::string_view::npos || text_[first] != '<') {
            return false;
        }
        for (std::size_t next = first; next != std::string_view::npos; next = text_.find('<')) {
            text_.remove_prefix(next);
            if (!passTag()) {
                return false;
            }
        }
        return true;
    }

 private:
    static constexpr std::string_view blanks = " \t\r\n";
    static constexpr std::string_view comment = "<!--";
    static constexpr std::string_view section = "<![CDATA[";
    static constexpr std::string_view documentType = "<!DOCTYPE";

    bool passTag() {
        if (text_.starts_with(comment)) {
            // "<!-->" and "<!--->" do not end a comment: 2.2 and 2.6, `<!--><![CDATA[-->`.
            return take(comment.size(), "-->").has_value();
        }
        if (text_.starts_with(section)) {
            return take(section.size(), "]]>").has_value();
        }
        if (text_.starts_with("<?")) {
            // 2.2 and 2.6: `<?x "?><!-- " ?>`.
            const auto instruction = take(1, "?>");
            return instruction && hasEvenQuotes(*instruction);
        }
        if (text_.starts_with(documentType)) {
            // 2.2: `<!DOCTYPE "><!-- ">`. 2.2 and 2.6: `<!DOCTYPE plist [<!ENTITY x '>'> "<!--"
            // ]>`.
            const auto type = take(documentType.size(), ">");
            return type && hasEvenQuotes(*type) && type->find('[') == std::string_view::npos;
        }
        const auto tag = take(1, ">");
        return tag && count(*tag);
    }

    /// Removes the text up to and including the first `ending` at or after `begin` and returns the
    /// part between the two; nullopt if there is no end, which libplist refuses as well.
    std::optional<std::string_view> take(std::size_t begin, std::string_view ending) {
        const std::size_t end = text_.find(ending, begin);
        if (end == std::string_view::npos) {
            return std::nullopt;
        }
        const std::string_view inside = text_.substr(begin, end - begin);
        text_.remove_prefix(end + ending.size());
        return inside;
    }

    bool count(std::string_view tag) {
        if (tag.starts_with('/')) {
            // 2.2 and 2.6: `</array "><!-- ">` inside an array.
            depth_ -= depth_ > 0 ? 1 : 0;
            return isPlain(tag.substr(1));
        }
        // 2.2 and 2.6: `<plist a="><!-- ">` and `<array a="><!-- ">`.
        const bool isRoot = tag.starts_with("plist") && hasEvenQuotes(tag);
        if (!isRoot && !isPlain(tag)) {
            return false;
        }
        depth_ += tag.ends_with('/') ? 0U : 1U;
        // 30 million times `<true/>`, 210 MB: more than 2 GB in 2.2 and 2.6, which crash where
        // memory ends.
        return depth_ <= maxPropertyListDepth && ++values_ <= maxPropertyListValues;
    }

    /// A name without attributes.
    static bool isPlain(std::string_view tag) {
        while (!tag.empty() && isNameCharacter(tag.front())) {
            tag.remove_prefix(1);
        }
        return tag.find_first_not_of(" \t\r\n/") == std::string_view::npos;
    }

    std::string_view text_;
    std::size_t depth_ = 0;
    std::size_t values_ = 0;
};

/// Follows the references of a binary list as libplist does, repeated ones included, and counts
/// values and the bytes that they hold. The trailer of 32 bytes holds the position of the tables;
/// numbers are big-endian. libplist refuses references, tables and lengths outside the list; here
/// they only must not be read.
class BinaryCheck final {
 public:
    explicit BinaryCheck(std::string_view bytes) : bytes_(bytes) {}

    [[nodiscard]] bool passes() {
        if (!readTrailer()) {
            return false;
        }
        std::vector<Visit> visits{{root_, 1}};
        while (!visits.empty()) {
            const Visit visit = visits.back();
            visits.pop_back();
            // 65,000 arrays in one another, 455 KB: 2.2 and 2.6 overflow the stack. Also ends the
            // walk through a list that contains itself.
            if (visit.depth > maxPropertyListDepth || ++values_ > maxValues_ ||
                !addParts(visit, visits)) {
                return false;
            }
        }
        return true;
    }

 private:
    struct Visit {
        std::uint64_t object;
        std::size_t depth;
    };

    /// A big-endian number of `size` bytes; none beyond the end.
    [[nodiscard]] std::optional<std::uint64_t> numberAt(std::uint64_t offset,
                                                        std::uint64_t size) const {
        if (size == 0 || size > 8 || offset > bytes_.size() || size > bytes_.size() - offset) {
            return std::nullopt;
        }
        std::uint64_t number = 0;
        for (std::uint64_t at = 0; at < size; ++at) {
            number = number << 8U | static_cast<unsigned char>(bytes_[offset + at]);
        }
        return number;
    }

    bool readTrailer() {
        constexpr std::size_t trailerBytes = 32;
        if (bytes_.size() < trailerBytes) {
            return false;
        }
        const std::uint64_t trailer = bytes_.size() - trailerBytes;
        offsetBytes_ = numberAt(trailer + 6, 1).value_or(0);
        referenceBytes_ = numberAt(trailer + 7, 1).value_or(0);
        root_ = numberAt(trailer + 16, 8).value_or(0);
        table_ = numberAt(trailer + 24, 8).value_or(0);
        return true;
    }

    /// Adds the values of a container to `visits`, or the bytes of a text or data to the sum.
    /// False if they lie outside the list or are too many.
    bool addParts(const Visit& visit, std::vector<Visit>& visits) {
        const auto offset = numberAt(table_ + visit.object * offsetBytes_, offsetBytes_);
        const auto marker = offset ? numberAt(*offset, 1) : std::nullopt;
        if (!marker) {
            return false;
        }
        switch (*marker >> 4U) {
            case 0x4:  // data
            case 0x5:  // ASCII
                return addHeld(*offset, 1);
            case 0x6:  // UTF-16
                return addHeld(*offset, 2);
            case 0xA:  // array
            case 0xC:  // set
                return addReferences(*offset, 1, visit.depth + 1, visits);
            case 0xD:  // dictionary
                return addReferences(*offset, 2, visit.depth + 1, visits);
            default:
                return true;
        }
    }

    /// The number of units of an object and the position of the first.
    struct Extent {
        std::uint64_t count;
        std::uint64_t first;
    };

    [[nodiscard]] std::optional<Extent> extentAt(std::uint64_t offset) const {
        constexpr std::uint64_t longCount = 0xF;
        const std::uint64_t count = static_cast<unsigned char>(bytes_[offset]) & 0xFU;
        if (count != longCount) {
            return Extent{count, offset + 1};
        }
        const auto marker = numberAt(offset + 1, 1);
        const std::uint64_t size = marker ? std::uint64_t{1} << (*marker & 0xFU) : 0;
        const auto number = numberAt(offset + 2, size);
        return number ? std::optional(Extent{*number, offset + 2 + size}) : std::nullopt;
    }

    /// Called once per reference, because libplist copies the bytes each time: a list of 90 KB with
    /// 60,000 references to 30 KB takes more than 1.7 GB in 2.2 and 2.6.
    bool addHeld(std::uint64_t offset, std::uint64_t perUnit) {
        const auto extent = extentAt(offset);
        if (!extent || extent->count > bytes_.size() / perUnit) {
            return false;
        }
        held_ += extent->count * perUnit;
        return held_ <= bytes_.size() + maxRepeatedBytes;
    }

    bool addReferences(std::uint64_t offset, std::uint64_t perEntry, std::size_t depth,
                       std::vector<Visit>& visits) const {
        const auto extent = extentAt(offset);
        // Counts the pending visits, too, which bounds their memory.
        const std::uint64_t met = values_ + visits.size();
        if (!extent || met > maxValues_ || extent->count > (maxValues_ - met) / perEntry) {
            return false;
        }
        for (std::uint64_t entry = 0; entry < extent->count * perEntry; ++entry) {
            const auto object = numberAt(extent->first + entry * referenceBytes_, referenceBytes_);
            if (!object) {
                return false;
            }
            visits.push_back({*object, depth});
        }
        return true;
    }

    std::string_view bytes_;
    std::uint64_t offsetBytes_ = 0;
    std::uint64_t referenceBytes_ = 0;
    std::uint64_t root_ = 0;
    std::uint64_t table_ = 0;
    // Each reference takes a byte, so a list has more values only by repetition: 10 arrays, each of
    // which names the next four times, take 136 bytes and 215 MB in 2.2 and 2.6.
    const std::uint64_t maxValues_ = std::min<std::uint64_t>(maxPropertyListValues, bytes_.size());
    std::uint64_t values_ = 0;
    std::uint64_t held_ = 0;  // bytes
};

}  // namespace

bool isSafePropertyList(std::string_view bytes) {
    return bytes.starts_with(binaryBeginning) ? BinaryCheck(bytes).passes()
                                              : XmlCheck(bytes).passes();
}

}  // namespace tarvin
