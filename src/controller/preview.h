#pragma once

#include "controller/desktop.h"
#include "controller/image_preview.h"
#include "controller/results.h"
#include "controller/session.h"

#include <QImage>
#include <QObject>
#include <QSizeF>
#include <string>

namespace tarvin {

class MainWindow;

/// The task of looking at one file of the selected set: its picture, its path and its properties.
/// The picture keeps its proportions, though its field has others: a stretched photo is hard to
/// tell from another one. Its dimensions are whole pixels, one a point, whatever density the file
/// states: people compare copies by their pixels.
///
/// Owned by AppDelegate; main thread.
class Preview final : public QObject {
    Q_OBJECT

 public:
    /// All outlive it. `previewProgram` is the path of the program that makes the pictures.
    Preview(Session& session, Results& results, MainWindow& window, Desktop& desktop,
            QString previewProgram);

    /// Shows the placeholder at once and the picture, if there is one, when it is made.
    void showSelectedImage(const std::string& path);
    /// With the dimensions of the picture while images are in view; they follow when they are
    /// known, and until then there are none.
    void showSelecteImageProperty(const std::string& path);
    void clear();

    /// Opens the file of a row in the application of its kind. Nobody is told if there is none or
    /// the file is gone; a row that is not there opens nothing.
    void doubleClick(int row);

 private:
    void measured(QSize size);
    void showProperties();

    Session& session_;
    Results& results_;
    MainWindow& window_;
    Desktop& desktop_;
    ImagePreview pictures_;
    std::string path_;  ///< of the file that is shown
    QSizeF size_;       ///< of its picture; empty as long as it is not known
};

}  // namespace tarvin
