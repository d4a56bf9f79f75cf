#include "controller/dropped_paths.h"

#include <gtest/gtest.h>

#include <QByteArray>
#include <QMimeData>
#include <QSysInfo>
#include <QUrl>
#include <string>
#include <vector>

namespace tarvin {
namespace {

using Paths = std::vector<std::string>;

/// The result of a drop with these URLs.
Paths droppedAs(const QByteArray& uriList) {
    QMimeData data;
    data.setData(QStringLiteral("text/uri-list"), uriList);
    return droppedPaths(data);
}

TEST(DroppedPaths, AreThoseOfLocalFilesInTheirOrder) {
    EXPECT_EQ(droppedAs("file:///b\r\nfile:///a/c.png\r\n"), (Paths{"/b", "/a/c.png"}));
}

TEST(DroppedPaths, AreDecoded) {
    EXPECT_EQ(droppedAs("file:///a%20b/c%23d%3Fe%25f\r\n"), Paths{"/a b/c#d?e%f"});
    EXPECT_EQ(droppedAs("file:///Gr%C3%BC%C3%9Fe\r\n"), Paths{"/Gr\xc3\xbc\xc3\x9f"
                                                              "e"});
    EXPECT_EQ(droppedAs("file:///Gr\xc3\xbc\xc3\x9f"
                        "e\r\n"),
              Paths{"/Gr\xc3\xbc\xc3\x9f"
                    "e"});
}

TEST(DroppedPaths, KeepBytesThatAreNotUtf8) {
    EXPECT_EQ(droppedAs("file:///%FF%fe/a%FF.png\r\n"), Paths{"/\xff\xfe/a\xff.png"});
    EXPECT_EQ(droppedAs("file:///%25FF\r\n"), Paths{"/%FF"});
}

TEST(DroppedPaths, KeepEveryByteThatANameMayHold) {
    for (int byte = 1; byte < 256; ++byte) {
        std::string name = "/x";
        name += static_cast<char>(byte);
        name += 'y';
        const QByteArray encoded = QByteArray::fromStdString(name).toPercentEncoding("/");
        EXPECT_EQ(droppedAs("file://" + encoded + "\r\n"), Paths{name}) << byte;
    }
}

TEST(DroppedPaths, HaveNoSlashAtTheirEnds) {
    EXPECT_EQ(droppedAs("file:///a/b/\r\nfile:///c//\r\nfile:///\r\n"), (Paths{"/a/b", "/c", "/"}));
}

TEST(DroppedPaths, MayNameThisMachine) {
    const QByteArray host = QSysInfo::machineHostName().toUtf8();
    EXPECT_EQ(droppedAs("file://localhost/a\r\n"), Paths{"/a"});
    EXPECT_EQ(droppedAs("file://" + host + "/b\r\n"), Paths{"/b"});
}

TEST(DroppedPaths, AreNoneOfOtherMachines) {
    EXPECT_EQ(droppedAs("file://other.example/a\r\n"), Paths{});
    EXPECT_EQ(droppedAs("http://example.org/a.png\r\nhttps://example.org/\r\n"), Paths{});
    EXPECT_EQ(droppedAs("smb://nas/share/a.png\r\nmailto:a@example.org\r\n"), Paths{});
}

TEST(DroppedPaths, AreTheLocalOnesAmongOthers) {
    EXPECT_EQ(droppedAs("http://example.org/a.png\r\nfile:///b.png\r\n"), Paths{"/b.png"});
}

TEST(DroppedPaths, AreNoneOfInvalidUrls) {
    for (const char* damaged : {"", "\r\n", "file:", "file://", "file:relative/a.png", "/a.png",
                                "file:///a%00b", "file://[bad/a", "# a comment\r\n", "%", "\xff"}) {
        EXPECT_EQ(droppedAs(damaged), Paths{}) << damaged;
    }
}

TEST(DroppedPaths, AreNoneOfATextOrAPicture) {
    QMimeData text;
    text.setText(QStringLiteral("/home/ann/a.png"));
    EXPECT_EQ(droppedPaths(text), Paths{});
    QMimeData html;
    html.setHtml(QStringLiteral("<img src=\"file:///a.png\">"));
    html.setColorData(QVariant());
    EXPECT_EQ(droppedPaths(html), Paths{});
    EXPECT_EQ(droppedPaths(QMimeData()), Paths{});
}

TEST(DroppedPaths, AreThoseThatThisProgramPutsTogether) {
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(QStringLiteral("/a b/\u00fc#?.png"))});
    EXPECT_EQ(droppedPaths(data), Paths{"/a b/\xc3\xbc#?.png"});
}

}  // namespace
}  // namespace tarvin
