#include "report/csv_field.h"
#include "report/fake_report.h"
#include "report/result_writer.h"

#include <gtest/gtest.h>

#include <string>

namespace tarvin {
namespace {

const std::string headings =
    "category,extension,set,index,size,modified,created,path,path_bytes\r\n";

std::string csvOf(const MadeUpReport& report) {
    return writtenBy(writeCsv, report);
}

TEST(CsvWriter, AnEmptyResultHasOnlyHeadings) {
    EXPECT_EQ(csvOf(MadeUpReport()), headings);
}

TEST(CsvWriter, SetsAreNumberedOverTheWholeOutput) {
    MadeUpReport report;
    report.addSet(Category::other, {{"/e.zip", 9}, {"/f.zip", 9}});
    report.addSet(Category::image,
                  {{"/a.jpg", 1000, 1'769'860'800'123'456'789, 0}, {"/b.jpg", 1000, -1}});
    report.addSet(Category::image, {{"/c.jpg", 2}, {"/d.jpg", 2}});
    EXPECT_EQ(csvOf(report), headings +
                                 "Image,jpg,1,0,1000,2026-01-31T12:00:00.123456789Z,"
                                 "1970-01-01T00:00:00.000000000Z,/a.jpg,\r\n"
                                 "Image,jpg,1,1,1000,1969-12-31T23:59:59.999999999Z,,/b.jpg,\r\n"
                                 "Image,jpg,2,0,2,,,/c.jpg,\r\n"
                                 "Image,jpg,2,1,2,,,/d.jpg,\r\n"
                                 "Other,zip,3,0,9,,,/e.zip,\r\n"
                                 "Other,zip,3,1,9,,,/f.zip,\r\n");
}

TEST(CsvWriter, QuotesSeparatorsAndLineBreaks) {
    MadeUpReport report;
    report.addSet(Category::other, {{"/a,b.x,y", 1},
                                    {"/say \"hi\".x", 1},
                                    {"/two\nlines.x", 1},
                                    {"/carriage\rreturn.x", 1},
                                    {"/ plain 'text'; \u00E4.x", 1}});
    EXPECT_EQ(csvOf(report), headings +
                                 "Other,\"x,y\",1,0,1,,,\"/a,b.x,y\",\r\n"
                                 "Other,\"x,y\",1,1,1,,,\"/say \"\"hi\"\".x\",\r\n"
                                 "Other,\"x,y\",1,2,1,,,\"/two\nlines.x\",\r\n"
                                 "Other,\"x,y\",1,3,1,,,\"/carriage\rreturn.x\",\r\n"
                                 "Other,\"x,y\",1,4,1,,,/ plain 'text'; \u00E4.x,\r\n");
}

TEST(CsvField, FormulasGetAnApostrophe) {
    EXPECT_EQ(csvField("=1+1"), "\"'=1+1\"");
    EXPECT_EQ(csvField("+1"), "\"'+1\"");
    EXPECT_EQ(csvField("-1"), "\"'-1\"");
    EXPECT_EQ(csvField("@SUM(A1)"), "\"'@SUM(A1)\"");
    EXPECT_EQ(csvField("\t=1"), "\"'\t=1\"");
    EXPECT_EQ(csvField("\r=1"), "\"'\r=1\"");
    EXPECT_EQ(csvField("=HYPERLINK(\"a\",\"b\")"), "\"'=HYPERLINK(\"\"a\"\",\"\"b\"\")\"");
}

TEST(CsvField, OtherTextsGetNoApostrophe) {
    EXPECT_EQ(csvField(""), "");
    EXPECT_EQ(csvField("a=1"), "a=1");
    EXPECT_EQ(csvField("/=1+1"), "/=1+1");
    EXPECT_EQ(csvField("a-b+c@d"), "a-b+c@d");
    EXPECT_EQ(csvField("'=1"), "'=1");
}

TEST(CsvWriter, EscapesAFormulaInAnExtensionButNoNumbers) {
    MadeUpReport report;
    report.addSet(Category::other, {{"/a.=1+1", 7}, {"/b.=1+1", 7}});
    EXPECT_EQ(csvOf(report), headings +
                                 "Other,\"'=1+1\",1,0,7,,,/a.=1+1,\r\n"
                                 "Other,\"'=1+1\",1,1,7,,,/b.=1+1,\r\n");
}

TEST(CsvWriter, TheLastColumnHasTheBytesOfANonUtf8Path) {
    MadeUpReport report;
    report.addSet(Category::other, {{"/\xFF,.x\xE9", 1}, {"/b.x", 1}});
    EXPECT_EQ(csvOf(report), headings +
                                 "Other,x\uFFFD,1,0,1,,,\"/\uFFFD,.x\uFFFD\",2fff2c2e78e9\r\n"
                                 "Other,x\uFFFD,1,1,1,,,/b.x,\r\n");
}

TEST(CsvWriter, WithMarksTheLastColumnNamesTheFilesThatStay) {
    MadeUpReport report;
    report.addSet(Category::other, {{"/a.x", 1}, {"/b.x", 1}, {"/\xFF.x", 1}});
    report.markDuplicates();
    EXPECT_EQ(csvOf(report),
              "category,extension,set,index,size,modified,created,path,path_bytes,keep\r\n"
              "Other,x,1,0,1,,,/a.x,,true\r\n"
              "Other,x,1,1,1,,,/b.x,,\r\n"
              "Other,x,1,2,1,,,/\uFFFD.x,2fff2e78,\r\n");
}

}  // namespace
}  // namespace tarvin
