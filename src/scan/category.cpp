#include "scan/category.h"

#include "text/lowercase.h"
#include "text/utf8.h"

#include <algorithm>
#include <array>

namespace tarvin {

namespace {

// The category of a file depends on every letter of these lists: repeated entries and entries that
// can never match must stay.
constexpr std::string_view imageList =
    "psd_dng_bmp_gif_jpg_png_psd_pspimage_thm_tif_yuv_tiff_jpeg_ai_cr2_crw_dng_kdc_nef_mrw_orf_x3f_"
    "raw_raf_dcx_nrw_sr2_srf_wpg";
constexpr std::string_view audioList =
    "aif_iff_m3u_m4a_mid_mp3_mpa_ra_wav_wma_mid_m4a_m4b_amr_au_midi_ogg_ram_aac";
constexpr std::string_view videoList =
    "3g2_3gp_asf_asx_avi_flv_mov_mp4_mpg_rm_srt_swf_vob_wmv_mpeg_m4v_mts_m2ts_divx_xvid_avs_qt";
constexpr std::string_view documentList =
    "txt_doc_xlsx_xls_docx_ppt_pptx_pdf_m3d_ami_chm_csv_dif_htm_html_mny_rtf_sdc_sdf_sdw_stc_sti_"
    "stw_sxc_sxd_sxi_sxm_sxw_tv4_xlt_vor_vsd_wk1_wk3_wk4_wks_wp_xlb_sxc_one_onetoc2_sqlite_snt";
constexpr std::string_view otherList =
    "7z_cbr_deb_gz_pkg_rar_rpm_sitx_tar.gz_zip_zipx_apk_app_bat_cgi_com_exe_gadget_jar_pif_vb_wsf_"
    "cpl_cur_deskthemepack_dll_dmp_drv_lnk_sys_cab_ani_flc_skr_arj_sit_zoo_dbx_dci_eml_pst_ost_dbf_"
    "mdb";
constexpr std::string_view droppedImageList =
    "_bmp_gif_jpg_png_psd_pspimage_thm_tif_yuv_tiff_jpeg_ai_cr2_crw_dng_kdc_nef_mrw_orf_x3f_raw_"
    "raf_dcx_";

struct CategoryList {
    Category category;
    std::string_view list;
};

// The first list that accepts a key decides. Audio comes before video.
constexpr std::array sortingOrder{
    CategoryList{Category::image, imageList}, CategoryList{Category::audio, audioList},
    CategoryList{Category::video, videoList}, CategoryList{Category::documents, documentList}};

constexpr std::size_t minNeedle = 3;  // UTF-16 code units

// Bounds the memory for a tree of random extensions; real ones are few and short.
constexpr std::size_t maxKnownKeys = 4096;
constexpr std::size_t maxKnownKeyBytes = 32;

bool isTooShort(std::string_view text) {
    std::size_t units = 0;
    while (!text.empty() && units < minNeedle) {
        const Utf8Character character = firstCharacter(text);
        units += character.codePoint > 0xFFFF ? 2 : 1;
        text.remove_prefix(character.length);
    }
    return units < minNeedle;
}

char asciiLowercase(char byte) {
    return byte >= 'A' && byte <= 'Z' ? static_cast<char>(byte - 'A' + 'a') : byte;
}

std::string_view upToSpace(std::string_view text) {
    return text.substr(0, text.find(' '));
}

std::string keyOfExtension(std::string_view extension) {
    std::string key = lowercase(extension);
    key.resize(upToSpace(key).size());
    return key;
}

using KeyRoom = std::array<char, maxKnownKeyBytes>;

/// The key, stored in `room` to avoid an allocation. nullopt if it does not fit or is not ASCII.
std::optional<std::string_view> plainKey(std::string_view extension, KeyRoom& room) {
    const std::string_view key = upToSpace(extension);
    const auto isAscii = [](char byte) { return static_cast<unsigned char>(byte) < 0x80; };
    if (key.size() > room.size() || !std::all_of(key.begin(), key.end(), isAscii)) {
        return std::nullopt;
    }
    std::transform(key.begin(), key.end(), room.begin(), asciiLowercase);
    return std::string_view(room.data(), key.size());
}

bool isInsideBundle(std::string_view path) {
    return isStringPresent(path, ".app/") || isStringPresent(path, ".framework/");
}

bool isInList(std::string_view path, std::string_view list) {
    return !isInsideBundle(path) && isStringPresent(list, extensionKey(path));
}

Category firstToAccept(std::string_view key) {
    const auto* const accepting =
        std::find_if(sortingOrder.begin(), sortingOrder.end(),
                     [key](const CategoryList& each) { return isStringPresent(each.list, key); });
    return accepting == sortingOrder.end() ? Category::other : accepting->category;
}

}  // namespace

std::string_view categoryName(Category category) {
    switch (category) {
        case Category::image:
            return "Image";
        case Category::video:
            return "Video";
        case Category::audio:
            return "Audio";
        case Category::documents:
            return "Documents";
        case Category::other:
            break;
    }
    return "Other";
}

bool isStringPresent(std::string_view haystack, std::string_view needle) {
    return !isTooShort(needle) && haystack.find(needle) != std::string_view::npos;
}

std::string_view pathExtension(std::string_view path) {
    while (path.ends_with('/')) {
        path.remove_suffix(1);
    }
    const std::string_view name = path.substr(path.rfind('/') + 1);  // npos + 1 is the start
    const std::size_t dot = name.rfind('.');
    if (dot == std::string_view::npos || dot == 0) {
        return {};
    }
    return name.substr(dot + 1);
}

std::string extensionKey(std::string_view path) {
    return keyOfExtension(pathExtension(path));
}

bool isValidImageFile(std::string_view path) {
    return isInList(path, imageList);
}

bool isValidAudioFile(std::string_view path) {
    return isInList(path, audioList);
}

bool isValidVideoFile(std::string_view path) {
    return isInList(path, videoList);
}

bool isValidDocFile(std::string_view path) {
    return isInList(path, documentList);
}

bool isValidOtherFile(std::string_view path) {
    return isInList(path, otherList);
}

bool isSupportedImage(std::string_view path) {
    std::string entry = "_";
    entry += lowercase(pathExtension(path));
    entry += '_';
    return isStringPresent(droppedImageList, entry);
}

std::optional<Category> Classifier::classify(std::string_view fileName, bool insideBundle) {
    const std::string_view extension = pathExtension(fileName);
    if (extension.empty()) {
        return std::nullopt;
    }
    if (insideBundle) {
        return Category::other;
    }
    KeyRoom room;
    if (const auto key = plainKey(extension, room)) {
        return categoryOfKey(*key);
    }
    return categoryOfKey(keyOfExtension(extension));
}

Category Classifier::categoryOfKey(std::string_view key) {
    const auto known = known_.find(key);
    if (known != known_.end()) {
        return known->second;
    }
    const Category category = firstToAccept(key);
    if (key.size() <= maxKnownKeyBytes && known_.size() < maxKnownKeys) {
        known_.emplace(key, category);
    }
    return category;
}

}  // namespace tarvin
