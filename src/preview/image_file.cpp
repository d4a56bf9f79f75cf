#include "preview/image_file.h"

#include "preview/heif_image.h"
#include "preview/jpeg2000_image.h"
#include "preview/qt_image.h"
#include "preview/smaller_image.h"

namespace tarvin {

std::unique_ptr<ImageDecoder> openImage(QIODevice& device) {
    if (std::unique_ptr<ImageDecoder> decoder = openHeifImage(device)) {
        return decoder;
    }
    if (std::unique_ptr<ImageDecoder> decoder = openJpeg2000Image(device)) {
        return decoder;
    }
    // Qt last: its plug-ins for the other formats are rare, and load files after construction.
    device.seek(0);
    return std::make_unique<QtImage>(device);
}

QImage picture(ImageDecoder& image, int maxSide) {
    QImage decoded = image.decode(maxSide);
    return decoded.isNull() || fits(decoded.size(), maxSide)
               ? decoded
               : smaller(decoded, fitted(decoded.size(), maxSide));
}

}  // namespace tarvin
