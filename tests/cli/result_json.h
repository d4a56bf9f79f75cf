#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <set>
#include <string>
#include <string_view>

namespace tarvin {

using Json = nlohmann::json;

/// The parsed JSON of a scan. Null, with a test failure, if it is invalid.
inline Json parsedJson(const std::string& text) {
    Json json = Json::parse(text, nullptr, false);
    EXPECT_FALSE(json.is_discarded()) << text;
    return json.is_discarded() ? Json() : json;
}

/// The same without values that a test cannot know: the elapsed time, which must be a number, and
/// the creation dates, which must be dates or null.
inline Json foreseeable(const std::string& text) {
    Json json = parsedJson(text);
    EXPECT_TRUE(json.at("elapsedSeconds").is_number());
    EXPECT_GE(json.at("elapsedSeconds").get<double>(), 0.0);
    json.erase("elapsedSeconds");
    for (Json& category : json.at("categories")) {
        for (Json& extension : category.at("extensions")) {
            for (Json& set : extension.at("sets")) {
                for (Json& file : set.at("files")) {
                    const Json& date = file.at("fileCreationDate");
                    if (!date.is_null()) {
                        EXPECT_THAT(date.get<std::string>(),
                                    testing::MatchesRegex(R"(....-..-..T..:..:..\..........Z)"));
                    }
                    file.erase("fileCreationDate");
                }
            }
        }
    }
    return json;
}

using Paths = std::set<std::string>;
using Sets = std::set<Paths>;

/// The sets of a result, unordered, as paths without `prefix`.
inline Sets setsIn(const Json& json, std::string_view prefix = "") {
    Sets sets;
    for (const Json& category : json.at("categories")) {
        for (const Json& extension : category.at("extensions")) {
            for (const Json& set : extension.at("sets")) {
                Paths paths;
                for (const Json& file : set.at("files")) {
                    const auto path = file.at("filePath").get<std::string>();
                    EXPECT_TRUE(path.starts_with(prefix)) << path;
                    EXPECT_TRUE(paths.insert(path.substr(prefix.size())).second) << path;
                }
                EXPECT_TRUE(sets.insert(paths).second);
            }
        }
    }
    return sets;
}

}  // namespace tarvin
