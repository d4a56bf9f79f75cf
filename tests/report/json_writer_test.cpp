#include "report/fake_report.h"
#include "report/result_writer.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <string>

namespace tarvin {
namespace {

using Json = nlohmann::json;

constexpr std::int64_t noonOfJanuary31st2026 = 1'769'860'800'123'456'789;

std::string jsonOf(const MadeUpReport& report) {
    return writtenBy(writeJson, report);
}

TEST(JsonWriter, AnEmptyResultHasAllItsKeysAndCategories) {
    EXPECT_EQ(jsonOf(MadeUpReport()), R"({
  "version": 1,
  "totalFiles": 0,
  "totalFilesSize": 0,
  "stopped": false,
  "elapsedSeconds": 0.000,
  "reclaimable": 0,
  "unreadable": [],
  "collected": {"Image": 0, "Video": 0, "Audio": 0, "Documents": 0, "Other": 0},
  "categories": [
    {"category": "Image", "totalFiles": 0, "totalFilesSize": 0, "extensions": []},
    {"category": "Video", "totalFiles": 0, "totalFilesSize": 0, "extensions": []},
    {"category": "Audio", "totalFiles": 0, "totalFilesSize": 0, "extensions": []},
    {"category": "Documents", "totalFiles": 0, "totalFilesSize": 0, "extensions": []},
    {"category": "Other", "totalFiles": 0, "totalFilesSize": 0, "extensions": []}]
}
)");
}

TEST(JsonWriter, EveryLevelHasItsTotals) {
    MadeUpReport report;
    report.addSet(
        Category::image,
        {{"/p/a.jpg", 1000, noonOfJanuary31st2026, 0}, {"/p/b.jpg", 1000, -1}, {"/q/c.jpg", 1000}});
    report.addSet(Category::image, {{"/p/d.jpg", 5}, {"/p/e.jpg", 5}});
    report.addSet(Category::image, {{"/p/f.png", 7}, {"/p/g.png", 7}});
    report.addSet(Category::other, {{"/p/h.zip", 11}, {"/p/i.zip", 11}});
    report.setCollected(Category::image, 8);
    report.setCollected(Category::other, 3);
    report.setElapsedSeconds(12.3456);
    report.addUnreadable("/closed", "Permission denied");
    report.addUnreadable("/bad\xff", "Input/output error");
    EXPECT_EQ(jsonOf(report), R"({
  "version": 1,
  "totalFiles": 5,
  "totalFilesSize": 2023,
  "stopped": false,
  "elapsedSeconds": 12.346,
  "reclaimable": 2023,
  "unreadable": [
    {"path": "/closed", "reason": "Permission denied"},
    {"path": "/bad�", "pathBytes": "2f626164ff", "reason": "Input/output error"}],
  "collected": {"Image": 8, "Video": 0, "Audio": 0, "Documents": 0, "Other": 3},
  "categories": [
    {"category": "Image", "totalFiles": 4, "totalFilesSize": 2012, "extensions": [
      {"name": "jpg", "totalFilesInExtension": 3, "totalFilesInExtensionSize": 2005, "sets": [
        {"totalFilesInSet": 2, "totalFilesInSetSize": 2000, "files": [
          {"filePath": "/p/a.jpg", "fileSize": 1000, "index": 0, "fileModificationDate": "2026-01-31T12:00:00.123456789Z", "fileCreationDate": "1970-01-01T00:00:00.000000000Z"},
          {"filePath": "/p/b.jpg", "fileSize": 1000, "index": 1, "fileModificationDate": "1969-12-31T23:59:59.999999999Z", "fileCreationDate": null},
          {"filePath": "/q/c.jpg", "fileSize": 1000, "index": 2, "fileModificationDate": null, "fileCreationDate": null}]},
        {"totalFilesInSet": 1, "totalFilesInSetSize": 5, "files": [
          {"filePath": "/p/d.jpg", "fileSize": 5, "index": 0, "fileModificationDate": null, "fileCreationDate": null},
          {"filePath": "/p/e.jpg", "fileSize": 5, "index": 1, "fileModificationDate": null, "fileCreationDate": null}]}]},
      {"name": "png", "totalFilesInExtension": 1, "totalFilesInExtensionSize": 7, "sets": [
        {"totalFilesInSet": 1, "totalFilesInSetSize": 7, "files": [
          {"filePath": "/p/f.png", "fileSize": 7, "index": 0, "fileModificationDate": null, "fileCreationDate": null},
          {"filePath": "/p/g.png", "fileSize": 7, "index": 1, "fileModificationDate": null, "fileCreationDate": null}]}]}]},
    {"category": "Video", "totalFiles": 0, "totalFilesSize": 0, "extensions": []},
    {"category": "Audio", "totalFiles": 0, "totalFilesSize": 0, "extensions": []},
    {"category": "Documents", "totalFiles": 0, "totalFilesSize": 0, "extensions": []},
    {"category": "Other", "totalFiles": 1, "totalFilesSize": 11, "extensions": [
      {"name": "zip", "totalFilesInExtension": 1, "totalFilesInExtensionSize": 11, "sets": [
        {"totalFilesInSet": 1, "totalFilesInSetSize": 11, "files": [
          {"filePath": "/p/h.zip", "fileSize": 11, "index": 0, "fileModificationDate": null, "fileCreationDate": null},
          {"filePath": "/p/i.zip", "fileSize": 11, "index": 1, "fileModificationDate": null, "fileCreationDate": null}]}]}]}]
}
)");
}

/// The files of the first set, parsed.
Json filesOf(const MadeUpReport& report) {
    return Json::parse(jsonOf(report)).at("/categories/4/extensions/0/sets/0/files"_json_pointer);
}

TEST(JsonWriter, EscapedNamesParseBackUnchanged) {
    const std::string odd =
        "/two\nlines, \"quoted\" \\ tab\t \x01\x1B\x7F \u00E4\u2028\U0001F600.x";
    MadeUpReport report;
    report.addSet(Category::other, {{odd, 1}, {"/b.x", 1}});
    const Json files = filesOf(report);
    EXPECT_EQ(files[0]["filePath"].get<std::string>(), odd);
    EXPECT_FALSE(files[0].contains("filePathBytes"));
    EXPECT_NE(jsonOf(report).find(R"("filePath": "/two\nlines, \"quoted\" \\ tab\t \u0001\u001b)"),
              std::string::npos);
}

TEST(JsonWriter, HasTheBytesOfANonUtf8Path) {
    MadeUpReport report;
    report.addSet(Category::other, {{"/\xFF\xFE/\u00E4.x", 1}, {"/b.x", 1}});
    const Json files = filesOf(report);
    EXPECT_EQ(files[0]["filePath"], "/\uFFFD\uFFFD/\u00E4.x");
    EXPECT_EQ(files[0]["filePathBytes"], "2ffffe2fc3a42e78");
    EXPECT_FALSE(files[1].contains("filePathBytes"));
}

TEST(JsonWriter, HasTheBytesOfANonUtf8Extension) {
    MadeUpReport report;
    report.addSet(Category::other, {{"/a.x\xE9", 1}, {"/b.x\xE9", 1}});
    const Json extension =
        Json::parse(jsonOf(report)).at("/categories/4/extensions/0"_json_pointer);
    EXPECT_EQ(extension["name"], "x\uFFFD");
    EXPECT_EQ(extension["nameBytes"], "78e9");
}

TEST(JsonWriter, WithMarksTheLastKeyOfAFileThatStaysIsKeep) {
    MadeUpReport report;
    report.addSet(Category::other, {{"/a.x", 1}, {"/b.x", 1}});
    report.markDuplicates();
    const std::string text = jsonOf(report);
    EXPECT_NE(text.find(R"("fileCreationDate": null, "keep": true},)"), std::string::npos) << text;
    EXPECT_NE(text.find(R"("fileCreationDate": null}]})"), std::string::npos) << text;
    const Json files = filesOf(report);
    EXPECT_EQ(files[0]["keep"], true);
    EXPECT_FALSE(files[1].contains("keep"));
}

TEST(JsonWriter, SaysThatTheScanWasStopped) {
    MadeUpReport report;
    report.setStopped();
    EXPECT_EQ(Json::parse(jsonOf(report))["stopped"], true);
}

TEST(JsonWriter, LargeNumbersKeepTheirDigits) {
    MadeUpReport report;
    report.addSet(Category::other,
                  {{"/a.x", 9'007'199'254'740'993}, {"/b.x", 9'007'199'254'740'993}});
    EXPECT_EQ(filesOf(report)[1]["fileSize"].get<std::uint64_t>(), 9'007'199'254'740'993U);
}

TEST(JsonWriter, ControlCharactersAreEscaped) {
    const std::string name = "/\x1B[1m\x7F\u009B\u2028\u202E\u00E4\U0001F600.jpg";
    MadeUpReport report;
    report.addSet(Category::image, {{name, 1}, {"/b.jpg", 1}});
    const std::string text = jsonOf(report);
    EXPECT_NE(text.find("\"/\\u001b[1m\\u007f\\u009b\\u2028\\u202e\u00E4\U0001F600.jpg\""),
              std::string::npos)
        << text;
    EXPECT_EQ(
        Json::parse(text)["categories"][0]["extensions"][0]["sets"][0]["files"][0]["filePath"],
        name);
}

}  // namespace
}  // namespace tarvin
