#pragma once

#include "controller/image_preview.h"
#include "controller/preview_program.h"
#include "support/file_tree.h"
#include "support/waiting.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <QColor>
#include <QCoreApplication>
#include <QFile>
#include <QImage>
#include <QImageWriter>
#include <QPainter>
#include <QSignalSpy>
#include <chrono>
#include <cstdlib>
#include <fstream>
#include <string>

namespace tarvin {

/// The processes that this one has started and that have not ended, or have not been waited for.
inline int childCount() {
    std::ifstream file("/proc/self/task/" + std::to_string(::getpid()) + "/children");
    int count = 0;
    for (std::string number; file >> number;) {
        ++count;
    }
    return count;
}

/// Red or blue, where nothing but a lossy format stands between.
inline bool isNear(QColor color, QColor expected) {
    return std::abs(color.red() - expected.red()) < 40 &&
           std::abs(color.green() - expected.green()) < 40 &&
           std::abs(color.blue() - expected.blue()) < 40;
}

/// Previews by the program that was built, of files of a test's own.
class ImagePreviewFixture : public ::testing::Test {
 protected:
    // A field of the window's proportions, in points.
    static constexpr double fieldWidth = 252;
    static constexpr double fieldHeight = 189;

    void ask(const std::string& path) { preview_.resizeImageAtPath(path, fieldWidth, fieldHeight); }

    /// Waits for an answer to the last request: the image, null for nothing.
    QImage answer() {
        EXPECT_TRUE(waitUntil([this] {
            QCoreApplication::processEvents();
            return ready_.size() + nothing_.size() > 0;
        }));
        return ready_.isEmpty() ? QImage() : ready_.takeFirst()[0].value<QImage>();
    }

    QImage previewOf(const std::string& path) {
        ready_.clear();
        nothing_.clear();
        measured_.clear();
        ask(path);
        return answer();
    }

    [[nodiscard]] QSize measured() const {
        return measured_.size() == 1 ? measured_[0][0].toSize() : QSize();
    }

    /// An image of two halves, left red and right blue.
    std::string writeImage(const std::string& name, QSize size, const char* format) {
        // What most formats hold, so that large ones need no threads of Qt's to convert them.
        QImage image(size, QImage::Format_RGB888);
        image.fill(Qt::red);
        QPainter(&image).fillRect(size.width() / 2, 0, size.width(), size.height(), Qt::blue);
        std::string path = tree_.pathOf(name);
        QFile file(QString::fromStdString(path));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        EXPECT_TRUE(QImageWriter(&file, format).write(image));
        return path;
    }

    FileTree tree_;
#ifdef TARVIN_SANITIZED
    // The program takes several times as long; less than a test waits.
    ImagePreview preview_{previewProgram(), std::chrono::seconds(18)};
#else
    ImagePreview preview_{previewProgram()};
#endif
    QSignalSpy ready_{&preview_, &ImagePreview::ready};
    QSignalSpy nothing_{&preview_, &ImagePreview::nothing};
    QSignalSpy measured_{&preview_, &ImagePreview::measured};
};

}  // namespace tarvin
