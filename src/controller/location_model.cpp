#include "controller/location_model.h"

#include "controller/dropped_paths.h"
#include "controller/location_folders.h"
#include "controller/location_texts.h"
#include "controller/path_text.h"
#include "controls/custom_table_cell_view.h"
#include "controls/images.h"
#include "controls/plain_text.h"

#include <QByteArray>
#include <QIcon>
#include <QMimeData>
namespace tarvin {

namespace {

QString titleOf(const LocationRow& row) {
    return textOfPath(lastPathComponent(row.name));
}

QString imageNameOf(const LocationRow& row) {
    if (!row.folder) {
        return {};
    }
    return row.image.empty() ? QStringLiteral("folder.png") : QString::fromStdString(row.image);
}

/// The data that both cells of a row share.
QVariant rowData(const LocationRow& row, int role) {
    switch (role) {
        case Qt::ToolTipRole:
            return plainToolTip(textOfPath(row.name));
        case LocationModel::pathBytes:
            return QByteArray::fromStdString(row.name);
        case LocationModel::imageName:
            return imageNameOf(row);
        case LocationModel::thumbnailPath:
            return row.folder ? QByteArray() : QByteArray::fromStdString(row.name);
        case LocationModel::isFolder:
            return row.folder;
        default:
            return {};
    }
}

QVariant buttonCellData(const LocationRow& row, int role) {
    switch (role) {
        case Qt::CheckStateRole:
            return row.state ? Qt::Checked : Qt::Unchecked;
        case Qt::AccessibleTextRole:
            return LocationTexts::checkBoxName(titleOf(row));
        default:
            return rowData(row, role);
    }
}

}  // namespace

LocationModel::LocationModel(LocationList& list, QObject* parent)
    : QAbstractTableModel(parent), list_(list) {
    list_.setObserver(this);
}

LocationModel::~LocationModel() {
    list_.setObserver(nullptr);
}

void LocationModel::setHeader(const QString& text) {
    header_ = text;
    Q_EMIT headerDataChanged(Qt::Horizontal, mainCell, mainCell);
}

void LocationModel::thumbnailArrived(const std::string& path) {
    for (std::size_t row = 0; row < list_.rows().size(); ++row) {
        if (!list_.rows()[row].folder && list_.rows()[row].name == path) {
            const QModelIndex cell = index(static_cast<int>(row), mainCell);
            Q_EMIT dataChanged(cell, cell, {Qt::DecorationRole});
        }
    }
}

int LocationModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(list_.rows().size());
}

int LocationModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : columns;
}

QVariant LocationModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid() || !checkIndex(index)) {
        return {};
    }
    const LocationRow& row = list_.rows()[static_cast<std::size_t>(index.row())];
    return index.column() == mainCell ? mainCellData(row, role) : buttonCellData(row, role);
}

bool LocationModel::setData(const QModelIndex& index, const QVariant& value, int role) {
    if (!index.isValid() || !checkIndex(index) || index.column() != buttonCell ||
        role != Qt::CheckStateRole) {
        return false;
    }
    list_.checkButtonExactFirstpage(static_cast<std::size_t>(index.row()),
                                    value.toInt() == Qt::Checked);
    Q_EMIT checkButtonClicked(index.row());
    return true;
}

QVariant LocationModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || section < 0 || section >= columns) {
        return {};
    }
    switch (role) {
        case Qt::DisplayRole:
            return section == mainCell ? header_ : LocationTexts::checkHeader();
        case identifier:
            return section == mainCell ? QStringLiteral("MainCell") : QStringLiteral("buttonCell");
        default:
            return {};
    }
}

Qt::ItemFlags LocationModel::flags(const QModelIndex& index) const {
    const Qt::ItemFlags flags = QAbstractTableModel::flags(index) | Qt::ItemIsDropEnabled;
    return index.isValid() && index.column() == buttonCell ? flags | Qt::ItemIsUserCheckable
                                                           : flags;
}

QStringList LocationModel::mimeTypes() const {
    return {QStringLiteral("text/uri-list")};
}

Qt::DropActions LocationModel::supportedDropActions() const {
    return Qt::CopyAction | Qt::MoveAction | Qt::LinkAction;
}

bool LocationModel::canDropMimeData(const QMimeData* /*data*/, Qt::DropAction /*action*/,
                                    int /*row*/, int /*column*/,
                                    const QModelIndex& /*parent*/) const {
    return true;
}

bool LocationModel::dropMimeData(const QMimeData* data, Qt::DropAction /*action*/, int row,
                                 int /*column*/, const QModelIndex& parent) {
    if (row < 0) {
        row = parent.isValid() ? parent.row() : rowCount();
    }
    const Addition addition = list_.acceptDrop(static_cast<std::size_t>(row), droppedPaths(*data));
    Q_EMIT dropped(addition);
    return addition.rows > 0;
}

QVariant LocationModel::mainCellData(const LocationRow& row, int role) const {
    switch (role) {
        case Qt::DisplayRole:
            return textOfPath(row.name);
        case Qt::DecorationRole:
            return row.folder ? QVariant(pictureIcon(imageNameOf(row))) : pictureOfFile(row);
        case CustomTableCellView::additionalTextCountRole:
        case Qt::AccessibleTextRole:
            return titleOf(row);
        case CustomTableCellView::additionalTextRole:
            return QString::fromStdString(row.size);
        default:
            return rowData(row, role);
    }
}

/// The thumbnail; a generic photo image while there is none.
QVariant LocationModel::pictureOfFile(const LocationRow& row) const {
    const QPixmap thumbnail = thumbnailSource_ ? thumbnailSource_(row.name) : QPixmap();
    return thumbnail.isNull() ? QVariant(pictureIcon(QStringLiteral("image_info")))
                              : QVariant(thumbnail);
}

void LocationModel::aboutToInsertRows(std::size_t first, std::size_t count) {
    beginInsertRows({}, static_cast<int>(first), static_cast<int>(first + count - 1));
}

void LocationModel::statesChanged(std::size_t first, std::size_t count) {
    Q_EMIT dataChanged(index(static_cast<int>(first), buttonCell),
                       index(static_cast<int>(first + count - 1), buttonCell),
                       {Qt::CheckStateRole});
}

}  // namespace tarvin
