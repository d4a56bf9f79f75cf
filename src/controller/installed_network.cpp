#include "controller/installed_network.h"

#include "controller/resource_files.h"

#include <QPluginLoader>

namespace tarvin {

NetworkAccess* installedNetwork() {
#ifdef Q_OS_DARWIN
    static QPluginLoader loader(helperLibrary(QStringLiteral("tarvin-network.dylib")));
#else
    static QPluginLoader loader(helperLibrary(QStringLiteral("tarvin-network.so")));
#endif
    return loader.fileName().isEmpty() ? nullptr : qobject_cast<NetworkAccess*>(loader.instance());
}

}  // namespace tarvin
