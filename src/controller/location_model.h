#pragma once

#include "controller/location_list.h"

#include <QAbstractTableModel>
#include <QPixmap>
#include <QString>
#include <cstddef>
#include <functional>
#include <string>
#include <utility>

namespace tarvin {

/// The location list as its table shows it: a column of locations, "MainCell", and a column of
/// check boxes, "buttonCell". Takes drops of files and folders. Main thread.
class LocationModel final : public QAbstractTableModel, private LocationListObserver {
    Q_OBJECT

 public:
    enum Column { mainCell, buttonCell };

    // Beside the texts and the picture that CustomTableCellView paints.
    enum Role {
        pathBytes = Qt::UserRole + 100,  ///< QByteArray: the exact path
        imageName,      ///< QString: name of the picture of a folder or volume; empty for a file
        thumbnailPath,  ///< QByteArray: the file to make a small picture of; empty for a folder
        isFolder        ///< bool
    };
    // Of the horizontal header.
    static constexpr int identifier = Qt::UserRole;  ///< QString: "MainCell" or "buttonCell"

    /// Gives the small picture of a file that is in the list, by its path, or nothing yet.
    using ThumbnailSource = std::function<QPixmap(const std::string& path)>;

    /// Becomes the observer of `list`, which outlives it.
    explicit LocationModel(LocationList& list, QObject* parent = nullptr);
    ~LocationModel() override;

    /// The header of the column of locations.
    void setHeader(const QString& text);

    /// Asked whenever a file's row is painted, so that it has to answer at once.
    void setThumbnailSource(ThumbnailSource source) { thumbnailSource_ = std::move(source); }
    /// The source has a picture now that it did not have before.
    void thumbnailArrived(const std::string& path);

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    /// In both columns the roles above, the tool tip (the path) and the names for assistive
    /// technology. Texts and picture are the first column's, the check state is the second's.
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    /// Checks or unchecks a row, in the second column.
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation,
                                      int role) const override;
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& index) const override;

    [[nodiscard]] QStringList mimeTypes() const override;
    [[nodiscard]] Qt::DropActions supportedDropActions() const override;
    /// True whatever it is: what cannot be listed is refused when it is dropped.
    [[nodiscard]] bool canDropMimeData(const QMimeData* data, Qt::DropAction action, int row,
                                       int column, const QModelIndex& parent) const override;
    /// Lists the local files and folders among the addresses before the row, or the row dropped on,
    /// or at the end. Text and addresses of other machines change nothing. True if a row was added.
    bool dropMimeData(const QMimeData* data, Qt::DropAction action, int row, int column,
                      const QModelIndex& parent) override;

 Q_SIGNALS:
    /// A person checked or unchecked the row; it is done already.
    void checkButtonClicked(int row);
    /// After each drop, with what became of it.
    void dropped(const tarvin::Addition& addition);

 private:
    void aboutToInsertRows(std::size_t first, std::size_t count) override;
    void rowsInserted() override;
    void aboutToReplaceRows() override;
    void rowsReplaced() override;
    void statesChanged(std::size_t first, std::size_t count) override;

    static constexpr int columns = 2;

    [[nodiscard]] QVariant mainCellData(const LocationRow& row, int role) const;
    [[nodiscard]] QVariant pictureOfFile(const LocationRow& row) const;

    LocationList& list_;
    QString header_;
    ThumbnailSource thumbnailSource_;
};

}  // namespace tarvin
