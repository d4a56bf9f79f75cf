#include "preview/heif_image.h"

#include "preview/late_library.h"
#include "preview/limits.h"

#include <libheif/heif.h>

#include <QByteArray>
#include <QIODevice>
#include <QtEndian>
#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>

namespace tarvin {

namespace {

/// The functions of libheif that we use. Its codec plug-ins are loaded with it, once.
class HeifLibrary final {
 public:
    /// Null if it cannot be loaded; one object for the process.
    static const HeifLibrary* get() {
        static const HeifLibrary library;
        return library.isWhole_ ? &library : nullptr;
    }

    decltype(::heif_init)* init = nullptr;
    decltype(::heif_context_alloc)* allocateContext = nullptr;
    decltype(::heif_context_free)* freeContext = nullptr;
    decltype(::heif_context_read_from_reader)* readFrom = nullptr;
    decltype(::heif_context_get_primary_image_handle)* primaryImage = nullptr;
    decltype(::heif_image_handle_release)* releaseHandle = nullptr;
    decltype(::heif_image_handle_get_width)* width = nullptr;
    decltype(::heif_image_handle_get_height)* height = nullptr;
    decltype(::heif_image_handle_has_alpha_channel)* hasAlpha = nullptr;
    decltype(::heif_decoding_options_alloc)* allocateOptions = nullptr;
    decltype(::heif_decoding_options_free)* freeOptions = nullptr;
    decltype(::heif_decode_image)* decode = nullptr;
    decltype(::heif_image_get_primary_width)* decodedWidth = nullptr;
    decltype(::heif_image_get_primary_height)* decodedHeight = nullptr;
    decltype(::heif_image_get_plane_readonly)* pixels = nullptr;
    decltype(::heif_image_release)* releaseImage = nullptr;

 private:
    HeifLibrary() {
        const LateLibrary file("libheif", 1);
        isWhole_ =
            file.find("heif_init", init) && file.find("heif_context_alloc", allocateContext) &&
            file.find("heif_context_free", freeContext) &&
            file.find("heif_context_read_from_reader", readFrom) &&
            file.find("heif_context_get_primary_image_handle", primaryImage) &&
            file.find("heif_image_handle_release", releaseHandle) &&
            file.find("heif_image_handle_get_width", width) &&
            file.find("heif_image_handle_get_height", height) &&
            file.find("heif_image_handle_has_alpha_channel", hasAlpha) &&
            file.find("heif_decoding_options_alloc", allocateOptions) &&
            file.find("heif_decoding_options_free", freeOptions) &&
            file.find("heif_decode_image", decode) &&
            file.find("heif_image_get_primary_width", decodedWidth) &&
            file.find("heif_image_get_primary_height", decodedHeight) &&
            file.find("heif_image_get_plane_readonly", pixels) &&
            file.find("heif_image_release", releaseImage) && init(nullptr).code == heif_error_Ok;
    }

    bool isWhole_ = false;
};

QIODevice& heifDevice(void* userData) {
    return *static_cast<QIODevice*>(userData);
}

std::int64_t heifPosition(void* userData) {
    return heifDevice(userData).pos();
}

int readHeif(void* data, std::size_t size, void* userData) {
    const auto wanted = static_cast<qint64>(size);
    return heifDevice(userData).read(static_cast<char*>(data), wanted) == wanted ? 0 : 1;
}

int seekHeif(std::int64_t to, void* userData) {
    return heifDevice(userData).seek(to) ? 0 : 1;
}

heif_reader_grow_status waitForHeif(std::int64_t size, void* userData) {
    return size <= heifDevice(userData).size() ? heif_reader_grow_status_size_reached
                                               : heif_reader_grow_status_size_beyond_eof;
}

/// Version 1 of the interface; later ones have more members.
constexpr heif_reader heifReader = [] {
    heif_reader reader{};
    reader.reader_api_version = 1;
    reader.get_position = heifPosition;
    reader.read = readHeif;
    reader.seek = seekHeif;
    reader.wait_for_file_size = waitForHeif;
    return reader;
}();

/// By its major or compatible brands. Video files have the same structure.
bool isHeif(const QByteArray& begin) {
    constexpr qsizetype brandLength = 4;
    constexpr std::array brands{"heic", "heix", "heim", "heis", "mif1", "avif", "avis"};
    if (begin.mid(brandLength, brandLength) != "ftyp") {
        return false;
    }
    const auto boxLength = static_cast<qsizetype>(qFromBigEndian<quint32>(begin.constData()));
    const qsizetype end = std::min(begin.size(), boxLength) - brandLength;
    for (qsizetype at = 2 * brandLength; at <= end; at += brandLength) {
        const QByteArray brand = begin.mid(at, brandLength);
        if (std::find(brands.begin(), brands.end(), brand) != brands.end()) {
            return true;
        }
    }
    return false;
}

class HeifImage final : public ImageDecoder {
 public:
    HeifImage(const HeifLibrary& library, QIODevice& device)
        : library_(library), context_(library.allocateContext()) {
        if (library_.readFrom(context_, &heifReader, &device, nullptr).code == heif_error_Ok) {
            static_cast<void>(library_.primaryImage(context_, &image_));
        }
    }
    HeifImage(const HeifImage&) = delete;
    HeifImage& operator=(const HeifImage&) = delete;
    ~HeifImage() override {
        if (image_ != nullptr) {
            library_.releaseHandle(image_);
        }
        library_.freeContext(context_);
    }

    [[nodiscard]] bool isThere() const { return image_ != nullptr; }

    QSize size() override { return {library_.width(image_), library_.height(image_)}; }

    QImage decode(int /*maxSide*/) override {
        constexpr qsizetype bytesPerPixel = 4;
        if (!mayBeDecoded(size(), bytesPerPixel)) {
            return {};
        }
        heif_decoding_options* const options = library_.allocateOptions();
        options->convert_hdr_to_8bit = 1;
        const bool hasAlpha = library_.hasAlpha(image_) != 0;
        heif_image* decoded = nullptr;
        const heif_error error = library_.decode(
            image_, &decoded, heif_colorspace_RGB,
            hasAlpha ? heif_chroma_interleaved_RGBA : heif_chroma_interleaved_RGB, options);
        library_.freeOptions(options);
        return error.code == heif_error_Ok
                   ? imageOf(decoded, hasAlpha ? QImage::Format_RGBA8888 : QImage::Format_RGB888)
                   : QImage();
    }

 private:
    /// Without a copy: the QImage owns the library's image.
    QImage imageOf(heif_image* decoded, QImage::Format format) const {
        struct Owned {
            decltype(::heif_image_release)* release;
            heif_image* image;
        };
        int stride = 0;
        const std::uint8_t* const pixels =
            library_.pixels(decoded, heif_channel_interleaved, &stride);
        if (pixels == nullptr) {
            library_.releaseImage(decoded);
            return {};
        }
        return QImage(
            pixels, library_.decodedWidth(decoded), library_.decodedHeight(decoded), stride, format,
            [](void* owned) {
                const std::unique_ptr<Owned> last(static_cast<Owned*>(owned));
                last->release(last->image);
            },
            new Owned{library_.releaseImage, decoded});
    }

    const HeifLibrary& library_;
    heif_context* const context_;
    heif_image_handle* image_ = nullptr;
};

}  // namespace

std::unique_ptr<ImageDecoder> openHeifImage(QIODevice& device) {
    constexpr qint64 beginLength = 64;
    const HeifLibrary* const library =
        isHeif(device.peek(beginLength)) ? HeifLibrary::get() : nullptr;
    if (library == nullptr) {
        return nullptr;
    }
    auto image = std::make_unique<HeifImage>(*library, device);
    return image->isThere() ? std::move(image) : nullptr;
}

}  // namespace tarvin
