#include "cli/messages.h"

#include "cli/display.h"
#include "cli/output.h"
#include "text/shown_name.h"

#include <unistd.h>

#include <string>

namespace tarvin {

void complain(std::string_view text) {
    Output output(STDERR_FILENO);
    const bool isColored = displayOf(STDERR_FILENO).isColored;
    output.append(isColored ? red : "");
    output.append("tarvin:");
    output.append(isColored ? plain : "");
    output.append(" ");
    output.append(text);
    output.append("\n");
    output.flush();
}

void complainAbout(std::string_view path, std::string_view reason) {
    complain(shownName(path).append(": ").append(reason));
}

void complainOf(const StoreError& error) {
    if (error.path.empty()) {
        complain(error.text);
    } else {
        complainAbout(error.path, error.text);
    }
}

void complainPutAside(std::string_view path, std::string_view aside) {
    complainAbout(
        path, "could not be used; it is kept as " + shownName(aside) + " and a new one was begun");
}

}  // namespace tarvin
