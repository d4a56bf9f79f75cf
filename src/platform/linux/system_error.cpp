#include "platform/result.h"

#include <system_error>

namespace tarvin {

std::string SystemError::text() const {
    return std::generic_category().message(code);
}

}  // namespace tarvin
