#pragma once

#include "controls/button_hover_simple.h"
#include "interface/result_screen.h"
#include "interface/save_screenshot.h"
#include "interface/screenshot_parts.h"
#include "interface/shown_window.h"

namespace tarvin {

/// Compares screenshots of the window, at device pixel ratios 1 and 2, with reference images. If
/// the environment variable TARVIN_SAVE_SCREENSHOTS is set, also saves them in the folder that it
/// names; TARVIN_SAVE_SCREENSHOTS=tests/interface/reference_images updates the references.
class WindowScreenshots : public ShownWindow {
 protected:
    WindowScreenshots() {
        const QIcon normal = pictureIcon(QStringLiteral("Home Normal.png"));
        const QIcon hover = pictureIcon(QStringLiteral("Home Hover.png"));
        window.locations->buttonHomeExactPage->setImageNormal(normal, hover, normal, normal);
        window.results->buttonHomePage->setImageNormal(normal, hover, normal, normal);
    }

    /// The path in the folder of reference images.
    static QString nameAt(double ratio, const QString& name) {
        return ratio > 1 ? QStringLiteral("2x/") + name : name;
    }

    QImage at(double ratio, const QString& name) {
        const QImage image = rendered(ratio);
        saveScreenshot(image, nameAt(ratio, name));
        expectAsReference(image, nameAt(ratio, name));
        EXPECT_EQ(changedParts(window, image, reference(nameAt(ratio, name))), "")
            << nameAt(ratio, name).toStdString();
        return image;
    }

    QImage rendered(double ratio) {
        QImage image((QSizeF(window.size()) * ratio).toSize(), QImage::Format_RGB32);
        image.setDevicePixelRatio(ratio);
        window.render(&image);
        return image;
    }

    /// Compares both screenshots with the reference images, and with each other: where the smaller
    /// one is flat, the larger one must have the same colour.
    void take(const QString& name) {
        // Lists lay out after their models have changed.
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

    static QImage reference(const QString& name) {
        return QImage(QStringLiteral(TARVIN_REFERENCE_IMAGES "/") + name + QStringLiteral(".png"))
            .convertToFormat(QImage::Format_RGB32);
    }

    /// Compares the whole screenshot, loosely: another version of a font or of Qt may paint the
    /// edges of letters differently. changedParts() compares the controls.
    static void expectAsReference(const QImage& image, const QString& name) {
        constexpr double maxShare = 0.005;
        const QImage expected = reference(name);
        ASSERT_EQ(expected.size(), image.size()) << name.toStdString();
        EXPECT_LE(countDifferent(image, expected, image.rect(), textTolerance),
                  maxShare * image.width() * image.height())
            << name.toStdString();
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
