#pragma once

#include <QTableView>
#include <QVector>

namespace tarvin {

/// The list of a panel: titles, rows of one height, and no more than what is in view drawn, so that
/// it may have any number of rows. Of its model it reads titles, Qt::DisplayRole, `mutedRole` and
/// `secondLineRole`; a text that is too long is shortened, and the tool tip shows the whole. Main
/// thread.
///
/// The edge between two columns is dragged with the mouse. Return does nothing: it does not press
/// what is default in the panel.
class ListTable : public QTableView {
    Q_OBJECT

 public:
    static constexpr int heightOfHeader = 28;
    static constexpr int heightOfLine = 30;      ///< of rows with one line
    static constexpr int heightOfTwoLines = 44;  ///< of rows with two
    static constexpr int minWidth = 48;          ///< of a column

    /// What is painted in a column.
    enum class Text : std::uint8_t {
        name,          ///< shortened in the middle
        place,         ///< muted, shortened in the middle
        plain,         ///< shortened at the end
        nameAndPlace,  ///< two lines: the text, and the text of `secondLineRole` below it, muted
        wrapped        ///< on up to two lines
    };
    struct Column {
        Text text = Text::plain;
        int width = 0;  ///< logical pixels; 0 for the one column that takes what is left
    };
    enum Role {
        mutedRole = Qt::UserRole + 1,  ///< bool: the text is less important than others
        secondLineRole
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

    const QVector<Column> columns_;
    bool fitting_ = false;  // the widths change by our own hand
};

}  // namespace tarvin
