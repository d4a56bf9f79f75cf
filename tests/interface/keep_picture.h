#pragma once

#include <gtest/gtest.h>

#include <QDir>
#include <QFileInfo>
#include <QImage>

namespace tarvin {

/// Saves a picture in the folder that TARVIN_PICTURES names, for a person to look at. Does nothing
/// if it names none. The name may begin with a folder below that one.
inline void keepPicture(const QImage& image, const QString& name) {
    const QString folder = qEnvironmentVariable("TARVIN_PICTURES");
    if (!folder.isEmpty()) {
        const QString path = QDir(folder).filePath(name + QStringLiteral(".png"));
        QDir().mkpath(QFileInfo(path).path());
        EXPECT_TRUE(image.save(path)) << path.toStdString();
    }
}

}  // namespace tarvin
