#include "controller/preview.h"

#include "controller/file_properties.h"
#include "controller/preview_placeholder.h"
#include "controller/result_texts.h"
#include "controls/elided_label.h"
#include "interface/image_view.h"
#include "interface/main_window.h"
#include "interface/property_text.h"
#include "interface/result_screen.h"

#include <utility>

namespace tarvin {

Preview::Preview(Session& session, Results& results, MainWindow& window, QString previewProgram)
    : session_(session), results_(results), window_(window), pictures_(std::move(previewProgram)) {
    connect(&pictures_, &ImagePreview::measured, this, &Preview::measured);
    connect(&pictures_, &ImagePreview::ready, window_.results->imView, &ImageView::setImage);
}

void Preview::showSelectedImage(const std::string& path) {
    path_ = path;
    size_ = {};
    ImageView& view = *window_.results->imView;
    constexpr int lines = 2;  // frame on both sides of the image
    pictures_.resizeImageAtPath(path, view.width() - lines, view.height() - lines);
    view.setImage(previewPlaceholder(view.devicePixelRatioF()));
    window_.results->selectedPath->setText(ResultTexts::selectedPath(path));
}

void Preview::showSelecteImageProperty(const std::string& path) {
    if (path != path_) {
        path_ = path;
        size_ = {};
    }
    showProperties();
}

void Preview::showProperties() {
    FileSystem& fileSystem = session_.platform.fileSystem();
    window_.results->textField->setText(
        results_.tabs().imageTab ? FileProperties::getImageProperties(fileSystem, path_, size_)
                                 : FileProperties::getAllProperties(fileSystem, path_));
}

void Preview::clear() {
    pictures_.cancel();
    window_.results->imView->setImage({});
    window_.results->selectedPath->setText({});
    window_.results->textField->setText({});
}

void Preview::measured(QSize size) {
    size_ = size;
    if (results_.tabs().imageTab) {
        showProperties();
    }
}

}  // namespace tarvin
