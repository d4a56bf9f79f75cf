#pragma once

#include "preview/image_decoder.h"

#include <QBuffer>
#include <QImageReader>

class QIODevice;

namespace tarvin {

/// An image in one of the formats that Qt and its plug-ins read. Its content decides which.
class QtImage final : public ImageDecoder {
 public:
    /// `device` is open and outlives it.
    explicit QtImage(QIODevice& device);

    [[nodiscard]] QSize size() override;
    [[nodiscard]] QImage decode(int longestSide) override;
    [[nodiscard]] bool canReferToFiles() const override { return isDrawing_; }

 private:
    [[nodiscard]] bool canDecodeSmaller() const;
    [[nodiscard]] QSize sizeToDecode(QSize full, int longestSide) const;

    QBuffer drawing_;  // the whole file, if it is one
    QImageReader reader_;
    bool isDrawing_ = false;
};

}  // namespace tarvin
