#include "scan/category.h"

#include "support/test_seeds.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <optional>
#include <ostream>
#include <random>
#include <string>
#include <string_view>
#include <vector>

namespace tarvin {

/// For failure messages.
static std::ostream& operator<<(std::ostream& out, Category category) {
    return out << categoryName(category);
}

namespace {

/// Reference implementation: applies the rules one after the other.
std::optional<Category> categoryByRules(std::string_view path) {
    if (pathExtension(path).empty()) {
        return std::nullopt;
    }
    if (isValidImageFile(path)) {
        return Category::image;
    }
    if (isValidAudioFile(path)) {
        return Category::audio;
    }
    if (isValidVideoFile(path)) {
        return Category::video;
    }
    return isValidDocFile(path) ? Category::documents : Category::other;
}

/// The category of a file with that name outside a bundle. Calls the classifier twice, because it
/// caches, and compares it with the rules.
std::optional<Category> categoryOf(const std::string& name) {
    Classifier classifier;
    const auto result = classifier.classify(name, false);
    EXPECT_EQ(classifier.classify(name, false), result) << name;
    EXPECT_EQ(categoryByRules("/home/ann/" + name), result) << name;
    return result;
}

void expectCategory(Category category, const std::vector<std::string>& extensions) {
    for (const std::string& extension : extensions) {
        EXPECT_EQ(categoryOf("a." + extension), category) << extension;
    }
}

TEST(Category, HasFiveValuesInTheOrderOfTheResults) {
    const std::array<Category, 5> expected{Category::image, Category::video, Category::audio,
                                           Category::documents, Category::other};
    EXPECT_EQ(allCategories, expected);
}

TEST(Category, HasAName) {
    EXPECT_EQ(categoryName(Category::image), "Image");
    EXPECT_EQ(categoryName(Category::video), "Video");
    EXPECT_EQ(categoryName(Category::audio), "Audio");
    EXPECT_EQ(categoryName(Category::documents), "Documents");
    EXPECT_EQ(categoryName(Category::other), "Other");
}

TEST(Category, OfEveryListedImage) {
    expectCategory(Category::image,
                   {"psd", "dng",  "bmp",  "gif", "jpg", "png", "pspimage", "thm", "tif",
                    "yuv", "tiff", "jpeg", "cr2", "crw", "kdc", "nef",      "mrw", "orf",
                    "x3f", "raw",  "raf",  "dcx", "nrw", "sr2", "srf",      "wpg"});
}

TEST(Category, OfEveryListedAudioType) {
    expectCategory(Category::audio, {"aif", "m3u", "m4a", "mid", "mp3", "mpa", "wav", "wma", "m4b",
                                     "amr", "midi", "ogg", "ram", "aac"});
}

TEST(Category, OfEveryListedVideo) {
    expectCategory(Category::video,
                   {"3g2", "3gp", "asf", "asx",  "avi", "flv", "mov",  "mp4",  "mpg",  "srt",
                    "swf", "vob", "wmv", "mpeg", "m4v", "mts", "m2ts", "divx", "xvid", "avs"});
}

TEST(Category, OfEveryListedDocument) {
    expectCategory(
        Category::documents,
        {"txt", "doc", "xlsx", "xls",  "docx", "ppt",     "pptx",   "pdf", "m3d", "ami", "chm",
         "csv", "dif", "htm",  "html", "mny",  "rtf",     "sdc",    "sdf", "sdw", "stc", "sti",
         "stw", "sxc", "sxd",  "sxi",  "sxm",  "sxw",     "tv4",    "xlt", "vor", "vsd", "wk1",
         "wk3", "wk4", "wks",  "xlb",  "one",  "onetoc2", "sqlite", "snt"});
}

TEST(Category, OfEveryListedOtherType) {
    expectCategory(Category::other,
                   {"7z",  "cbr",  "deb", "gz",  "pkg", "rar", "rpm",           "sitx", "tar.gz",
                    "zip", "zipx", "apk", "app", "bat", "cgi", "com",           "exe",  "gadget",
                    "jar", "pif",  "vb",  "wsf", "cpl", "cur", "deskthemepack", "dll",  "dmp",
                    "drv", "lnk",  "sys", "cab", "ani", "flc", "skr",           "arj",  "sit",
                    "zoo", "dbx",  "dci", "eml", "pst", "ost", "dbf",           "mdb"});
}

TEST(Category, IsOtherIfNoListContainsTheKey) {
    expectCategory(Category::other, {"mkv", "webp", "heic", "flac", "epub", "c++", "xyz", "001"});
}

/// Whether the list is exactly this one: it matches as a whole, and not with any neighbour.
bool holdsExactly(bool (*test)(std::string_view), const std::string& list) {
    return test("/a." + list) && !test("/a._" + list) && !test("/a." + list + "_");
}

TEST(Category, ListsMatchLetterForLetter) {
    EXPECT_TRUE(holdsExactly(isValidImageFile,
                             "psd_dng_bmp_gif_jpg_png_psd_pspimage_thm_tif_yuv_tiff_jpeg_ai_cr2_"
                             "crw_dng_kdc_nef_mrw_orf_x3f_raw_raf_dcx_nrw_sr2_srf_wpg"));
    EXPECT_TRUE(holdsExactly(isValidAudioFile,
                             "aif_iff_m3u_m4a_mid_mp3_mpa_ra_wav_wma_mid_m4a_m4b_amr_au_midi_ogg_"
                             "ram_aac"));
    EXPECT_TRUE(holdsExactly(isValidVideoFile,
                             "3g2_3gp_asf_asx_avi_flv_mov_mp4_mpg_rm_srt_swf_vob_wmv_mpeg_m4v_mts_"
                             "m2ts_divx_xvid_avs_qt"));
    EXPECT_TRUE(holdsExactly(isValidDocFile,
                             "txt_doc_xlsx_xls_docx_ppt_pptx_pdf_m3d_ami_chm_csv_dif_htm_html_mny_"
                             "rtf_sdc_sdf_sdw_stc_sti_stw_sxc_sxd_sxi_sxm_sxw_tv4_xlt_vor_vsd_wk1_"
                             "wk3_wk4_wks_wp_xlb_sxc_one_onetoc2_sqlite_snt"));
    // No extension can match across the dot of "tar.gz".
    EXPECT_TRUE(isValidOtherFile("/a.7z_cbr_deb_gz_pkg_rar_rpm_sitx_tar"));
    EXPECT_FALSE(isValidOtherFile("/a._7z_cbr_deb_gz_pkg_rar_rpm_sitx_tar"));
    EXPECT_FALSE(isValidOtherFile("/a.7z_cbr_deb_gz_pkg_rar_rpm_sitx_tar_"));
    const std::string afterTheDot =
        "gz_zip_zipx_apk_app_bat_cgi_com_exe_gadget_jar_pif_vb_wsf_cpl_cur_deskthemepack_dll_dmp_"
        "drv_lnk_sys_cab_ani_flc_skr_arj_sit_zoo_dbx_dci_eml_pst_ost_dbf_mdb";
    EXPECT_TRUE(isValidOtherFile("/a." + afterTheDot));
    EXPECT_FALSE(isValidOtherFile("/a." + afterTheDot + "_"));
}

TEST(Category, DoesNotDependOnTheCaseOfLetters) {
    EXPECT_EQ(categoryOf("a.JPG"), Category::image);
    EXPECT_EQ(categoryOf("a.Mp3"), Category::audio);
    EXPECT_EQ(categoryOf("a.MP4"), Category::video);
    EXPECT_EQ(categoryOf("a.pDF"), Category::documents);
}

TEST(Category, IgnoresTheExtensionAfterItsFirstSpace) {
    EXPECT_EQ(categoryOf("Photo.JPG copy"), Category::image);
    EXPECT_EQ(categoryOf("a.jpg copy 2"), Category::image);
    EXPECT_EQ(categoryOf("a.mp3 "), Category::audio);
    EXPECT_EQ(categoryOf("a.jp g"), Category::other);
}

TEST(Category, IsOtherIfTheExtensionBeginsWithASpace) {
    EXPECT_EQ(categoryOf("a. jpg"), Category::other);
    EXPECT_EQ(categoryOf("a. "), Category::other);
}

TEST(Category, OnlySpacesEndTheKey) {
    EXPECT_EQ(categoryOf("a.jpg\tcopy"), Category::other);
    EXPECT_EQ(categoryOf("a.jpg\ncopy"), Category::other);
    EXPECT_EQ(categoryOf("a.jpg\xc2\xa0"
                         "copy"),
              Category::other);  // a no-break space
}

TEST(Category, IsOtherForListEntriesOfTwoLetters) {
    expectCategory(Category::other, {"ai", "ra", "au", "rm", "qt", "wp", "AI", "QT"});
}

TEST(Category, IsOtherForSubstringsOfOneOrTwoLetters) {
    expectCategory(Category::other, {"j", "p", "jp", "pg", "_", "x3", "c", "h"});
}

TEST(Category, MatchesSubstringsOfListEntries) {
    expectCategory(Category::image, {"jpe", "pspim", "image", "psp", "tiff", "iff", "peg"});
    expectCategory(Category::audio, {"idi"});
    expectCategory(Category::video, {"ivx", "2ts", "vid"});
    expectCategory(Category::documents, {"sql", "toc", "tml", "lsx", "ppt", "lite"});
}

TEST(Category, MatchesSubstringsAcrossTwoEntries) {
    expectCategory(Category::image, {"g_b", "psd_dng", "_ai", "ai_", "f_j", "_wp"});
    expectCategory(Category::audio, {"_ra_wav", "au_m"});
    expectCategory(Category::video, {"_rm", "s_qt"});
    expectCategory(Category::documents, {"_wp_", "txt_doc"});
    EXPECT_EQ(categoryOf("a.G_B"), Category::image);
}

TEST(Category, IsImageBeforeAudio) {
    // "iff" is an entry of the audio list, but also a substring of "tiff".
    EXPECT_EQ(categoryOf("a.iff"), Category::image);
    EXPECT_TRUE(isValidAudioFile("/a.iff"));
    EXPECT_EQ(categoryOf("a.tiff"), Category::image);
    EXPECT_FALSE(isValidAudioFile("/a.tiff"));
}

TEST(Category, IsAudioBeforeVideo) {
    // Substrings of both lists.
    for (const std::string extension : {"_mp", "_m4", "_wm", "id_", "g_r"}) {
        EXPECT_TRUE(isValidAudioFile("/a." + extension)) << extension;
        EXPECT_TRUE(isValidVideoFile("/a." + extension)) << extension;
        EXPECT_EQ(categoryOf("a." + extension), Category::audio) << extension;
    }
}

TEST(Category, IsNotDecidedByTheListOfOtherTypes) {
    EXPECT_TRUE(isValidOtherFile("/a.com"));
    EXPECT_FALSE(isValidOtherFile("/a.mkv"));
    EXPECT_EQ(categoryOf("a.com"), Category::other);
    EXPECT_EQ(categoryOf("a.mkv"), Category::other);
    // Substrings of that list and of another one.
    for (const std::string extension : {"ml_", "c_s"}) {
        EXPECT_TRUE(isValidOtherFile("/a." + extension)) << extension;
        EXPECT_EQ(categoryOf("a." + extension), Category::documents) << extension;
    }
}

TEST(Category, UsesTheLastExtensionOfACompressedArchive) {
    EXPECT_EQ(pathExtension("/a.tar.gz"), "gz");
    EXPECT_EQ(categoryOf("a.tar.gz"), Category::other);
    EXPECT_FALSE(isValidOtherFile("/a.tar.gz"));
    EXPECT_EQ(categoryOf("a.txt.jpg"), Category::image);
    EXPECT_EQ(categoryOf("a.jpg.txt"), Category::documents);
}

TEST(Category, IsNoneWithoutAnExtension) {
    for (const char* name : {"Makefile", ".hidden", "name.", "..", ".", "a..", "...", "jpg"}) {
        EXPECT_EQ(categoryOf(name), std::nullopt) << name;
    }
}

TEST(Category, UsesTheExtensionOfAHiddenFile) {
    EXPECT_EQ(categoryOf(".hidden.png"), Category::image);
    EXPECT_EQ(categoryOf("..png"), Category::image);
}

TEST(Category, InsideABundleIsOther) {
    for (const char* path :
         {"/x/Foo.app/Contents/Resources/a.png", "/x/Foo.app/a.mp3", "/x/Foo.framework/a.mp4",
          "/x/Foo.framework/Versions/A/a.pdf", "/x/.app/a.png", "/x.app//a.png"}) {
        EXPECT_EQ(categoryByRules(path), Category::other) << path;
    }
    Classifier classifier;
    EXPECT_EQ(classifier.classify("a.png", true), Category::other);
    EXPECT_EQ(classifier.classify("a.png", false), Category::image);
    EXPECT_EQ(classifier.classify("a.png", true), Category::other);
    EXPECT_EQ(classifier.classify("Makefile", true), std::nullopt);
}

TEST(Category, FoldersWithSimilarNamesAreNotBundles) {
    for (const char* path : {"/x/Foo.APP/a.png", "/x/Foo.apps/a.png", "/x/app/a.png",
                             "/x/Foo.frameworks/a.png", "/x/Foo.app.png", "/x.png/.app.png"}) {
        EXPECT_EQ(categoryByRules(path), Category::image) << path;
    }
}

TEST(Category, InsideABundleNoListMatches) {
    EXPECT_TRUE(isValidOtherFile("/x/a.zip"));
    EXPECT_FALSE(isValidOtherFile("/x/Foo.app/a.zip"));
}

TEST(Category, MatchesAnyLetterWhoseLowerCaseMatches) {
    // The Kelvin sign's lower case is the letter k.
    EXPECT_EQ(categoryOf("a.w\xe2\x84\xaa"
                         "1"),
              Category::documents);
    EXPECT_EQ(categoryOf("a.\xe2\x84\xaa"
                         "dc"),
              Category::image);
}

TEST(Category, DoesNotMatchLookAlikeLetters) {
    EXPECT_EQ(categoryOf("a.jp\xc4\xb0"
                         "g"),
              Category::other);  // dotted capital I
    EXPECT_EQ(categoryOf("a.t\xc4\xb1"
                         "f"),
              Category::other);  // dotless i
    EXPECT_EQ(categoryOf("a.T\xc4\xb0"
                         "F"),
              Category::other);  // becomes "ti̇f"
    EXPECT_EQ(categoryOf("a.\xef\xbd\x8a\xef\xbd\x90\xef\xbd\x87"), Category::other);  // wide
    EXPECT_EQ(categoryOf("a.jpg\xcc\x81"), Category::other);  // an accent behind
}

TEST(Category, DoesNotMatchInvalidUtf8) {
    EXPECT_EQ(categoryOf("a.jpg\xff"), Category::other);
    EXPECT_EQ(categoryOf("a.\xff\xfe"), Category::other);
    EXPECT_EQ(categoryOf("\xff.JPG"), Category::image);
    EXPECT_EQ(categoryOf("a.jpg \xff"), Category::image);
    EXPECT_EQ(categoryOf("a.JPG \xce\xa3"), Category::image);
}

TEST(StringPresence, ComparesBytes) {
    EXPECT_TRUE(isStringPresent("one_two", "one"));
    EXPECT_TRUE(isStringPresent("one_two", "two"));
    EXPECT_TRUE(isStringPresent("one_two", "e_t"));
    EXPECT_TRUE(isStringPresent("one_two", "one_two"));
    EXPECT_FALSE(isStringPresent("one_two", "One"));
    EXPECT_FALSE(isStringPresent("one_two", "onetwo"));
    EXPECT_FALSE(isStringPresent("one", "one_"));
}

TEST(StringPresence, NeedsThreeCharacters) {
    EXPECT_FALSE(isStringPresent("one", ""));
    EXPECT_FALSE(isStringPresent("one", "o"));
    EXPECT_FALSE(isStringPresent("one", "on"));
    EXPECT_TRUE(isStringPresent("one", "one"));
    EXPECT_FALSE(isStringPresent("", ""));
}

TEST(StringPresence, CountsUtf16CodeUnits) {
    EXPECT_FALSE(isStringPresent("a\xc3\xa9", "a\xc3\xa9"));   // a, é: 2
    EXPECT_TRUE(isStringPresent("a\xc3\xa9z", "a\xc3\xa9z"));  // a, é, z: 3
    EXPECT_FALSE(
        isStringPresent("\xe2\x82\xac"
                        "a",
                        "\xe2\x82\xac"
                        "a"));                                              // €, a: 2
    EXPECT_FALSE(isStringPresent("\xf0\x9f\x98\x80", "\xf0\x9f\x98\x80"));  // one pair: 2
    EXPECT_TRUE(
        isStringPresent("\xf0\x9f\x98\x80"
                        "a",
                        "\xf0\x9f\x98\x80"
                        "a"));  // a pair, a: 3
}

TEST(StringPresence, CountsEachInvalidByteAsOne) {
    EXPECT_FALSE(isStringPresent("\xff\xfe", "\xff\xfe"));
    EXPECT_TRUE(isStringPresent("\xff\xfe\xfd", "\xff\xfe\xfd"));
    EXPECT_TRUE(
        isStringPresent("\xe2\x82"
                        "a",
                        "\xe2\x82"
                        "a"));                                     // half a €, a: 3
    EXPECT_TRUE(isStringPresent("\xed\xa0\x80", "\xed\xa0\x80"));  // half a pair is not UTF-8: 3
}

TEST(PathExtension, FollowsTheLastDotOfTheLastComponent) {
    EXPECT_EQ(pathExtension("/tmp/scratch.tiff"), "tiff");
    EXPECT_EQ(pathExtension("scratch.tiff"), "tiff");
    EXPECT_EQ(pathExtension("/tmp/.scratch.tiff"), "tiff");
    EXPECT_EQ(pathExtension("/tmp/a.tar.gz"), "gz");
    EXPECT_EQ(pathExtension("/tmp/a..gz"), "gz");
    EXPECT_EQ(pathExtension("/x.old/a.jpg"), "jpg");
    EXPECT_EQ(pathExtension("/Users/x/photos.old"), "old");
}

TEST(PathExtension, IsEmptyWithoutOne) {
    for (const char* path : {"", "/", "//", "/tmp/scratch", "/x.old/scratch", "/tmp/.hidden",
                             ".hidden", "name.", "/name.", "a..", ".", "..", "/..", "...", "/."}) {
        EXPECT_EQ(pathExtension(path), "") << path;
    }
}

TEST(PathExtension, IgnoresTrailingSlashes) {
    EXPECT_EQ(pathExtension("/Applications/Foo.app/"), "app");
    EXPECT_EQ(pathExtension("/Applications/Foo.app///"), "app");
    EXPECT_EQ(pathExtension("/x.old/scratch/"), "");
}

TEST(PathExtension, KeepsSpacesCaseAndBytes) {
    EXPECT_EQ(pathExtension("/Photo.JPG copy 2"), "JPG copy 2");
    EXPECT_EQ(pathExtension("/a. "), " ");
    EXPECT_EQ(pathExtension("/a.\xff\n"), "\xff\n");
}

TEST(ExtensionKey, IsTheLowerCaseExtensionUpToItsFirstSpace) {
    EXPECT_EQ(extensionKey("/home/ann/Photo.JPG copy"), "jpg");
    EXPECT_EQ(extensionKey("/home/ann/Photo.JPG"), "jpg");
    EXPECT_EQ(extensionKey("/home/ann/a. jpg"), "");
    EXPECT_EQ(extensionKey("/home/ann/a"), "");
    EXPECT_EQ(extensionKey("/home/ann/a.\xc3\x84\xff Z"), "\xc3\xa4\xff");
    EXPECT_EQ(extensionKey("/home/ann/a.\xc4\xb0"), "i\xcc\x87");
    EXPECT_EQ(extensionKey("/home/ann/a.A\xce\xa3 B"), "a\xcf\x82");
}

TEST(SupportedImage, MatchesWholeEntriesOnly) {
    for (const char* extension :
         {"bmp", "gif", "jpg", "png", "psd", "pspimage", "thm", "tif", "yuv", "tiff", "jpeg", "ai",
          "cr2", "crw", "dng", "kdc", "nef", "mrw",      "orf", "x3f", "raw", "raf",  "dcx"}) {
        EXPECT_TRUE(isSupportedImage(std::string("/a.") + extension)) << extension;
    }
    for (const char* extension : {"jpe", "iff", "pspim", "a", "nrw", "sr2", "srf", "wpg", "mp3"}) {
        EXPECT_FALSE(isSupportedImage(std::string("/a.") + extension)) << extension;
    }
}

TEST(SupportedImage, MayHaveAnExtensionOfTwoLetters) {
    EXPECT_TRUE(isSupportedImage("/a.ai"));
    EXPECT_TRUE(isSupportedImage("/a.AI"));
    EXPECT_FALSE(isValidImageFile("/a.ai"));
}

TEST(SupportedImage, MayMatchAcrossTwoEntries) {
    EXPECT_TRUE(isSupportedImage("/a.bmp_gif"));
    EXPECT_FALSE(isSupportedImage("/a.p_g"));
}

TEST(SupportedImage, NeedsAnExtension) {
    EXPECT_FALSE(isSupportedImage("/a"));
    EXPECT_FALSE(isSupportedImage("/.jpg"));
    EXPECT_FALSE(isSupportedImage(""));
}

TEST(SupportedImage, IsNotCutAtASpace) {
    EXPECT_FALSE(isSupportedImage("/a.jpg copy"));
    EXPECT_FALSE(isSupportedImage("/a.jpg "));
}

TEST(SupportedImage, MayBeInsideABundle) {
    EXPECT_TRUE(isSupportedImage("/x/Foo.app/a.png"));
}

/// Random names made of substrings of the lists and of special characters.
class RandomNames final {
 public:
    explicit RandomNames(std::uint64_t seed) : random_(seed) {}

    std::string next() {
        std::string name;
        for (std::size_t count = below(7); count > 0; --count) {
            name += part();
        }
        // A name is never empty and never contains a slash.
        return name.empty() ? "a" : name;
    }

    bool nextFlag() { return below(4) == 0; }

 private:
    std::string part() {
        static const std::vector<std::string> parts{
            ".",        ".",
            ".",        " ",
            "_",        "jpg",
            "JPG",      "iff",
            "tiff",     "m4a",
            "mp4",      "_mp",
            "pdf",      "wp",
            "ai",       "g_b",
            "tar",      "gz",
            "7z",       "onetoc2",
            "PspImage", "\xe2\x84\xaa",
            "\xc4\xb0", "\xce\xa3",
            "\xcf\x82", "\xc3\x84",
            "\xff",     "\xe2\x84",
            "\xcc\x87", "\xc2\xa0",
            "\t",       "'",
            "x",        "0",
            "K",        "deskthemepack_dll_dmp_drv_lnk_sys_cab"};
        return below(5) == 0 ? letters() : parts[below(parts.size())];
    }

    /// A random substring of a list.
    std::string letters() {
        static const std::string list =
            "psd_dng_bmp_gif_jpg_raw_aif_iff_m3u_m4a_mid_mp3_mpa_3g2_3gp_m4v_mts_txt_doc_xlsx_wk1";
        const std::size_t start = below(list.size());
        return list.substr(start, below(9));
    }

    std::size_t below(std::size_t end) { return random_() % end; }

    std::mt19937_64 random_;
};

TEST(Classifier, AgreesWithTheRulesOnRandomNames) {
    for (const std::uint64_t seed : testSeeds(20)) {
        SCOPED_TRACE(seedText(seed));
        RandomNames names(seed);
        Classifier classifier;
        for (int count = 0; count < 5'000; ++count) {
            const std::string name = names.next();
            const bool insideBundle = names.nextFlag();
            const std::string folder = insideBundle ? "/x/Foo.app/" : "/x/Foo/";
            ASSERT_EQ(classifier.classify(name, insideBundle), categoryByRules(folder + name))
                << testing::PrintToString(name);
        }
    }
}

TEST(Classifier, StaysCorrectWithMoreExtensionsThanItCaches) {
    Classifier classifier;
    for (int number = 0; number < 10'000; ++number) {
        ASSERT_EQ(classifier.classify("a.x" + std::to_string(number), false), Category::other);
    }
    for (const int repetition : {1, 2}) {
        EXPECT_EQ(classifier.classify("a.jpg", false), Category::image) << repetition;
        EXPECT_EQ(classifier.classify("a.MP3", false), Category::audio) << repetition;
        EXPECT_EQ(classifier.classify("a.x1", false), Category::other) << repetition;
    }
}

TEST(Classifier, HandlesExtensionsOfAnyLength) {
    for (const std::size_t length : {31u, 32u, 33u, 34u, 250u, 5'000u}) {
        EXPECT_EQ(categoryOf("a." + std::string(length, 'x')), Category::other) << length;
    }
    // Substrings of the image list with 31, 32 and 33 letters.
    EXPECT_EQ(categoryOf("a.psd_dng_bmp_gif_jpg_png_psd_psp"), Category::image);
    EXPECT_EQ(categoryOf("a.PSD_dng_bmp_gif_jpg_png_psd_pspi"), Category::image);
    EXPECT_EQ(categoryOf("a.psd_dng_bmp_gif_jpg_png_psd_pspIM"), Category::image);
    EXPECT_EQ(categoryOf("a.jpg " + std::string(5'000, 'x')), Category::image);
}

}  // namespace
}  // namespace tarvin
