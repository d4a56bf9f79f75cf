#include "controls/images.h"

#include "controls/painting.h"

#include <QCache>
#include <QCoreApplication>
#include <QFile>
#include <QIconEngine>
#include <QLibraryInfo>
#include <QPainter>
#include <QSvgRenderer>
#include <QVersionNumber>
#include <utility>

/// Must be outside every namespace. Without it the linker drops the images from the static library.
static void initDrawings() {
    Q_INIT_RESOURCE(images);
}

namespace tarvin {

namespace {

QString pathOf(const QString& name) {
    [[maybe_unused]] static const bool ready = [] {
        initDrawings();
        return true;
    }();
    QString base = name;
    for (const QLatin1String ending : {QLatin1String(".png"), QLatin1String(".svg")}) {
        if (base.endsWith(ending)) {
            base.chop(ending.size());
            break;
        }
    }
    return QStringLiteral(":/images/") + base + QStringLiteral(".svg");
}

/// Rendered images, by name, size and device pixel ratio. Costs are in KiB; the start image at
/// ratio 2 takes about 6 MiB.
QCache<QString, QPixmap>& cache() {
    constexpr qsizetype limit = 48 * 1024;
    static QCache<QString, QPixmap> pictures = [] {
        // Pixmaps must not outlive the application object.
        qAddPostRoutine([] { cache().clear(); });
        return QCache<QString, QPixmap>(limit);
    }();
    return pictures;
}

QPixmap render(const QString& name, const QSize& logicalSize, double devicePixelRatio) {
    const QString path = pathOf(name);
    if (logicalSize.isEmpty() || devicePixelRatio <= 0 || !QFile::exists(path)) {
        return {};
    }
    QSvgRenderer renderer(path);
    if (!renderer.isValid()) {
        return {};
    }
    renderer.setAspectRatioMode(Qt::KeepAspectRatio);
    QPixmap pixmap((QSizeF(logicalSize) * devicePixelRatio).toSize());
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    renderer.render(&painter, QRectF(pixmap.rect()));
    painter.end();
    pixmap.setDevicePixelRatio(devicePixelRatio);
    return pixmap;
}

/// Renders an image whenever an icon is painted.
class PictureEngine final : public QIconEngine {
 public:
    explicit PictureEngine(QString name) : name_(std::move(name)) {}

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode, QIcon::State) override {
        painter->drawPixmap(rect.topLeft(),
                            picture(name_, rect.size(), devicePixelRatioOf(*painter)));
    }

    QPixmap pixmap(const QSize& size, QIcon::Mode, QIcon::State) override {
        return picture(name_, size, 1.0);
    }

    /// `size` is in device pixels before Qt 6.8, in logical pixels since.
    QPixmap scaledPixmap(const QSize& size, QIcon::Mode, QIcon::State, qreal scale) override {
        const bool isLogical = QLibraryInfo::version() >= QVersionNumber(6, 8);
        return picture(name_, isLogical ? size : (QSizeF(size) / scale).toSize(), scale);
    }

    QList<QSize> availableSizes(QIcon::Mode, QIcon::State) override { return {pictureSize(name_)}; }

    QString iconName() override { return name_; }

    [[nodiscard]] QIconEngine* clone() const override { return new PictureEngine(name_); }

 private:
    QString name_;
};

}  // namespace

QPixmap picture(const QString& name, const QSize& logicalSize, double devicePixelRatio) {
    const QString key = QStringLiteral("%1|%2|%3|%4")
                            .arg(logicalSize.width())
                            .arg(logicalSize.height())
                            .arg(devicePixelRatio)
                            .arg(name);
    if (const QPixmap* known = cache().object(key)) {
        return *known;
    }
    QPixmap pixmap = render(name, logicalSize, devicePixelRatio);
    if (!pixmap.isNull()) {
        const qsizetype bytes = qsizetype{pixmap.width()} * pixmap.height() * pixmap.depth() / 8;
        cache().insert(key, new QPixmap(pixmap), bytes / 1024 + 1);
    }
    return pixmap;
}

QSize pictureSize(const QString& name) {
    const QString path = pathOf(name);
    if (!QFile::exists(path)) {
        return {};
    }
    return QSvgRenderer(path).defaultSize();
}

QIcon pictureIcon(const QString& name) {
    return pictureSize(name).isEmpty() ? QIcon() : QIcon(new PictureEngine(name));
}

}  // namespace tarvin
