#include "cli/counted.h"

namespace tarvin {

std::string counted(std::uint64_t number, std::string_view noun) {
    return std::to_string(number).append(" ").append(noun).append(number == 1 ? "" : "s");
}

}  // namespace tarvin
