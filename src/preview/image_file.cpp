#include "preview/image_file.h"

#include "preview/heif_image.h"
#include "preview/jpeg2000_image.h"
#include "preview/qt_image.h"
#include "preview/smaller_image.h"

namespace tarvin {

namespace {

/// Qt last: its plug-ins for the other formats are rare, and load files after construction.
std::unique_ptr<ImageDecoder> decoderOf(QIODevice& device) {
    if (std::unique_ptr<ImageDecoder> decoder = openHeifImage(device)) {
        return decoder;
    }
    if (std::unique_ptr<ImageDecoder> decoder = openJpeg2000Image(device)) {
        return decoder;
    }
    device.seek(0);
    return std::make_unique<QtImage>(device);
}

}  // namespace

ImageFile::ImageFile(QIODevice& device) : decoder_(decoderOf(device)) {}

QImage ImageFile::picture(int longestSide) {
    QImage image = decoder_->decode(longestSide);
    return image.isNull() || fits(image.size(), longestSide)
               ? image
               : smaller(image, fitted(image.size(), longestSide));
}

}  // namespace tarvin
