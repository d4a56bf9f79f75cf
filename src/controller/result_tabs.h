#pragma once

#include "model/marking.h"

#include <array>
#include <cstddef>

namespace tarvin {

class ResultScreen;
class TabButton;

/// The six views of a result, in the order of their buttons.
inline constexpr std::array allViews{ResultView::all,   ResultView::image,     ResultView::video,
                                     ResultView::audio, ResultView::documents, ResultView::other};

/// The entry of a view in a table in the order of ResultView.
template <class Entry>
[[nodiscard]] constexpr const Entry& ofView(const std::array<Entry, allViews.size()>& table,
                                            ResultView view) {
    return table[static_cast<std::size_t>(view)];
}

/// The button that shows a view. Main thread only.
[[nodiscard]] TabButton* tabButtonOf(const ResultScreen& screen, ResultView view);

}  // namespace tarvin
