#pragma once

#include "interface/result_table.h"
#include "interface/result_tree_view.h"

#include <QStandardItemModel>

namespace tarvin {

/// A model of the result tree: extensions and their sets, each with a state.
class SomeSets final : public QStandardItemModel {
 public:
    SomeSets() { setHorizontalHeaderLabels({QStringLiteral("Mark"), ResultTreeView::title()}); }

    void addExtension(const QString& name, Qt::CheckState state) { appendRow(row(name, state)); }

    /// Below the last extension.
    void addSet(const QString& name, Qt::CheckState state) {
        item(rowCount() - 1)->appendRow(row(name, state));
    }

    [[nodiscard]] QModelIndex extensionAt(int extension) const { return index(extension, 0); }
    [[nodiscard]] QModelIndex setAt(int extension, int set) const {
        return index(set, 0, extensionAt(extension));
    }

 private:
    static QList<QStandardItem*> row(const QString& name, Qt::CheckState state) {
        auto* box = new QStandardItem;
        box->setCheckable(true);
        box->setCheckState(state);
        box->setAccessibleText(QStringLiteral("Mark ") + name);
        return {box, new QStandardItem(name)};
    }
};

/// A model of the files of a set.
class SomeFiles final : public QStandardItemModel {
 public:
    SomeFiles() {
        for (const auto column : {ResultTable::nameText, ResultTable::fileLocation,
                                  ResultTable::fileGroup, ResultTable::ButtonCell}) {
            setHorizontalHeaderItem(column, new QStandardItem(ResultTable::title(column)));
        }
    }

    void add(const QString& name, const QString& location, int set, bool marked) {
        auto* box = new QStandardItem;
        box->setCheckable(true);
        box->setCheckState(marked ? Qt::Checked : Qt::Unchecked);
        box->setAccessibleText(QStringLiteral("Mark ") + name);
        appendRow({new QStandardItem(name), new QStandardItem(location),
                   new QStandardItem(QString::number(set)), box});
    }
};

/// The result shown in the design.
class DrawnResult final {
 public:
    explicit DrawnResult(bool marked) {
        const Qt::CheckState some = marked ? Qt::PartiallyChecked : Qt::Unchecked;
        const Qt::CheckState all = marked ? Qt::Checked : Qt::Unchecked;
        const auto extension = [this](const char* name, Qt::CheckState state) {
            sets.addExtension(QLatin1String(name), state);
        };
        const auto set = [this](int copies, Qt::CheckState state) {
            sets.addSet(QStringLiteral("Set(%1)").arg(copies), state);
        };
        extension("jpg", some);
        set(4, some);
        set(2, all);
        set(1, all);
        extension("png", Qt::Unchecked);
        set(1, Qt::Unchecked);
        extension("mov", all);
        set(1, all);
        extension("mp3", some);
        set(3, all);
        set(1, Qt::Unchecked);
        extension("pdf", some);
        set(2, all);
        set(1, Qt::Unchecked);
        extension("zip", Qt::Unchecked);
        set(1, Qt::Unchecked);
        set(2, Qt::Unchecked);

        const auto file = [this, marked](const char* name, const char* location, bool isMarked) {
            files.add(QLatin1String(name), QLatin1String(location), 1, marked && isMarked);
        };
        file("IMG_2041.jpg", "/Users/me/Pictures/2023 Summer", false);
        file("IMG_2041 copy.jpg", "/Users/me/Pictures/2023 Summer", true);
        file("IMG_2041.jpg", "/Users/me/Desktop/For print", true);
        file("lake-morning.jpg", "/Users/me/Documents/Blog/2023/08/header", false);
        file("IMG_2041.jpg", "/Volumes/Photo Archive/Import/2023-08-14", true);
    }

    /// Removes what was marked, as after a clean-up of a marked result.
    void clean() {
        for (int extension = 0; extension < sets.rowCount(); ++extension) {
            QStandardItem* of = sets.item(extension);
            of->setCheckState(Qt::Unchecked);
            for (int set = 0; set < of->rowCount(); ++set) {
                cleanSet(*of->child(set), *of->child(set, 1));
            }
        }
        for (int file = files.rowCount() - 1; file >= 0; --file) {
            if (files.item(file, ResultTable::ButtonCell)->checkState() == Qt::Checked) {
                files.removeRow(file);
            }
        }
    }

    SomeSets sets;
    SomeFiles files;

 private:
    /// Of the partially marked set one of four copies remains.
    static void cleanSet(QStandardItem& box, QStandardItem& name) {
        if (box.checkState() != Qt::Unchecked) {
            name.setText(box.checkState() == Qt::Checked ? QStringLiteral("Set(0)")
                                                         : QStringLiteral("Set(1)"));
        }
        box.setCheckState(Qt::Unchecked);
    }
};

}  // namespace tarvin
