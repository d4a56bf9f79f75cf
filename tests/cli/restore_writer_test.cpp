#include "cli/restore_writer.h"

#include "cli/result_json.h"
#include "support/pipe.h"

#include <gtest/gtest.h>

namespace tarvin {
namespace {

PutBackFile fileAt(const std::string& path, PutBackOutcome outcome) {
    PutBackFile file;
    file.path = path;
    file.size = 1000;
    file.outcome = outcome;
    file.name = path.substr(path.rfind('/') + 1);
    return file;
}

/// The output of a writer for these files.
template <typename Action>
std::string written(ResultFormat format, const RestoreSubject& subject, const Action& action) {
    Pipe pipe;
    Output output(pipe.writing());
    const auto writer = makeRestoreWriter(format, subject, output);
    writer->begin();
    action(*writer);
    EXPECT_TRUE(output.flush());
    pipe.closeWriting();
    return pipe.readAll();
}

void writeOneOfEach(RestoreWriter& writer) {
    writer.file(fileAt("/p/a.jpg", PutBackOutcome::toItsPlace));
    PutBackFile renamed = fileAt("/b.jpg", PutBackOutcome::underOtherName);
    renamed.name = "b (put back).jpg";
    writer.file(renamed);
    writer.file(fileAt("/p/c/c.jpg", PutBackOutcome::withItsFolder));
    writer.file(fileAt("/p/d.jpg", PutBackOutcome::lost));
    writer.end({.files = 3, .bytes = 3000, .notFiles = 1, .stopped = true});
}

TEST(RestoreWriter, TextListsFilesPutBack) {
    EXPECT_EQ(written(ResultFormat::text, {.dryRun = false, .cleanUp = 7}, writeOneOfEach),
              "Put back: /p/a.jpg\n"
              "Put back: /b.jpg, now named b (put back).jpg\n"
              "Put back: /p/c/c.jpg, its folder made again\n"
              "Stopped early; the remaining files were not put back.\n"
              "Files Put Back: 3\n"
              "Size: 3.00 KB\n");
}

TEST(RestoreWriter, TextListsThePlan) {
    EXPECT_EQ(written(ResultFormat::text, {.dryRun = true, .cleanUp = 7}, writeOneOfEach),
              "Would put back: /p/a.jpg\n"
              "Would put back: /b.jpg, to be named b (put back).jpg\n"
              "Would put back: /p/c/c.jpg, its folder to be made again\n"
              "Stopped early; the remaining files were not put back.\n"
              "Files To Put Back: 3\n"
              "Size: 3.00 KB\n"
              "Dry run: nothing was put back.\n");
}

TEST(RestoreWriter, JsonListsEveryFile) {
    EXPECT_EQ(
        parsedJson(written(ResultFormat::json, {.dryRun = false, .cleanUp = 7}, writeOneOfEach)),
        Json::parse(R"({
        "dryRun": false, "cleanUp": 7, "stopped": true,
        "files": [
            {"filePath": "/p/a.jpg", "fileSize": 1000, "outcome": "toItsPlace"},
            {"filePath": "/b.jpg", "fileSize": 1000, "outcome": "underOtherName",
             "putBackPath": "/b (put back).jpg"},
            {"filePath": "/p/c/c.jpg", "fileSize": 1000, "outcome": "withItsFolder"},
            {"filePath": "/p/d.jpg", "fileSize": 1000, "outcome": "lost",
             "reason": "no longer in the Trash"}],
        "putBackFilesCount": 3, "putBackFilesSize": 3000, "notPutBackFilesCount": 1})"));
}

TEST(RestoreWriter, JsonHasTheBytesOfNonUtf8Names) {
    const Json json = parsedJson(
        written(ResultFormat::json, {.dryRun = true, .cleanUp = 1}, [](RestoreWriter& writer) {
            PutBackFile file = fileAt("/\xFF.jpg", PutBackOutcome::underOtherName);
            file.name = "\xFF (put back).jpg";
            writer.file(file);
            writer.end({});
        }));
    EXPECT_EQ(json["files"][0]["filePath"], "/\xEF\xBF\xBD.jpg");
    EXPECT_EQ(json["files"][0]["filePathBytes"], "2fff2e6a7067");
    EXPECT_EQ(json["files"][0]["putBackPath"], "/\xEF\xBF\xBD (put back).jpg");
    EXPECT_EQ(json["files"][0]["putBackPathBytes"], "2fff2028707574206261636b292e6a7067");
}

TEST(RestoreWriter, JsonEscapesControlCharacters) {
    const std::string json =
        written(ResultFormat::json, {.dryRun = true, .cleanUp = 1}, [](RestoreWriter& writer) {
            writer.file(fileAt("/\xC2\x9B.jpg", PutBackOutcome::toItsPlace));
            writer.end({});
        });
    EXPECT_NE(json.find("\"/\\u009b.jpg\""), std::string::npos) << json;
}

TEST(RestoreWriter, SaysWhyThereIsNothingToPutBack) {
    const auto text = [](NothingToPutBack reason, std::optional<CleanUpId> cleanUp) {
        return written(ResultFormat::text, {.dryRun = false, .cleanUp = cleanUp},
                       [reason](RestoreWriter& writer) { writer.nothing(reason); });
    };
    const std::string nothing = "There is nothing to put back.\n";
    EXPECT_EQ(text(NothingToPutBack::neverCleaned, {}),
              nothing + "Nothing has been cleaned up yet.\n");
    EXPECT_EQ(text(NothingToPutBack::allBack, {}),
              nothing + "The last clean-up has been put back already.\n");
    EXPECT_EQ(text(NothingToPutBack::allBack, 4),
              nothing + "Clean-up 4 has been put back already.\n");
    EXPECT_EQ(text(NothingToPutBack::noneInTrash, {}),
              nothing + "Its files are no longer in the Trash.\n");
}

TEST(RestoreWriter, HasAReasonForEachOutcome) {
    const auto reason = [](PutBackOutcome outcome) { return reasonFor(fileAt("/a", outcome)); };
    EXPECT_EQ(reason(PutBackOutcome::lost), "no longer in the Trash");
    EXPECT_EQ(reason(PutBackOutcome::changed), "file was changed in the Trash");
    EXPECT_EQ(reason(PutBackOutcome::notAttached), "drive not attached");
    EXPECT_EQ(reason(PutBackOutcome::stopped), "stopped before its turn");
    PutBackFile refused = fileAt("/a", PutBackOutcome::refused);
    refused.reason = "Permission denied";
    EXPECT_EQ(reasonFor(refused), "Permission denied");
}

TEST(RestoreWriter, ListsCleanUpsWithTheirNumbersAligned) {
    KnownCleanUp newer;
    newer.summary.id = 10;
    newer.summary.movedFiles = 1;
    KnownCleanUp older;
    older.summary.id = 9;
    older.summary.movedFiles = 5;
    older.summary.movedBytes = 2'000'000;
    older.putBackFiles = 2;
    older.lostFiles = 3;
    Pipe pipe;
    Output output(pipe.writing());
    writeCleanUps(ResultFormat::text, {newer, older}, output);
    ASSERT_TRUE(output.flush());
    pipe.closeWriting();
    EXPECT_THAT(pipe.readAll(),
                testing::MatchesRegex(
                    "10  19(69|70)-..-.. ..:..:..  1 file \\(0.00 KB\\)\n"
                    " 9  19(69|70)-..-.. ..:..:..  5 files \\(2.00 MB\\), 2 put back, 3 no longer "
                    "in the Trash\n"));
}

}  // namespace
}  // namespace tarvin
