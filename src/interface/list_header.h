#pragma once

#include <QAbstractScrollArea>
#include <QHeaderView>

namespace tarvin {

/// The header of a list: titles in 12 pixels, semi-bold, on a tinted band, without lines between
/// the columns. The first columns' titles are aligned left, the others centred. Main thread only.
class ListHeader final : public QHeaderView {
    Q_OBJECT

 public:
    /// `height` in logical pixels; `indent` is the distance of the first title from the left.
    ListHeader(int height, int indent, QWidget* parent);

    /// The number of titles aligned left; 1 by default. Those after the first are not indented.
    void setTitlesAtLeft(int count);
    /// Indents every left-aligned title like the first one.
    void indentAllTitles();
    /// Shows the title of one column across all of them.
    void setOnlyTitle(int section);

    [[nodiscard]] QSize sizeHint() const override;

    /// Continues the band above the vertical scroll bar of `list`, which then begins below it.
    void coverScrollBarOf(QAbstractScrollArea* list) const;

    /// Paints the tint and the bottom line, for a band beside the header.
    static void paintBackground(QPainter& painter, const QRect& band);

 protected:
    void paintEvent(QPaintEvent* event) override;
    void paintSection(QPainter* painter, const QRect& rect, int section) const override;

 private:
    int height_;
    int indent_;
    int titlesAtLeft_ = 1;
    bool allIndented_ = false;
    int onlyTitle_ = -1;  // the section; -1: each has its own title
};

}  // namespace tarvin
