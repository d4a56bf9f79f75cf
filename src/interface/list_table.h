#pragma once

#include <QTableView>
#include <QVector>

namespace tarvin {

/// The list of a panel, with titles and rows of one height. Paints only the rows in view, so the
/// number of rows does not matter. Reads titles, Qt::DisplayRole and the roles below from its
/// model. A text that is too long is elided, and its tool tip shows the whole text. Main thread
/// only.
///
/// The user can drag the edge between two columns; Alt+Left and Alt+Right move the first edge, with
/// Shift the second. Return does nothing, so that it does not
/// activate the default button of the panel.
class ListTable : public QTableView {
    Q_OBJECT

 public:
    static constexpr int heightOfHeader = 28;
    static constexpr int heightOfLine = 30;      ///< of rows with one line
    static constexpr int heightOfTwoLines = 44;  ///< of rows with two
    static constexpr int minWidth = 48;          ///< of a column

    /// How a column shows its text.
    enum class Text : std::uint8_t {
        name,         ///< elided in the middle
        path,         ///< muted, elided in the middle
        plain,        ///< elided at the end
        nameAndPath,  ///< two lines: the text, and the text of `secondLineRole` below it, muted
        wrapped       ///< on up to two lines
    };
    struct Column {
        Text text = Text::plain;
        int width = 0;  ///< logical pixels; 0 for the one column that takes the remaining width
    };
    enum Role {
        mutedRole = Qt::UserRole + 1,  ///< bool: paint the text muted
        secondLineRole,
        pictureRole,  ///< name of an image to paint before the text of a `name` column
        markRole  ///< QString: a short remark at the right of a column of the kind `path`, muted
    };

    ListTable(const QVector<Column>& columns, int heightOfRows, QWidget* parent = nullptr);

    [[nodiscard]] const QVector<Column>& columns() const { return columns_; }
    void setModel(QAbstractItemModel* model) override;

 protected:
    void resizeEvent(QResizeEvent* event) override;
    bool viewportEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

 private:
    void fitColumns();
    void moveEdge(int section, int before, int now);
    [[nodiscard]] bool moveEdgeByKey(const QKeyEvent& event);

    const QVector<Column> columns_;
    bool fitting_ = false;  // the list itself is changing the widths
};

}  // namespace tarvin
