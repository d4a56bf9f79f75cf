#pragma once

#include <gtest/gtest.h>

#include <QDir>
#include <QFileInfo>
#include <QImage>

namespace tarvin {

/// Saves a picture in the folder given by TARVIN_PICTURES, if set. The name may contain a
/// subfolder.
inline void keepPicture(const QImage& image, const QString& name) {
    const QString folder = qEnvironmentVariable("TARVIN_PICTURES");
    if (!folder.isEmpty()) {
        const QString path = QDir(folder).filePath(name + QStringLiteral(".png"));
        QDir().mkpath(QFileInfo(path).path());
        EXPECT_TRUE(image.save(path)) << path.toStdString();
    }
}

}  // namespace tarvin
