#include "controller/preview_program.h"

namespace tarvin {

QString previewProgram() {
    return QStringLiteral(TARVIN_IMAGE_PREVIEW);
}

}  // namespace tarvin
