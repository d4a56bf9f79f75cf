#include "preview/image_file.h"

#include "preview/qt_image.h"
#include "preview/smaller_image.h"

namespace tarvin {

ImageFile::ImageFile(QIODevice& device) : decoder_(std::make_unique<QtImage>(device)) {}

QImage ImageFile::picture(int longestSide) {
    QImage image = decoder_->decode(longestSide);
    return image.isNull() || fits(image.size(), longestSide)
               ? image
               : smaller(image, fitted(image.size(), longestSide));
}

}  // namespace tarvin
