#include "platform/digest.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tarvin {
namespace {

std::span<const std::byte> bytesOf(std::string_view text) {
    return std::as_bytes(std::span(text));
}

std::string digestOf(std::string_view text) {
    Md5 digest;
    digest.update(bytesOf(text));
    return digest.hexDigest();
}

TEST(Md5, ReturnsThePublishedHashes) {
    EXPECT_EQ(digestOf(""), "d41d8cd98f00b204e9800998ecf8427e");
    EXPECT_EQ(digestOf("a"), "0cc175b9c0f1b6a831c399e269772661");
    EXPECT_EQ(digestOf("abc"), "900150983cd24fb0d6963f7d28e17f72");
    EXPECT_EQ(digestOf("message digest"), "f96b697d7cb7938d525a2f31aaf161d0");
    EXPECT_EQ(digestOf("1234567890123456789012345678901234567890"
                       "1234567890123456789012345678901234567890"),
              "57edf4a22be3c955ac49da2e2107b67a");
}

TEST(Md5, HashesEmptyInput) {
    EXPECT_EQ(Md5().hexDigest(), "d41d8cd98f00b204e9800998ecf8427e");
}

TEST(Md5, ChunkSizeDoesNotMatter) {
    Md5 digest;
    digest.update(bytesOf("a"));
    digest.update({});
    digest.update(bytesOf("bc"));
    EXPECT_EQ(digest.hexDigest(), "900150983cd24fb0d6963f7d28e17f72");
}

TEST(Md5, CanContinueAfterReadingTheHash) {
    Md5 digest;
    digest.update(bytesOf("a"));
    EXPECT_EQ(digest.hexDigest(), "0cc175b9c0f1b6a831c399e269772661");
    digest.update(bytesOf("bc"));
    EXPECT_EQ(digest.hexDigest(), "900150983cd24fb0d6963f7d28e17f72");
    EXPECT_EQ(digest.hexDigest(), "900150983cd24fb0d6963f7d28e17f72");
}

TEST(Md5, HashesEveryByteValue) {
    EXPECT_EQ(digestOf(std::string_view("\0", 1)), "93b885adfe0da089cdf634904fd59f71");
    EXPECT_EQ(digestOf("\xff"), "00594fd4f42ba43fc1ca0427a0576295");
}

TEST(Md5, HashesLargeChunks) {
    Md5 digest;
    digest.update(std::vector<std::byte>(3'145'728));
    EXPECT_EQ(digest.hexDigest(), "d1dd210d6b1312cb342b56d02bd5e651");
}

}  // namespace
}  // namespace tarvin
