#pragma once

#include <QObject>
#include <QRect>
#include <QSize>
#include <QVector>
#include <initializer_list>

class QWidget;

namespace tarvin {

/// How one axis of a control uses the length that its parent has gained over the design.
struct Growth {
    double moved = 0;      ///< share of the gain by which its start moves
    double stretched = 0;  ///< share of the gain by which it grows
};

inline constexpr Growth atStart{0, 0};          ///< keeps its distance to the left or top
inline constexpr Growth atEnd{1, 0};            ///< keeps its distance to the right or bottom
inline constexpr Growth inMiddle{0.5, 0};       ///< keeps its position relative to the middle
inline constexpr Growth stretching{0, 1};       ///< keeps both distances
inline constexpr Growth halfOfGain{0.25, 0.5};  ///< takes half of the gain, centred

/// What to do when a text needs more height than in the design: a translation, or a wider font.
enum class Fit {
    drawn,         ///< nothing
    taller,        ///< the control grows downwards
    tallerAround,  ///< the control grows around its middle
};

/// The geometry of a control in the design, and its behaviour when the parent grows.
struct Place {
    QRect design;  ///< in a parent of the design's size
    Growth across = atStart;
    Growth down = atStart;
    Fit fit = Fit::drawn;
    /// The horizontal gain is that of the column, not of the whole parent.
    bool inColumn = false;
};

/// The middle part of a parent, which grows with it up to a maximum width and then stays centred.
struct Column {
    int width = 0;     ///< in the design, centred
    int maxWidth = 0;  ///< it grows up to this
};

/// Sets the geometry of each control of one parent, at once and whenever the parent's size, a text
/// or the font changes. Owned by the parent. A parent smaller than the design is treated as having
/// the design's size. Lengths are logical pixels. Main thread only.
class Placement final : public QObject {
 public:
    Placement(QWidget* parent, QSize design, Column column = {});

    /// Makes `control` a child of the parent. Further calls replace its geometry.
    void place(QWidget* control, const Place& place);

    /// Declares controls that were placed before to be a row, from left to right. A text that needs
    /// more width than in the design pushes its neighbours: those to its right if the row keeps to
    /// the left, otherwise those to its left. The row takes that width from `filler`, at its free
    /// end.
    void row(std::initializer_list<QWidget*> controls, QWidget* filler = nullptr);

    /// Sets all geometries again.
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
