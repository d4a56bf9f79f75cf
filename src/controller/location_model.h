#pragma once

#include "controller/location_list.h"
#include "interface/location_table.h"

#include <QAbstractTableModel>
#include <QPixmap>
#include <QString>
#include <cstddef>
#include <functional>
#include <string>
#include <utility>

namespace tarvin {

/// Table model of the location list: a column of locations, "MainCell", and a column of check
/// boxes, "buttonCell". Accepts drops of files and folders. Main thread only.
class LocationModel final : public QAbstractTableModel, private LocationListObserver {
    Q_OBJECT

 public:
    using enum LocationTable::Column;

    // Roles besides those of the texts and the image that CustomTableCellView paints.
    enum Role {
        pathBytes = Qt::UserRole + 100,  ///< QByteArray: the exact path
        imageName,      ///< QString: image name of a folder or volume; empty for a file
        thumbnailPath,  ///< QByteArray: the file to make a thumbnail of; empty for a folder
        isFolder        ///< bool
    };
    // Role of the horizontal header.
    static constexpr int identifier = Qt::UserRole;  ///< QString: "MainCell" or "buttonCell"

    /// Returns the thumbnail of a listed file by its path; null while there is none.
    using ThumbnailSource = std::function<QPixmap(const std::string& path)>;

    /// Becomes the observer of `list`, which must outlive this object.
    explicit LocationModel(LocationList& list, QObject* parent = nullptr);
    ~LocationModel() override;

    /// Sets the header of the column of locations.
    void setHeader(const QString& text);

    /// `source` is called whenever a file's row is painted and must not block.
    void setThumbnailSource(ThumbnailSource source) { thumbnailSource_ = std::move(source); }
    /// Call when the source has a new thumbnail.
    void thumbnailArrived(const std::string& path);

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    /// Both columns: the roles above, the path as tool tip, names for assistive technology. First
    /// column: texts and image. Second column: check state.
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    /// Checks or unchecks a row; second column only.
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation,
                                      int role) const override;
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& index) const override;

    [[nodiscard]] QStringList mimeTypes() const override;
    [[nodiscard]] Qt::DropActions supportedDropActions() const override;
    /// Always true: unsupported data is refused when it is dropped.
    [[nodiscard]] bool canDropMimeData(const QMimeData* data, Qt::DropAction action, int row,
                                       int column, const QModelIndex& parent) const override;
    /// Adds the local files and folders among the URLs before the row, before the row dropped on,
    /// or at the end. Ignores text and URLs of other machines. Returns true if a row was added.
    bool dropMimeData(const QMimeData* data, Qt::DropAction action, int row, int column,
                      const QModelIndex& parent) override;

 Q_SIGNALS:
    /// The user checked or unchecked the row. Emitted after the change.
    void checkButtonClicked(int row);
    /// Emitted after each drop.
    void dropped(const tarvin::Addition& addition);

 private:
    void aboutToInsertRows(std::size_t first, std::size_t count) override;
    void rowsInserted() override { endInsertRows(); }
    void aboutToReplaceRows() override { beginResetModel(); }
    void rowsReplaced() override { endResetModel(); }
    void statesChanged(std::size_t first, std::size_t count) override;

    static constexpr int columns = 2;

    [[nodiscard]] QVariant mainCellData(const LocationRow& row, int role) const;
    [[nodiscard]] QVariant pictureOfFile(const LocationRow& row) const;

    LocationList& list_;
    QString header_;
    ThumbnailSource thumbnailSource_;
};

}  // namespace tarvin
