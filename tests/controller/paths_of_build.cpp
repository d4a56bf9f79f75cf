#include "controller/paths_of_build.h"

namespace tarvin {

std::string updaterProgramPath() {
    return TARVIN_UPDATER;
}

std::string urlReaderPath() {
    return TARVIN_URL_READER;
}

std::string installedUrlsPath() {
    return TARVIN_URLS;
}

}  // namespace tarvin
