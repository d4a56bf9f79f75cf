#pragma once

#include <QListView>
#include <QString>

namespace tarvin {

/// A list of folders in a panel, one in each row of 26: its number if the list has an order, an
/// image and the path, elided in the middle. Reads Qt::DisplayRole, Qt::ToolTipRole and `goneRole`.
/// Return does nothing, so that it does not activate the default button of the panel. Main thread
/// only.
class FolderList final : public QListView {
    Q_OBJECT

 public:
    enum Role {
        goneRole = Qt::UserRole + 1  ///< bool: the folder does not exist now; muted
    };
    static constexpr int heightOfRow = 26;

    explicit FolderList(bool isNumbered, QWidget* parent = nullptr);

    /// The text of a list without rows.
    void setEmptyText(const QString& text);
    [[nodiscard]] const QString& emptyText() const { return emptyText_; }
    [[nodiscard]] bool isNumbered() const { return isNumbered_; }

 Q_SIGNALS:
    /// The Delete key.
    void removePressed();
    /// Alt and Up or Down: by -1 or 1.
    void movePressed(int by);

 protected:
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

 private:
    const bool isNumbered_;
    QString emptyText_;
};

}  // namespace tarvin
