#pragma once

#include <QObject>
#include <string>

class QAbstractButton;

namespace tarvin {

class ResultScreen;

/// The sort controls of the result screen: pop-up, two toggles and their context menus. None of
/// them changes the order of the rows; they decide how the files of a set are numbered. Owned by
/// ResultViews. Main thread only.
class SortControls final : public QObject {
    Q_OBJECT

 public:
    /// `screen` must outlive this object.
    explicit SortControls(const ResultScreen& screen);

    void popupButtonClicked() { Q_EMIT chosen(); }
    void asscendingDescendingClicked(QAbstractButton& sender);
    void sortByMenuClicked(int tag);
    void sortingOrderMenuClicked(int tag);

    /// Call before a set is numbered. Sets sorting() to "fileCreationDate", replacing the user's
    /// choice, and returns the direction, which is then ascending().
    bool beginNumbering();

    /// The user's last choice of a key; "fileCreationDate" once a set has been numbered.
    [[nodiscard]] const std::string& sorting() const { return sorting_; }
    /// The direction in which the last set was numbered.
    [[nodiscard]] bool ascending() const { return ascending_; }

 Q_SIGNALS:
    /// By the pop-up or a toggle: the files must be numbered again.
    void chosen();
    /// By a context menu: the files must be covered until another set is selected.
    void chosenInMenu();

 private:
    const ResultScreen& screen_;
    std::string sorting_;
    bool ascending_ = false;
};

}  // namespace tarvin
