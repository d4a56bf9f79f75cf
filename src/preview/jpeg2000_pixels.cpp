#include "preview/jpeg2000_pixels.h"

#include <openjpeg.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace tarvin {

namespace {

/// One component, scaled to 0..255 and to the size of the first component.
class Channel final {
 public:
    /// Requires isReadable().
    Channel(const opj_image_t& image, std::size_t number)
        : component_(image.comps[number]),
          // Fixed point with 16 fractional bits; components may be subsampled.
          stepX_((std::uint64_t{component_.w} << 16U) / image.comps[0].w),
          stepY_((std::uint64_t{component_.h} << 16U) / image.comps[0].h),
          offset_(component_.sgnd != 0 ? std::int64_t{1} << (component_.prec - 1) : 0),
          highest_((std::int64_t{1} << component_.prec) - 1) {}

    [[nodiscard]] int at(int x, int y) const {
        const std::uint64_t column = (static_cast<std::uint64_t>(x) * stepX_) >> 16U;
        const std::uint64_t row = (static_cast<std::uint64_t>(y) * stepY_) >> 16U;
        const std::int64_t value = component_.data[row * component_.w + column] + offset_;
        return static_cast<int>(std::clamp<std::int64_t>(value, 0, highest_) * 255 / highest_);
    }

 private:
    const opj_image_comp_t& component_;
    std::uint64_t stepX_;
    std::uint64_t stepY_;
    std::int64_t offset_;
    std::int64_t highest_;
};

/// Whether Channel can read all components.
bool isReadable(const opj_image_t& image) {
    return image.numcomps > 0 &&
           std::all_of(image.comps, image.comps + image.numcomps, [](const auto& component) {
               return component.data != nullptr && component.w > 0 && component.h > 0 &&
                      component.prec > 0 && component.prec <= 31;
           });
}

/// Whether the image is YCC, by its colour space or its subsampled second component.
bool isLuminance(const opj_image_t& image) {
    return image.color_space == OPJ_CLRSPC_SYCC ||
           (image.color_space != OPJ_CLRSPC_SRGB && image.numcomps == 3 && image.comps[0].dx == 1 &&
            image.comps[1].dx > 1);
}

QRgb fromLuminance(int luminance, int blueness, int redness) {
    const double blue = blueness - 128;
    const double red = redness - 128;
    const auto byte = [](double value) {
        return static_cast<int>(std::clamp(value + 0.5, 0.0, 255.0));
    };
    return qRgb(byte(luminance + 1.402 * red), byte(luminance - 0.344136 * blue - 0.714136 * red),
                byte(luminance + 1.772 * blue));
}

QRgb fromInks(int cyan, int magenta, int yellow, int black) {
    const auto light = [black](int ink) { return (255 - ink) * (255 - black) / 255; };
    return qRgb(light(cyan), light(magenta), light(yellow));
}

}  // namespace

QImage jpeg2000Pixels(const opj_image_t& image) {
    if (!isReadable(image)) {
        return {};
    }
    std::vector<Channel> channels;
    for (std::size_t number = 0; number < std::min<std::size_t>(image.numcomps, 4); ++number) {
        channels.emplace_back(image, number);
    }
    const bool hasInks = image.color_space == OPJ_CLRSPC_CMYK && channels.size() == 4;
    const bool hasColors = channels.size() >= 3;
    const std::size_t alpha = hasColors ? 3 : 1;
    const bool hasAlpha = !hasInks && channels.size() > alpha;
    const bool hasLuminance = isLuminance(image) && hasColors;
    QImage pixels(static_cast<int>(image.comps[0].w), static_cast<int>(image.comps[0].h),
                  hasAlpha ? QImage::Format_ARGB32 : QImage::Format_RGB32);
    for (int y = 0; y < pixels.height(); ++y) {
        auto* const line = reinterpret_cast<QRgb*>(pixels.scanLine(y));
        for (int x = 0; x < pixels.width(); ++x) {
            const auto value = [&](std::size_t number) { return channels[number].at(x, y); };
            QRgb color = !hasColors     ? qRgb(value(0), value(0), value(0))
                         : hasInks      ? fromInks(value(0), value(1), value(2), value(3))
                         : hasLuminance ? fromLuminance(value(0), value(1), value(2))
                                        : qRgb(value(0), value(1), value(2));
            if (hasAlpha) {
                color = (color & 0x00FFFFFFU) | (static_cast<QRgb>(value(alpha)) << 24U);
            }
            line[x] = color;
        }
    }
    return pixels;
}

}  // namespace tarvin
