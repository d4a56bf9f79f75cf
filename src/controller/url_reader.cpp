#include "controller/url_reader.h"

#include <QEventLoop>
#include <QProcess>
#include <QTimer>
#include <utility>

namespace tarvin {

namespace {

std::optional<QByteArray> read(const QString& program, const ReadBounds& bounds, const QUrl& url,
                               const StopRequest& stop) {
    QProcess process;
    QEventLoop loop;
    QByteArray bytes;
    bool started = true;
    const auto take = [&] {
        bytes += process.readAllStandardOutput();
        if (bytes.size() > bounds.bytes) {
            process.kill();
        }
    };
    QObject::connect(&process, &QProcess::readyReadStandardOutput, &loop, take);
    QObject::connect(&process, &QProcess::finished, &loop, &QEventLoop::quit);
    QObject::connect(&process, &QProcess::errorOccurred, &loop, [&](QProcess::ProcessError error) {
        if (error == QProcess::FailedToStart) {
            started = false;
            loop.quit();
        }
    });
    process.setStandardErrorFile(QProcess::nullDevice());
    process.start(program, QStringList());
    process.write(url.toEncoded());
    process.closeWriteChannel();
    QTimer limit;
    QObject::connect(&limit, &QTimer::timeout, &process, &QProcess::kill);
    limit.start(bounds.time);
    // Queued: the request is made on another thread.
    QObject::connect(&stop, &StopRequest::requested, &process, &QProcess::kill,
                     Qt::QueuedConnection);
    if (stop.isRequested()) {
        process.kill();
    }
    if (process.state() != QProcess::NotRunning) {
        loop.exec();
    }
    take();
    const bool done =
        started && process.exitStatus() == QProcess::NormalExit && process.exitCode() == 0;
    return done && bytes.size() <= bounds.bytes ? std::optional(bytes) : std::nullopt;
}

}  // namespace

UrlReader urlReaderFor(QString program, ReadBounds bounds) {
    return [program = std::move(program), bounds](
               const QUrl& url, const StopRequest& stop) -> std::optional<QByteArray> {
        if (program.isEmpty() || stop.isRequested()) {
            return std::nullopt;
        }
        return read(program, bounds, url, stop);
    };
}

}  // namespace tarvin
