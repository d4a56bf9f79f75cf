#include "interface/folder_list.h"

#include "controls/images.h"
#include "controls/look.h"
#include "controls/painting.h"
#include "controls/row_painter.h"
#include "interface/list_setup.h"

#include <QKeyEvent>
#include <QPainter>
#include <QStyledItemDelegate>

namespace tarvin {

namespace {

constexpr int folderPadding = 12;
constexpr int numberEnd = 24;
constexpr int numberedIndent = 20;  // of the image and the path
constexpr QSize folderImage{18, 18};
constexpr int folderPathLeft = 37;
constexpr double disabledOpacity = 0.45;

class FolderListDelegate final : public QStyledItemDelegate {
 public:
    explicit FolderListDelegate(FolderList& list) : QStyledItemDelegate(&list), list_(list) {}

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override {
        painter->save();
        paintRow(*painter, option, index);
        if (!list_.isEnabled()) {
            painter->setOpacity(disabledOpacity);
        }
        const QRect& row = option.rect;
        int left = row.left();
        if (list_.isNumbered()) {
            paintLine(*painter, {left, row.top(), numberEnd, row.height()},
                      QString::number(index.row() + 1), look::font(13), look::muted,
                      Qt::AlignRight);
            left += numberedIndent;
        }
        painter->drawPixmap(
            QPoint(left + folderPadding, row.top() + (row.height() - folderImage.height()) / 2),
            picture(QStringLiteral("folder"), folderImage, devicePixelRatioOf(*painter)));
        left += folderPathLeft;
        const bool isGone = index.data(FolderList::goneRole).toBool();
        paintLine(*painter, {left, row.top(), row.right() + 1 - folderPadding - left, row.height()},
                  index.data().toString(), look::font(13), isGone ? look::muted : look::ink,
                  Qt::AlignLeft, Qt::ElideMiddle);
        painter->restore();
    }

    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& /*option*/,
                                 const QModelIndex& /*index*/) const override {
        return {100, FolderList::heightOfRow};
    }

 private:
    const FolderList& list_;
};

}  // namespace

FolderList::FolderList(bool isNumbered, QWidget* parent)
    : QListView(parent), isNumbered_(isNumbered) {
    setUpList(*this);
    setUniformItemSizes(true);
    setItemDelegate(new FolderListDelegate(*this));
}

void FolderList::setEmptyText(const QString& text) {
    emptyText_ = text;
    viewport()->update();
}

void FolderList::keyPressEvent(QKeyEvent* event) {
    const bool movesRow = event->modifiers().testFlag(Qt::AltModifier);
    switch (event->key()) {
        case Qt::Key_Return:
        case Qt::Key_Enter:
            return;
        case Qt::Key_Escape:
            event->ignore();  // the panel handles it
            return;
        case Qt::Key_Delete:
            Q_EMIT removePressed();
            return;
        case Qt::Key_Up:
        case Qt::Key_Down:
            if (movesRow) {
                Q_EMIT movePressed(event->key() == Qt::Key_Up ? -1 : 1);
                return;
            }
            break;
        default:
            break;
    }
    QListView::keyPressEvent(event);
}

void FolderList::paintEvent(QPaintEvent* event) {
    QListView::paintEvent(event);
    if (model() != nullptr && model()->rowCount() > 0) {
        return;
    }
    QPainter painter(viewport());
    painter.setOpacity(isEnabled() ? 1.0 : disabledOpacity);
    paintLine(painter, {folderPadding, 0, viewport()->width() - 2 * folderPadding, heightOfRow},
              emptyText_, look::font(13), look::muted);
}

}  // namespace tarvin
