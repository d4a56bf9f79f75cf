#pragma once

#include <QWidget>

namespace tarvin {

/// The teal frame around the tree of results. Owned by its parent. Main thread only.
class ViewBackgroundTree final : public QWidget {
    Q_OBJECT

 public:
    explicit ViewBackgroundTree(QWidget* parent = nullptr);

 protected:
    void paintEvent(QPaintEvent* event) override;
};

}  // namespace tarvin
