#pragma once

#include <QByteArray>
#include <QByteArrayList>
#include <QObject>
#include <QString>
#include <QTcpServer>
#include <QTcpSocket>
#include <functional>
#include <memory>

namespace tarvin {

/// A server on the loopback interface with a scripted response. Main thread, requires its event
/// loop.
class LoopbackServer final : public QObject {
 public:
    using Answer = std::function<void(QTcpSocket& connection)>;
    enum class Scheme { http, https };

    explicit LoopbackServer(Answer answer, Scheme scheme = Scheme::http);

    /// Status 200 with this body.
    static Answer with(const QByteArray& body);
    /// These bytes, including the header; then closes.
    static Answer withRaw(const QByteArray& bytes);
    /// A redirect.
    static Answer to(const QString& url);

    /// Such as "http://127.0.0.1:4711".
    [[nodiscard]] QString url() const;

    QByteArrayList requests;  ///< request lines with headers
    int closed = 0;           ///< number of closed connections
    Answer answer;

 private:
    void welcome();
    void take(QTcpSocket& connection);

    std::unique_ptr<QTcpServer> server_;
    Scheme scheme_;
};

}  // namespace tarvin
