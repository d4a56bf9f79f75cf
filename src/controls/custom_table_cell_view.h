#pragma once

#include <QIcon>
#include <QModelIndex>
#include <QPainter>
#include <QRect>
#include <QString>

namespace tarvin {

/// The content of one row of the location list in its wide column, as a value that the delegate
/// creates for each row it paints: ten thousand rows would be too many widgets.
class CustomTableCellView final {
 public:
    /// The roles of these texts. The path is Qt::DisplayRole; the image, a QIcon or a QPixmap, is
    /// Qt::DecorationRole.
    enum Role {
        additionalTextCountRole = Qt::UserRole + 1,  ///< QString: the last part of the path
        additionalTextRole                           ///< QString: the size of a file, else empty
    };

    CustomTableCellView() = default;
    /// Reads the roles of one row.
    explicit CustomTableCellView(const QModelIndex& index);

    void setTextField(const QString& path) { textField_ = path; }
    [[nodiscard]] const QString& textField() const { return textField_; }

    void setAdditionalText(const QString& text) { additionalText_ = text; }
    [[nodiscard]] const QString& additionalText() const { return additionalText_; }

    void setAdditionalTextCount(const QString& text) { additionalTextCount_ = text; }
    [[nodiscard]] const QString& additionalTextCount() const { return additionalTextCount_; }

    /// Kept for its owner; not painted.
    void setFileName(const QString& fileName) { fileName_ = fileName; }
    [[nodiscard]] const QString& fileName() const { return fileName_; }

    void setImage(const QIcon& image) { image_ = image; }
    [[nodiscard]] const QIcon& image() const { return image_; }

    /// Paints the image, 40 x 40 at (16, 8), and the three texts. A row without an image shows a
    /// folder. The background is painted elsewhere.
    void paint(QPainter& painter, const QRect& cell) const;

 private:
    void paintImage(QPainter& painter, const QRect& area) const;

    QString textField_;
    QString additionalText_;
    QString additionalTextCount_;
    QString fileName_;
    QIcon image_;
};

}  // namespace tarvin
