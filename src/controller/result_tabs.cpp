#include "controller/result_tabs.h"

#include "interface/result_screen.h"

namespace tarvin {

TabButton* tabButtonOf(const ResultScreen& screen, ResultView view) {
    static constexpr std::array buttons{&ResultScreen::allButton,      &ResultScreen::imageButton,
                                        &ResultScreen::audioButton,    &ResultScreen::videoButton,
                                        &ResultScreen::documentButton, &ResultScreen::otherButton};
    return screen.*ofView(buttons, view);
}

}  // namespace tarvin
