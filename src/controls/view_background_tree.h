#pragma once

#include <QWidget>

namespace tarvin {

/// The teal frame in which the tree of results lies. Owned by its parent; main thread.
class ViewBackgroundTree final : public QWidget {
    Q_OBJECT

 public:
    explicit ViewBackgroundTree(QWidget* parent = nullptr);

 protected:
    void paintEvent(QPaintEvent* event) override;
};

}  // namespace tarvin
