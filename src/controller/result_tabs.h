#pragma once

#include "model/marking.h"

#include <array>

namespace tarvin {

class ResultScreen;
class TabButton;

/// The six views of a result, in the order of their buttons.
inline constexpr std::array allViews{ResultView::all,   ResultView::image,     ResultView::video,
                                     ResultView::audio, ResultView::documents, ResultView::other};

/// The button that shows a view. Main thread only.
[[nodiscard]] TabButton* tabButtonOf(const ResultScreen& screen, ResultView view);

}  // namespace tarvin
