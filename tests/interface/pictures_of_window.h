#pragma once

#include "controls/button_hover_simple.h"
#include "interface/keep_picture.h"
#include "interface/result_screen.h"
#include "interface/shown_window.h"

#include <cstdlib>

namespace tarvin {

/// Every screen and state at one and at two pixels to the logical pixel, held beside the stored
/// ones. They are kept in the folder that TARVIN_PICTURES names, if it names one: with
/// TARVIN_PICTURES=tests/interface/pictures they become the stored ones.
class PicturesOfWindow : public ShownWindow {
 protected:
    PicturesOfWindow() {
        const QIcon normal = pictureIcon(QStringLiteral("Home Normal.png"));
        const QIcon hover = pictureIcon(QStringLiteral("Home Hover.png"));
        window.locations->buttonHomeExactPage->setImageNormal(normal, hover, normal, normal);
        window.results->buttonHomePage->setImageNormal(normal, hover, normal, normal);
    }

    /// The name below the folder of pictures.
    static QString nameAt(double density, const QString& name) {
        return density > 1 ? QStringLiteral("2x/") + name : name;
    }

    QImage at(double density, const QString& name) {
        QImage image((QSizeF(window.size()) * density).toSize(), QImage::Format_RGB32);
        image.setDevicePixelRatio(density);
        window.render(&image);
        keepPicture(image, nameAt(density, name));
        expectAsStored(image, nameAt(density, name));
        return image;
    }

    /// Takes both pictures. The larger one shows the same, and more of it: where the smaller one
    /// is flat, the larger has the same colour.
    void take(const QString& name) {
        // Lists lay themselves out later than their models change.
        QCoreApplication::processEvents();
        const QImage once = at(1, name);
        const QImage twice = at(2, name);
        ASSERT_EQ(twice.size(), once.size() * 2);
        int compared = 0;
        for (int y = 4; y < once.height() - 4; y += 7) {
            for (int x = 4; x < once.width() - 4; x += 7) {
                if (isFlat(once, x, y)) {
                    ASSERT_EQ(once.pixel(x, y), twice.pixel(2 * x, 2 * y)) << x << ' ' << y;
                    ++compared;
                }
            }
        }
        EXPECT_GT(compared, 1000);
    }

    /// Another version of a font or of Qt may paint the edges of letters otherwise; what moves,
    /// changes its colour or is missing touches more pixels than that.
    static void expectAsStored(const QImage& image, const QString& name) {
        constexpr double mostThatMayDiffer = 0.005;
        const QImage stored =
            QImage(QStringLiteral(TARVIN_STORED_PICTURES "/") + name + QStringLiteral(".png"))
                .convertToFormat(QImage::Format_RGB32);
        ASSERT_EQ(stored.size(), image.size()) << name.toStdString();
        int different = 0;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                different += isFar(image.pixel(x, y), stored.pixel(x, y)) ? 1 : 0;
            }
        }
        EXPECT_LE(different, mostThatMayDiffer * image.width() * image.height())
            << name.toStdString() << " is another picture";
    }

    static bool isFar(QRgb one, QRgb other) {
        constexpr int near = 40;
        return std::abs(qRed(one) - qRed(other)) > near ||
               std::abs(qGreen(one) - qGreen(other)) > near ||
               std::abs(qBlue(one) - qBlue(other)) > near;
    }

    static bool isFlat(const QImage& image, int x, int y) {
        for (int dy = -3; dy <= 3; ++dy) {
            for (int dx = -3; dx <= 3; ++dx) {
                if (image.pixel(x + dx, y + dy) != image.pixel(x, y)) {
                    return false;
                }
            }
        }
        return true;
    }
};

}  // namespace tarvin
