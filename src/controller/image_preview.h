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

/// Makes previews of image files, one after another, each in a process of its own: whatever a file
/// does to it, and however long its disk takes to answer, this process goes on. Main thread.
///
/// Who asks again before there was an answer is answered the last request alone; the process that
/// works on another is ended. Nothing is kept: each request reads the file anew.
class ImagePreview final : public QObject {
    Q_OBJECT

 public:
    /// A process that takes longer is ended.
    static constexpr std::chrono::milliseconds defaultTimeLimit{10'000};

    /// `program` is where the program that makes them is.
    explicit ImagePreview(QString program, std::chrono::milliseconds timeLimit = defaultTimeLimit,
                          QObject* parent = nullptr);
    /// Ends the process that is at work, if there is one, and waits for its end, which the system
    /// brings about at once unless a disk does not answer: then for one second.
    ~ImagePreview() override;

    /// Asks for the preview of the file at a path, native bytes, for a field of `width` by `height`
    /// points; of a link there is none. The answer comes later, by ready() or nothing().
    void resizeImageAtPath(const std::string& path, double width, double height);
    /// Forgets the last request.
    void cancel();

 Q_SIGNALS:
    /// The size of the image in the file, turned as the camera was held, in pixels. Before the
    /// answer, and also if that is nothing() because the file is damaged further on.
    void measured(QSize size);
    /// The preview: turned as the camera was held, no side longer than 640 pixels, however large
    /// the field is. In points it is as large as it can be in the field with its proportions kept;
    /// a field without room leaves it at one pixel a point.
    void ready(const QImage& image);
    /// The file is no image that can be read, or it takes too much time or memory.
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
    std::unique_ptr<QProcess> process_;      // none while nothing is made
    std::unique_ptr<PreviewReader> reader_;  // of what it writes
    bool isSuperseded_ = false;              // nobody wants to hear of the process any more
    QSizeF field_;                           // of the request in hand
    std::optional<Request> waiting_;         // what is asked for when it has ended
    QTimer timeLimit_;
    QTimer endLimit_;
};

}  // namespace tarvin
