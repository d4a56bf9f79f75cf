#pragma once

#include <QObject>
#include <QRect>
#include <QSize>
#include <QVector>
#include <initializer_list>

class QWidget;

namespace tarvin {

/// What one axis of a control does with the length that its parent has gained over its design.
struct Growth {
    double moved = 0;      ///< share of the gain by which the beginning moves away
    double stretched = 0;  ///< share of the gain that the control takes for itself
};

inline constexpr Growth atStart{0, 0};          ///< keeps its distance to the left or the top
inline constexpr Growth atEnd{1, 0};            ///< keeps its distance to the right or the bottom
inline constexpr Growth inMiddle{0.5, 0};       ///< keeps its place relative to the middle
inline constexpr Growth stretching{0, 1};       ///< keeps both distances
inline constexpr Growth halfOfGain{0.25, 0.5};  ///< takes half of it, about the middle

/// What is done for a text that needs more height than it was drawn with: a translation, or a font
/// wider than the one of the design.
enum class Fit {
    drawn,         ///< nothing
    taller,        ///< the control grows downwards
    tallerAround,  ///< the control grows about its middle
};

/// Where a control stands in the design, and what becomes of it when its parent grows.
struct Place {
    QRect design;  ///< in a parent of the design's size
    Growth across = atStart;
    Growth down = atStart;
    Fit fit = Fit::drawn;
    /// The horizontal gain is counted in the column instead of in the whole parent.
    bool inColumn = false;
};

/// The middle part of a parent, which grows with it up to a width and then stays centred.
struct Column {
    int width = 0;     ///< in the design, centred
    int maxWidth = 0;  ///< it grows up to this
};

/// Gives each control of one parent its place, at once and whenever the parent's size, a text or
/// the font changes. Belongs to the parent. A parent smaller than the design is treated as if it
/// had the design's size. Lengths are logical pixels. Main thread.
class Placement final : public QObject {
 public:
    Placement(QWidget* parent, QSize design, Column column = {});

    /// Makes `control` a child of the parent. A control that was placed before gets a new place.
    void place(QWidget* control, const Place& place);

    /// Controls placed before that stand side by side, from left to right. One whose text needs
    /// more width than was drawn pushes its neighbours: those to its right if the row keeps to the
    /// left, else those to its left, and the row takes what it needs from `filler`, which stands at
    /// the row's free end.
    void row(std::initializer_list<QWidget*> controls, QWidget* filler = nullptr);

    /// Places all controls anew.
    void apply();

    bool eventFilter(QObject* watched, QEvent* event) override;

 private:
    struct Placed {
        QWidget* control = nullptr;
        Place place;
        QRect now;
    };
    struct Row {
        QVector<int> items;  ///< indices in placed_, in the order in which they make room
        int filler = -1;     ///< index in placed_, or -1
        bool toTheLeft = false;
    };

    [[nodiscard]] int indexOf(const QWidget* control) const;
    [[nodiscard]] QRect grown(const Place& place) const;
    void makeRoom(const Row& row);
    static void makeTaller(Placed& item);

    QWidget* parent_;
    QSize design_;
    Column column_;
    QVector<Placed> placed_;
    QVector<Row> rows_;
};

}  // namespace tarvin
