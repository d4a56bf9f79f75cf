#include "store/property_list_check.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace tarvin {

namespace {

constexpr std::string_view binaryBeginning = "bplist";

bool isNameCharacter(char character) {
    return (character >= 'a' && character <= 'z') || (character >= 'A' && character <= 'Z');
}

/// Goes over the tags of an XML list and counts. Only the root has attributes; refusing them
/// elsewhere leaves no doubt about where a tag ends.
class XmlCheck final {
 public:
    explicit XmlCheck(std::string_view text) : text_(text) {}

    [[nodiscard]] bool passes() {
        while (true) {
            const std::size_t next = text_.find('<');
            if (next == std::string_view::npos) {
                return true;
            }
            text_.remove_prefix(next);
            if (!passTag()) {
                return false;
            }
        }
    }

 private:
    bool passTag() {
        if (text_.starts_with("<!--")) {
            return skipBehind("-->");
        }
        if (text_.starts_with("<![CDATA[")) {
            return skipBehind("]]>");
        }
        if (text_.starts_with("<?") || text_.starts_with("<!")) {
            return skipBehind(">");
        }
        const std::size_t end = text_.find('>');
        if (end == std::string_view::npos) {
            text_ = {};  // cut off: the parser refuses it
            return true;
        }
        const std::string_view tag = text_.substr(1, end - 1);
        text_.remove_prefix(end + 1);
        return count(tag);
    }

    bool skipBehind(std::string_view ending) {
        const std::size_t end = text_.find(ending);
        text_.remove_prefix(end == std::string_view::npos ? text_.size() : end + ending.size());
        return true;
    }

    bool count(std::string_view tag) {
        if (tag.starts_with('/')) {
            depth_ -= depth_ > 0 ? 1 : 0;
            return true;
        }
        const bool closesItself = tag.ends_with('/');
        if (!tag.starts_with("plist") && !isPlain(tag)) {
            return false;
        }
        depth_ += closesItself ? 0 : 1;
        return depth_ <= deepestPropertyList && ++values_ <= mostPropertyListValues;
    }

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

/// Follows the references of a binary list as a parser would, with repetitions, and counts. The
/// last 32 bytes say where everything is; numbers are big-endian.
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
            if (visit.depth > deepestPropertyList || ++values_ > mostPropertyListValues ||
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

    /// Puts what a container holds before the others; nothing for what is none. False if it lies
    /// outside the list.
    bool addParts(const Visit& visit, std::vector<Visit>& visits) const {
        if (visit.object >= objects_) {
            return false;
        }
        const auto place = numberAt(table_ + visit.object * offsetBytes_, offsetBytes_);
        const auto marker = place ? numberAt(*place, 1) : std::nullopt;
        if (!marker) {
            return false;
        }
        const std::uint64_t kind = *marker >> 4U;
        constexpr std::uint64_t array = 0xA;
        constexpr std::uint64_t set = 0xC;
        constexpr std::uint64_t dictionary = 0xD;
        if (kind != array && kind != set && kind != dictionary) {
            return true;
        }
        return addReferences(*place, kind == dictionary ? 2 : 1, visit.depth + 1, visits);
    }

    bool addReferences(std::uint64_t place, std::uint64_t perEntry, std::size_t depth,
                       std::vector<Visit>& visits) const {
        constexpr std::uint64_t longCount = 0xF;
        std::uint64_t count = static_cast<unsigned char>(bytes_[place]) & 0xFU;
        std::uint64_t first = place + 1;
        if (count == longCount) {
            const auto marker = numberAt(first, 1);
            const std::uint64_t size = marker ? std::uint64_t{1} << (*marker & 0xFU) : 0;
            const auto number = numberAt(first + 1, size);
            if (!number) {
                return false;
            }
            count = *number;
            first += 1 + size;
        }
        // What waits to be visited counts already, so that it cannot pile up either.
        const std::uint64_t met = values_ + visits.size();
        if (met > mostPropertyListValues || count > (mostPropertyListValues - met) / perEntry) {
            return false;
        }
        for (std::uint64_t entry = 0; entry < count * perEntry; ++entry) {
            const auto object = numberAt(first + entry * referenceBytes_, referenceBytes_);
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
    std::size_t values_ = 0;
};

}  // namespace

bool isHarmlessPropertyList(std::string_view bytes) {
    return bytes.starts_with(binaryBeginning) ? BinaryCheck(bytes).passes()
                                              : XmlCheck(bytes).passes();
}

}  // namespace tarvin
