#pragma once

#include "preview/image_decoder.h"

#include <QBuffer>
#include <QImageReader>

class QIODevice;

namespace tarvin {

/// An image in a format of Qt and its plug-ins, detected by content.
class QtImage final : public ImageDecoder {
 public:
    /// `device` must be open and outlive the object.
    explicit QtImage(QIODevice& device);

    [[nodiscard]] QSize size() override;
    [[nodiscard]] QImage decode(int maxSide) override;
    [[nodiscard]] bool canReferToFiles() const override { return isDrawing_; }

 private:
    [[nodiscard]] bool canDecodeSmaller() const;
    [[nodiscard]] QSize sizeToDecode(QSize full, int maxSide) const;

    QBuffer drawing_;  // the content of an SVG file
    QImageReader reader_;
    bool isDrawing_ = false;
};

}  // namespace tarvin
