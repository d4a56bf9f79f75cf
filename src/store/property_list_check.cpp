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

/// Goes over the tags of an XML list and counts. libplist passes over what stands in double quotes
/// when it looks for the end of a tag, an instruction or a DOCTYPE. So a quote that is open at the
/// first end is refused, and with it everything that could be read in two ways: no level may be
/// open to libplist and hidden from this.
class XmlCheck final {
 public:
    explicit XmlCheck(std::string_view text) : text_(text) {}

    [[nodiscard]] bool passes() {
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
            return take(comment.size(), "-->").has_value();
        }
        if (text_.starts_with(section)) {
            return take(section.size(), "]]>").has_value();
        }
        if (text_.starts_with("<?")) {
            const auto instruction = take(1, "?>");
            return instruction && hasEvenQuotes(*instruction);
        }
        if (text_.starts_with(documentType)) {
            const auto type = take(documentType.size(), ">");
            return type && hasEvenQuotes(*type) && type->find('[') == std::string_view::npos;
        }
        const auto tag = take(1, ">");
        return tag && count(*tag);
    }

    /// What stands between `begin` and the first `ending` from there on, which it goes behind; none
    /// if there is no end.
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
            depth_ -= depth_ > 0 ? 1 : 0;
            return isPlain(tag.substr(1));
        }
        const bool isRoot = tag.starts_with("plist") && hasEvenQuotes(tag);
        if (!isRoot && !isPlain(tag)) {
            return false;
        }
        // libplist goes on to fill an outermost container that closes itself.
        const bool closesItself = tag.ends_with('/') && depth_ > 0;
        depth_ += closesItself ? 0 : 1;
        return depth_ <= deepestPropertyList && ++values_ <= mostPropertyListValues;
    }

    /// Only the root has attributes.
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

/// Follows the references of a binary list as a parser would, with repetitions, and counts values
/// and the bytes that they hold. The last 32 bytes say where everything is; numbers are big-endian.
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
            if (visit.depth > deepestPropertyList || ++values_ > mostValues_ ||
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
    [[nodiscard]] std::optional<std::uint64_t> numberAt(std::uint64_t place,
                                                        std::uint64_t size) const {
        if (size == 0 || size > 8 || place > bytes_.size() || size > bytes_.size() - place) {
            return std::nullopt;
        }
        std::uint64_t number = 0;
        for (std::uint64_t at = 0; at < size; ++at) {
            number = number << 8U | static_cast<unsigned char>(bytes_[place + at]);
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
        objects_ = numberAt(trailer + 8, 8).value_or(0);
        root_ = numberAt(trailer + 16, 8).value_or(0);
        table_ = numberAt(trailer + 24, 8).value_or(0);
        return objects_ <= bytes_.size() && table_ <= bytes_.size();
    }

    /// Puts what a container holds before the others and adds up what a text or data holds. False
    /// if it lies outside the list or is too much.
    bool addParts(const Visit& visit, std::vector<Visit>& visits) {
        if (visit.object >= objects_) {
            return false;
        }
        const auto place = numberAt(table_ + visit.object * offsetBytes_, offsetBytes_);
        const auto marker = place ? numberAt(*place, 1) : std::nullopt;
        if (!marker) {
            return false;
        }
        switch (*marker >> 4U) {
            case 0x4:  // data
            case 0x5:  // ASCII
                return addHeld(*place, 1);
            case 0x6:  // UTF-16
                return addHeld(*place, 2);
            case 0xA:  // array
            case 0xC:  // set
                return addReferences(*place, 1, visit.depth + 1, visits);
            case 0xD:  // dictionary
                return addReferences(*place, 2, visit.depth + 1, visits);
            default:
                return true;
        }
    }

    /// How many units an object has, and where the first of them stands.
    struct Extent {
        std::uint64_t count;
        std::uint64_t first;
    };

    [[nodiscard]] std::optional<Extent> extentAt(std::uint64_t place) const {
        constexpr std::uint64_t longCount = 0xF;
        const std::uint64_t count = static_cast<unsigned char>(bytes_[place]) & 0xFU;
        if (count != longCount) {
            return Extent{count, place + 1};
        }
        const auto marker = numberAt(place + 1, 1);
        const std::uint64_t size = marker ? std::uint64_t{1} << (*marker & 0xFU) : 0;
        const auto number = numberAt(place + 2, size);
        return number ? std::optional(Extent{*number, place + 2 + size}) : std::nullopt;
    }

    /// Each time it is met: a parser copies it each time.
    bool addHeld(std::uint64_t place, std::uint64_t perUnit) {
        const auto extent = extentAt(place);
        if (!extent || extent->count > bytes_.size() / perUnit) {
            return false;
        }
        held_ += extent->count * perUnit;
        return held_ <= bytes_.size() + roomForRepeatedBytes;
    }

    bool addReferences(std::uint64_t place, std::uint64_t perEntry, std::size_t depth,
                       std::vector<Visit>& visits) const {
        const auto extent = extentAt(place);
        // What waits to be visited counts already, so that it cannot pile up either.
        const std::uint64_t met = values_ + visits.size();
        if (!extent || met > mostValues_ || extent->count > (mostValues_ - met) / perEntry) {
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
    std::uint64_t objects_ = 0;
    std::uint64_t root_ = 0;
    std::uint64_t table_ = 0;
    // A value without a reference of its own is one that is met again.
    const std::uint64_t mostValues_ =
        std::min<std::uint64_t>(mostPropertyListValues, bytes_.size());
    std::uint64_t values_ = 0;
    std::uint64_t held_ = 0;  // bytes
};

}  // namespace

bool isHarmlessPropertyList(std::string_view bytes) {
    return bytes.starts_with(binaryBeginning) ? BinaryCheck(bytes).passes()
                                              : XmlCheck(bytes).passes();
}

}  // namespace tarvin
