#pragma once

#include <QAbstractScrollArea>
#include <QHeaderView>

namespace tarvin {

/// The header of a list: titles in 12 semi-bold on the header's tint, no lines between the
/// columns. The first columns' titles stand at the left, the others in the middle. Main thread.
class ListHeader final : public QHeaderView {
    Q_OBJECT

 public:
    /// `height` in logical pixels; `indent` is the distance of the first title from the left.
    ListHeader(int height, int indent, QWidget* parent);

    /// How many titles stand at the left; first one. Those after the first are not indented.
    void setTitlesAtLeft(int count);
    /// Has every title at the left stand as far from the beginning of its column as the first.
    void indentAllTitles();
    /// Has the title of one column go over all of them, in place of theirs.
    void setOnlyTitle(int section);

    [[nodiscard]] QSize sizeHint() const override;

    /// Has the band go on above the vertical scroll bar of `list`, which then begins below it.
    void coverScrollBarOf(QAbstractScrollArea* list) const;

    /// The tint and the line at its foot, for a band that goes on beside the header.
    static void paintBackground(QPainter& painter, const QRect& band);

 protected:
    void paintEvent(QPaintEvent* event) override;
    void paintSection(QPainter* painter, const QRect& rect, int section) const override;

 private:
    int height_;
    int indent_;
    int titlesAtLeft_ = 1;
    bool allIndented_ = false;
    int onlyTitle_ = -1;  // the section of it; -1: each has its own
};

}  // namespace tarvin
