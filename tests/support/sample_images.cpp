#include "support/sample_images.h"

namespace tarvin {

std::string sampleImage(const std::string& name) {
    return std::string(TARVIN_SAMPLE_IMAGES) + '/' + name;
}

}  // namespace tarvin
