#pragma once

#include "controller/image_preview.h"
#include "controller/results.h"
#include "controller/session.h"

#include <QImage>
#include <QObject>
#include <QSizeF>
#include <string>

namespace tarvin {

class MainWindow;

/// Shows one file of the selected set: its preview, path and properties. The preview keeps its
/// proportions, because stretched photos are hard to compare. Dimensions are given in pixels,
/// independent of the resolution in the file, because users compare copies by pixels.
///
/// Owned by AppDelegate. Main thread only.
class Preview final : public QObject {
    Q_OBJECT

 public:
    /// The referenced objects must outlive this one. `previewProgram` is the path of the preview
    /// program.
    Preview(Session& session, Results& results, MainWindow& window, QString previewProgram);

    /// Shows the placeholder, and the preview as soon as it is ready, if there is one.
    void showSelectedImage(const std::string& path);
    /// In the image view the dimensions are included once they are known.
    void showSelecteImageProperty(const std::string& path);
    void clear();

 private:
    void measured(QSize size);
    void showProperties();

    Session& session_;
    Results& results_;
    MainWindow& window_;
    ImagePreview pictures_;
    std::string path_;  ///< of the file shown
    QSizeF size_;       ///< of its image; empty while unknown
};

}  // namespace tarvin
