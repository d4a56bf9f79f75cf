#pragma once

#include <QImage>
#include <QObject>
#include <QProcess>
#include <QSize>
#include <QSizeF>
#include <QString>
#include <QTimer>
#include <chrono>
#include <memory>
#include <optional>
#include <string>

namespace tarvin {

class PreviewReader;

/// Makes previews of image files, one at a time, each in a separate process, so that neither a
/// malicious file nor a disk that does not respond affects this one. Main thread only.
///
/// A new request supersedes the previous one, whose process is ended. Nothing is cached: each
/// request reads the file again.
class ImagePreview final : public QObject {
    Q_OBJECT

 public:
    /// A process that takes longer is ended.
    static constexpr std::chrono::milliseconds defaultTimeLimit{10'000};

    /// `program` is the path of the preview program.
    explicit ImagePreview(QString program, std::chrono::milliseconds timeLimit = defaultTimeLimit,
                          QObject* parent = nullptr);
    /// Kills the running process, if any, and waits for its end: a few milliseconds, or at most one
    /// second if a disk does not respond.
    ~ImagePreview() override;

    /// Requests the preview of the file at a path, native bytes, for a field of `width` by `height`
    /// points; there is none of a symbolic link. Asynchronous: emits ready() or nothing().
    void resizeImageAtPath(const std::string& path, double width, double height);
    /// Drops the last request.
    void cancel();

 Q_SIGNALS:
    /// The size of the image in the file after applying its orientation, in pixels. Emitted before
    /// ready(), and also before nothing() if the file is damaged further on.
    void measured(QSize size);
    /// The preview after applying its orientation, at most 640 pixels on each side, however large
    /// the field is. Its device pixel ratio makes it fill the field with its proportions kept; an
    /// empty field leaves the ratio at 1.
    void ready(const QImage& image);
    /// The file is not a readable image, or takes too much time or memory.
    void nothing();

 private:
    struct Request {
        std::string path;
        QSizeF field;
    };

    void start(const Request& request);
    void read();
    void finish();
    void endProcess();
    void releaseProcess();

    const QString program_;
    std::unique_ptr<QProcess> process_;      // null while idle
    std::unique_ptr<PreviewReader> reader_;  // of the process's output
    bool isSuperseded_ = false;              // the process's request was superseded
    QSizeF field_;                           // of the current request
    std::optional<Request> waiting_;         // starts when the process has ended
    QTimer timeLimit_;
    QTimer endLimit_;
};

}  // namespace tarvin
