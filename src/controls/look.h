#pragma once

#include <QColor>
#include <QFont>

/// The colours and fonts of all screens. Sizes are logical pixels. Main thread only.
namespace tarvin::look {

inline constexpr QColor topBar{31, 100, 134};       ///< bar over every screen, folder tile
inline constexpr QColor panelBlue{30, 115, 165};    ///< home background, dialog headers, Add, Pause
inline constexpr QColor teal{0, 155, 178};          ///< shapes and glyphs only, never small text
inline constexpr QColor buttonTeal{21, 138, 162};   ///< answer buttons of dialogs
inline constexpr QColor deepTeal{14, 116, 138};     ///< Scan, drive tile, check marks, active line
inline constexpr QColor activeTab{11, 97, 115};     ///< text of the active tab
inline constexpr QColor activeTint{230, 244, 247};  ///< background of the active tab and of toggles
inline constexpr QColor deleteRed{176, 58, 54};     ///< Delete only
inline constexpr QColor slate{79, 100, 114};        ///< Stop
inline constexpr QColor barGray{193, 193, 193};     ///< action bar; its texts must be ink
inline constexpr QColor ink{20, 36, 46};
inline constexpr QColor muted{74, 91, 102};  ///< second lines; not on the action bar
inline constexpr QColor disabledText{138, 151, 159};
inline constexpr QColor page{243, 246, 248};
inline constexpr QColor surface{255, 255, 255};
inline constexpr QColor header{233, 239, 242};
inline constexpr QColor line{213, 221, 226};
inline constexpr QColor frame{197, 207, 213};
inline constexpr QColor controlLine{107, 124, 135};  ///< check boxes, outlines of buttons
inline constexpr QColor rowLine{230, 235, 238};      ///< below each row of a list
inline constexpr QColor rowHover{238, 246, 248};
inline constexpr QColor rowSelected{217, 239, 243};
inline constexpr QColor treeSelected{191, 227, 234};
inline constexpr QColor noticeFrame{80, 148, 184};
inline constexpr QColor noticeBand{105, 193, 243};
inline constexpr QColor noticeFoot{223, 223, 223};
inline constexpr QColor noticeHover{221, 237, 252};
inline constexpr QColor noticeButtonLine{53, 152, 252};
inline constexpr QColor noticeButtonLineHover{126, 180, 234};
inline constexpr QColor focusRing{10, 58, 82};

/// The width of the outline of a list or a panel, in logical pixels.
inline constexpr int frameLine = 1;
/// The opacity of a hovered control.
inline constexpr double hoverAlpha = 0.7;

/// The interface font of the platform at a size in pixels.
[[nodiscard]] QFont font(int pixelSize, QFont::Weight weight = QFont::Normal);

/// A font with the metrics of Helvetica, for texts with columns aligned with spaces.
[[nodiscard]] QFont propertyFont();

}  // namespace tarvin::look
