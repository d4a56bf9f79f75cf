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
#include <QTest>
#include <chrono>
#include <cstdlib>
#include <fstream>
#include <string>

namespace tarvin {

/// The number of child processes of this one, zombies included.
inline int childCount() {
    std::ifstream file("/proc/self/task/" + std::to_string(::getpid()) + "/children");
    int count = 0;
    for (std::string number; file >> number;) {
        ++count;
    }
    return count;
}

/// Compares with a tolerance for lossy formats.
inline bool isNear(QColor color, QColor expected) {
    return std::abs(color.red() - expected.red()) < 40 &&
           std::abs(color.green() - expected.green()) < 40 &&
           std::abs(color.blue() - expected.blue()) < 40;
}

/// Previews of files of the test, made by the built preview program.
class ImagePreviewFixture : public ::testing::Test {
 protected:
    // A field with the proportions of the window's, in points.
    static constexpr double fieldWidth = 252;
    static constexpr double fieldHeight = 189;
    // On a loaded machine an image takes longer than a user would wait. The program limits its CPU
    // time all the same.
    static constexpr std::chrono::seconds timeLimit{60};

    void ask(const std::string& path) { preview_.resizeImageAtPath(path, fieldWidth, fieldHeight); }

    /// Waits for the result of the last request: the image; null for nothing().
    QImage answer() {
        const auto limit = static_cast<int>(std::chrono::milliseconds(timeLimit).count());
        EXPECT_TRUE(
            QTest::qWaitFor([this] { return ready_.size() + nothing_.size() > 0; }, 2 * limit));
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
        // The pixel format of most files, so that Qt needs no threads to convert large images.
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
    ImagePreview preview_{previewProgram(), timeLimit};
    QSignalSpy ready_{&preview_, &ImagePreview::ready};
    QSignalSpy nothing_{&preview_, &ImagePreview::nothing};
    QSignalSpy measured_{&preview_, &ImagePreview::measured};
};

}  // namespace tarvin
