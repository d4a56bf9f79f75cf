#include "controller/result_tabs.h"

#include "interface/result_screen.h"

namespace tarvin {

TabButton* tabButtonOf(const ResultScreen& screen, ResultView view) {
    switch (view) {
        case ResultView::all:
            return screen.allButton;
        case ResultView::image:
            return screen.imageButton;
        case ResultView::video:
            return screen.videoButton;
        case ResultView::audio:
            return screen.audioButton;
        case ResultView::documents:
            return screen.documentButton;
        case ResultView::other:
            break;
    }
    return screen.otherButton;
}

}  // namespace tarvin
