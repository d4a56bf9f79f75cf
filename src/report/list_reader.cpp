#include "report/list_reader.h"

#include "report/byte_source.h"
#include "report/result_writer.h"
#include "text/hexadecimal.h"
#include "text/utf8.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <array>
#include <cstdint>
#include <limits>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace tarvin {

namespace {

using JsonValue = nlohmann::json;

// The nesting of a list: objects and arrays alternate, from the whole list to the files.
constexpr std::array<std::string_view, 4> arrayKeys{"categories", "extensions", "sets", "files"};
constexpr int noLevel = -1;
constexpr int fileLevel = 8;

/// The key whose value comes next.
enum class NextValue : std::uint8_t { ignored, version, array, path, pathBytes, keep };

std::string inQuotes(std::string_view key) {
    return '"' + std::string(key) + '"';
}

/// Builds the list from the events of the parser. A function that returns false ends the parsing.
class ListBuilder final : public nlohmann::json_sax<JsonValue> {
 public:
    explicit ListBuilder(std::size_t maxFiles) : maxFiles_(maxFiles) {}

    bool null() override { return next_ == NextValue::keep || scalar(); }
    bool boolean(bool value) override {
        if (!isSkipping() && next_ == NextValue::keep) {
            file_.keep = value;
            return true;
        }
        return scalar();
    }
    bool number_integer(number_integer_t /*value*/) override { return scalar(); }
    bool number_unsigned(number_unsigned_t value) override {
        return isVersion() ? takeVersion(value) : scalar();
    }
    bool number_float(number_float_t /*value*/, const string_t& /*text*/) override {
        return scalar();
    }
    bool binary(binary_t& /*value*/) override { return scalar(); }
    bool string(string_t& value) override;
    bool start_object(std::size_t /*elements*/) override;
    bool key(string_t& value) override;
    bool end_object() override;
    bool start_array(std::size_t /*elements*/) override;
    bool end_array() override;
    bool parse_error(std::size_t position, const std::string& /*token*/,
                     const nlohmann::json::exception& /*error*/) override {
        errorPosition_ = position;
        return false;
    }

    /// Why the list has another shape; empty if it has not.
    [[nodiscard]] const std::string& reason() const { return reason_; }
    /// Of a list that a newer version has written.
    [[nodiscard]] bool isNewer() const { return isNewer_; }
    /// How many bytes the parser had asked for when it found that the text is not JSON. The end of
    /// the input counts as one.
    [[nodiscard]] std::size_t errorPosition() const { return errorPosition_; }
    [[nodiscard]] ListedFiles takeFiles() { return std::move(files_); }

 private:
    // Deeper than any list; the parser itself would go on.
    static constexpr unsigned maxSkipped = 64;

    [[nodiscard]] bool isSkipping() const { return skipped_ > 0; }
    [[nodiscard]] bool isInArray() const { return level_ >= 0 && level_ % 2 == 1; }
    [[nodiscard]] std::string_view arrayKey() const {
        return arrayKeys[static_cast<std::size_t>(level_) / 2];
    }

    bool refuse(std::string reason) {
        reason_ = std::move(reason);
        return false;
    }
    bool refuseValue();
    bool scalar() { return isSkipping() || isIgnored() || refuseValue(); }
    [[nodiscard]] bool isIgnored() const {
        return level_ >= 0 && !isInArray() && next_ == NextValue::ignored;
    }
    [[nodiscard]] bool isVersion() const {
        return !isSkipping() && level_ == 0 && next_ == NextValue::version;
    }
    bool takeVersion(std::uint64_t version);
    bool skip() { return ++skipped_ <= maxSkipped || refuse("values are nested too deeply"); }
    bool expect(NextValue value, bool& wasSeen, const std::string& key);
    bool endFile();

    const std::size_t maxFiles_;
    ListedFiles files_;
    ListedFile file_;
    std::string bytes_;
    std::uint32_t set_ = 0;
    int level_ = noLevel;
    unsigned skipped_ = 0;  // how many ignored objects and arrays are open
    NextValue next_ = NextValue::ignored;
    std::array<bool, arrayKeys.size()> hasArray_{};  // by level of the object, halved
    bool hasVersion_ = false;
    bool isNewer_ = false;
    bool hasPath_ = false;
    bool hasBytes_ = false;
    bool hasKeep_ = false;
    std::string reason_;
    std::size_t errorPosition_ = 0;
};

bool ListBuilder::refuseValue() {
    if (level_ == noLevel) {
        return refuse("it is not an object");
    }
    if (isInArray()) {
        return refuse("an element of " + inQuotes(arrayKey()) + " is not an object");
    }
    switch (next_) {
        case NextValue::version:
            return refuse(R"("version" is not a whole number from 1)");
        case NextValue::path:
            return refuse(R"("filePath" is not a text)");
        case NextValue::pathBytes:
            return refuse(R"("filePathBytes" is not a text)");
        case NextValue::keep:
            return refuse(R"("keep" is neither true nor false)");
        default:
            return refuse(inQuotes(arrayKey()) + " is not an array");
    }
}

bool ListBuilder::takeVersion(std::uint64_t version) {
    if (version == 0) {
        return refuseValue();
    }
    if (version > jsonListVersion) {
        isNewer_ = true;
        return refuse("its version is " + std::to_string(version) + ", and this tarvin reads " +
                      std::to_string(jsonListVersion));
    }
    return true;
}

bool ListBuilder::string(string_t& value) {
    if (isSkipping()) {
        return true;
    }
    if (level_ >= 0 && next_ == NextValue::path) {
        file_.path = std::move(value);
        return true;
    }
    if (level_ >= 0 && next_ == NextValue::pathBytes) {
        bytes_ = std::move(value);
        return true;
    }
    return scalar();
}

bool ListBuilder::start_object(std::size_t /*elements*/) {
    if (isSkipping() || isIgnored()) {
        return skip();
    }
    if (level_ != noLevel && !isInArray()) {
        return refuseValue();
    }
    ++level_;
    next_ = NextValue::ignored;
    if (level_ < fileLevel) {
        hasArray_[static_cast<std::size_t>(level_) / 2] = false;
    } else {
        file_ = {};
        file_.set = set_;
        bytes_.clear();
        hasPath_ = false;
        hasBytes_ = false;
        hasKeep_ = false;
    }
    return true;
}

bool ListBuilder::key(string_t& value) {
    if (isSkipping()) {
        return true;
    }
    next_ = NextValue::ignored;
    if (level_ == 0 && value == "version") {
        return expect(NextValue::version, hasVersion_, value);
    }
    if (level_ < fileLevel) {
        return value != arrayKey() ||
               expect(NextValue::array, hasArray_[static_cast<std::size_t>(level_) / 2], value);
    }
    if (value == "filePath") {
        return expect(NextValue::path, hasPath_, value);
    }
    if (value == "filePathBytes") {
        return expect(NextValue::pathBytes, hasBytes_, value);
    }
    return value != "keep" || expect(NextValue::keep, hasKeep_, value);
}

bool ListBuilder::expect(NextValue value, bool& wasSeen, const std::string& key) {
    if (wasSeen) {
        return refuse(inQuotes(key) + " is repeated");
    }
    wasSeen = true;
    next_ = value;
    return true;
}

bool ListBuilder::end_object() {
    if (isSkipping()) {
        --skipped_;
        return true;
    }
    if (level_ == fileLevel) {
        --level_;
        return endFile();
    }
    if (!hasArray_[static_cast<std::size_t>(level_) / 2]) {
        return refuse(inQuotes(arrayKey()) + " is missing");
    }
    set_ += level_ == fileLevel - 2 ? 1U : 0U;
    --level_;
    return true;
}

bool ListBuilder::endFile() {
    if (!hasPath_) {
        return refuse(R"("filePath" is missing)");
    }
    if (files_.size() >= maxFiles_) {
        return refuse("it has more than " + std::to_string(maxFiles_) +
                      (maxFiles_ == 1 ? " file" : " files"));
    }
    if (hasBytes_) {
        const std::optional<std::string> path = bytesOfHexadecimal(bytes_);
        if (path && withBadBytesReplaced(*path) == file_.path) {
            file_.path = *path;
        } else {
            file_.state = ListedState::inexact;
        }
    }
    files_.push_back(std::move(file_));
    return true;
}

bool ListBuilder::start_array(std::size_t /*elements*/) {
    if (isSkipping() || isIgnored()) {
        return skip();
    }
    if (level_ == noLevel || isInArray() || next_ != NextValue::array) {
        return refuseValue();
    }
    ++level_;
    return true;
}

bool ListBuilder::end_array() {
    if (isSkipping()) {
        --skipped_;
    } else {
        --level_;
        next_ = NextValue::ignored;
    }
    return true;
}

std::string reasonFor(const ListBuilder& builder, const ByteSource& source) {
    if (const std::optional<SystemError>& error = source.error()) {
        return error->text();
    }
    const std::string place = " (byte " + std::to_string(source.offset()) + ')';
    if (source.isTokenTooLong()) {
        return "a text is longer than 1 MiB" + place;
    }
    if (source.isTooLong()) {
        return "it is longer than " + std::to_string(source.maxBytes()) + " bytes";
    }
    if (builder.isNewer()) {
        return builder.reason() + place;
    }
    if (!builder.reason().empty()) {
        return "not a list of sets: " + builder.reason() + place;
    }
    if (source.offset() == 0) {
        return "it is empty";
    }
    return builder.errorPosition() > source.offset() ? "it ends too early" + place
                                                     : "it is not JSON" + place;
}

}  // namespace

std::variant<ListedFiles, ListError> readListedFiles(int descriptor, const ListLimits& limits) {
    ByteSource source(descriptor, limits.bytes);
    // The number of a file in its set has 31 bits.
    constexpr std::size_t mostFiles = std::numeric_limits<std::int32_t>::max();
    ListBuilder builder(std::min(limits.files, mostFiles));
    const bool isComplete =
        JsonValue::sax_parse(ByteSource::Iterator(source), ByteSource::Iterator(), &builder);
    if (!isComplete || source.error() || source.isTokenTooLong() || source.isTooLong()) {
        return ListError{reasonFor(builder, source)};
    }
    return builder.takeFiles();
}

}  // namespace tarvin
