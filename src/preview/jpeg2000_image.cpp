#include "preview/jpeg2000_image.h"

#include "preview/jpeg2000_pixels.h"
#include "preview/late_library.h"
#include "preview/limits.h"

#include <openjpeg.h>

#include <QByteArray>
#include <QIODevice>
#include <algorithm>
#include <optional>
#include <utility>

namespace tarvin {

namespace {

/// The functions of OpenJPEG that we use.
class Jpeg2000Library final {
 public:
    /// Null if it cannot be loaded; one object for the process.
    static const Jpeg2000Library* get() {
        static const Jpeg2000Library library;
        return library.isWhole_ ? &library : nullptr;
    }

    decltype(::opj_stream_create)* createStream = nullptr;
    decltype(::opj_stream_destroy)* destroyStream = nullptr;
    decltype(::opj_stream_set_read_function)* setRead = nullptr;
    decltype(::opj_stream_set_skip_function)* setSkip = nullptr;
    decltype(::opj_stream_set_seek_function)* setSeek = nullptr;
    decltype(::opj_stream_set_user_data)* setUserData = nullptr;
    decltype(::opj_stream_set_user_data_length)* setLength = nullptr;
    decltype(::opj_create_decompress)* createCodec = nullptr;
    decltype(::opj_destroy_codec)* destroyCodec = nullptr;
    decltype(::opj_set_default_decoder_parameters)* setDefaults = nullptr;
    decltype(::opj_setup_decoder)* setUp = nullptr;
    decltype(::opj_read_header)* readHeader = nullptr;
    decltype(::opj_get_cstr_info)* info = nullptr;
    decltype(::opj_destroy_cstr_info)* destroyInfo = nullptr;
    decltype(::opj_set_decoded_resolution_factor)* setReduction = nullptr;
    decltype(::opj_decode)* decode = nullptr;
    decltype(::opj_image_destroy)* destroyImage = nullptr;

 private:
    Jpeg2000Library() {
        const LateLibrary file("libopenjp2", 7);
        isWhole_ = file.find("opj_stream_create", createStream) &&
                   file.find("opj_stream_destroy", destroyStream) &&
                   file.find("opj_stream_set_read_function", setRead) &&
                   file.find("opj_stream_set_skip_function", setSkip) &&
                   file.find("opj_stream_set_seek_function", setSeek) &&
                   file.find("opj_stream_set_user_data", setUserData) &&
                   file.find("opj_stream_set_user_data_length", setLength) &&
                   file.find("opj_create_decompress", createCodec) &&
                   file.find("opj_destroy_codec", destroyCodec) &&
                   file.find("opj_set_default_decoder_parameters", setDefaults) &&
                   file.find("opj_setup_decoder", setUp) &&
                   file.find("opj_read_header", readHeader) &&
                   file.find("opj_get_cstr_info", info) &&
                   file.find("opj_destroy_cstr_info", destroyInfo) &&
                   file.find("opj_set_decoded_resolution_factor", setReduction) &&
                   file.find("opj_decode", decode) && file.find("opj_image_destroy", destroyImage);
    }

    bool isWhole_ = false;
};

/// A JP2 file, or the bare code stream that some cameras and scanners write.
std::optional<OPJ_CODEC_FORMAT> formatOf(const QByteArray& begin) {
    if (begin.startsWith(QByteArray("\0\0\0\x0CjP  \r\n\x87\n", 12))) {
        return OPJ_CODEC_JP2;
    }
    return begin.startsWith("\xFF\x4F\xFF\x51") ? std::optional(OPJ_CODEC_J2K) : std::nullopt;
}

QIODevice& streamDevice(void* userData) {
    return *static_cast<QIODevice*>(userData);
}

OPJ_SIZE_T readStream(void* buffer, OPJ_SIZE_T size, void* userData) {
    const qint64 count =
        streamDevice(userData).read(static_cast<char*>(buffer), static_cast<qint64>(size));
    return count > 0 ? static_cast<OPJ_SIZE_T>(count) : static_cast<OPJ_SIZE_T>(-1);
}

OPJ_OFF_T skipStream(OPJ_OFF_T count, void* userData) {
    QIODevice& device = streamDevice(userData);
    return device.seek(device.pos() + count) ? count : -1;
}

OPJ_BOOL seekStream(OPJ_OFF_T to, void* userData) {
    return streamDevice(userData).seek(to) ? OPJ_TRUE : OPJ_FALSE;
}

class Jpeg2000Image final : public ImageDecoder {
 public:
    Jpeg2000Image(const Jpeg2000Library& library, QIODevice& device, OPJ_CODEC_FORMAT format)
        : library_(library),
          stream_(library.createStream(bufferBytes, OPJ_STREAM_READ)),
          codec_(library.createCodec(format)) {
        library_.setUserData(stream_, &device, nullptr);
        library_.setLength(stream_, static_cast<OPJ_UINT64>(device.size()));
        library_.setRead(stream_, readStream);
        library_.setSkip(stream_, skipStream);
        library_.setSeek(stream_, seekStream);
        opj_dparameters_t parameters{};
        library_.setDefaults(&parameters);
        isRead_ = library_.setUp(codec_, &parameters) == OPJ_TRUE &&
                  library_.readHeader(stream_, codec_, &image_) == OPJ_TRUE;
    }
    Jpeg2000Image(const Jpeg2000Image&) = delete;
    Jpeg2000Image& operator=(const Jpeg2000Image&) = delete;
    ~Jpeg2000Image() override {
        library_.destroyImage(image_);
        library_.destroyCodec(codec_);
        library_.destroyStream(stream_);
    }

    [[nodiscard]] bool isThere() const { return isRead_ && !dimensions().isEmpty(); }

    QSize size() override { return dimensions(); }

    QImage decode(int maxSide) override {
        const OPJ_UINT32 reduction = reductionFor(maxSide);
        const QSize full = dimensions();
        const QSize decoded(std::max(full.width() >> reduction, 1),
                            std::max(full.height() >> reduction, 1));
        // Four bytes per component while decoding, and the pixels.
        const qsizetype bytesPerPixel = 4 * (qsizetype{image_->numcomps} + 1);
        return mayBeDecoded(decoded, bytesPerPixel) &&
                       library_.setReduction(codec_, reduction) == OPJ_TRUE &&
                       library_.decode(codec_, stream_, image_) == OPJ_TRUE
                   ? jpeg2000Pixels(*image_)
                   : QImage();
    }

 private:
    static constexpr OPJ_SIZE_T bufferBytes = 1024 * 1024;

    [[nodiscard]] QSize dimensions() const {
        constexpr OPJ_UINT32 maxSide = 0x7FFFFFFF;
        const OPJ_UINT32 width = image_->x1 - image_->x0;
        const OPJ_UINT32 height = image_->y1 - image_->y0;
        return width <= maxSide && height <= maxSide
                   ? QSize(static_cast<int>(width), static_cast<int>(height))
                   : QSize();
    }

    /// How often the image can be halved and stay large enough. The file stores these resolutions.
    [[nodiscard]] OPJ_UINT32 reductionFor(int maxSide) {
        opj_codestream_info_v2_t* info = library_.info(codec_);
        if (info == nullptr || info->m_default_tile_info.tccp_info == nullptr) {
            library_.destroyInfo(&info);
            return 0;
        }
        OPJ_UINT32 resolutions = OPJ_J2K_MAXRLVLS;
        for (OPJ_UINT32 component = 0; component < info->nbcomps; ++component) {
            resolutions = std::min(resolutions,
                                   info->m_default_tile_info.tccp_info[component].numresolutions);
        }
        library_.destroyInfo(&info);
        const int longest = std::max(dimensions().width(), dimensions().height());
        OPJ_UINT32 reduction = 0;
        while (reduction + 1 < resolutions && (longest >> (reduction + 1)) >= maxSide) {
            ++reduction;
        }
        return reduction;
    }

    const Jpeg2000Library& library_;
    opj_stream_t* const stream_;
    opj_codec_t* const codec_;
    opj_image_t* image_ = nullptr;
    bool isRead_ = false;
};

}  // namespace

std::unique_ptr<ImageDecoder> openJpeg2000Image(QIODevice& device) {
    constexpr qint64 beginLength = 12;
    const std::optional<OPJ_CODEC_FORMAT> format = formatOf(device.peek(beginLength));
    if (!format) {
        return nullptr;
    }
    const Jpeg2000Library* const library = Jpeg2000Library::get();
    if (library == nullptr) {
        return nullptr;
    }
    auto image = std::make_unique<Jpeg2000Image>(*library, device, *format);
    return image->isThere() ? std::move(image) : nullptr;
}

}  // namespace tarvin
