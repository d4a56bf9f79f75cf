#pragma once

#include <QAbstractListModel>
#include <string>
#include <vector>

namespace tarvin {

/// The folders of a list of "Mark by Rule…", as a model for FolderList. Paths are absolute, native
/// bytes; each is listed once. Main thread only.
class RuleFolders final : public QAbstractListModel {
    Q_OBJECT

 public:
    explicit RuleFolders(QObject* parent = nullptr) : QAbstractListModel(parent) {}

    /// Replaces all. Until setGone() all of them count as existing.
    void setPaths(const std::vector<std::string>& paths);
    [[nodiscard]] std::vector<std::string> paths() const;

    /// Appends a folder, unless it is listed already. Returns its row.
    int add(const std::string& path);
    /// Ignores a row that does not exist.
    void remove(int row);
    /// Moves a row up (-1) or down (1). Returns its new row, or the old one if it cannot be moved.
    int move(int row, int by);

    /// Sets whether a folder is gone; ignores one that is no longer listed.
    void setGone(const std::string& path, bool gone);

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;

 private:
    struct Folder {
        std::string path;
        bool gone = false;
    };

    [[nodiscard]] bool hasRow(int row) const;

    std::vector<Folder> folders_;
};

}  // namespace tarvin
