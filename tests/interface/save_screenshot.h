#pragma once

#include <gtest/gtest.h>

#include <QDir>
#include <QFileInfo>
#include <QImage>

namespace tarvin {

/// Saves a screenshot in the folder given by TARVIN_SAVE_SCREENSHOTS, if set. The name may contain
/// a subfolder.
inline void saveScreenshot(const QImage& image, const QString& name) {
    const QString folder = qEnvironmentVariable("TARVIN_SAVE_SCREENSHOTS");
    if (!folder.isEmpty()) {
        const QString path = QDir(folder).filePath(name + QStringLiteral(".png"));
        QDir().mkpath(QFileInfo(path).path());
        EXPECT_TRUE(image.save(path)) << path.toStdString();
    }
}

}  // namespace tarvin
