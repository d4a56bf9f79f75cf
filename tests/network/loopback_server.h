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

/// A server on the loopback address that treats each request as the test says. Main thread, through
/// the event loop.
class LoopbackServer final : public QObject {
 public:
    using Answer = std::function<void(QTcpSocket& connection)>;
    enum class Scheme { http, https };

    explicit LoopbackServer(Answer answer, Scheme scheme = Scheme::http);

    /// Answers with bytes, as a success.
    static Answer with(const QByteArray& body);
    /// Answers with these bytes, head and all, and closes.
    static Answer withRaw(const QByteArray& bytes);
    /// Sends the browser elsewhere.
    static Answer to(const QString& address);

    /// Such as "http://127.0.0.1:4711".
    [[nodiscard]] QString address() const;

    QByteArrayList requests;  ///< their first lines, and what followed
    int closed = 0;           ///< so many connections have ended
    Answer answer;

 private:
    void welcome();
    void take(QTcpSocket& connection);

    std::unique_ptr<QTcpServer> server_;
    Scheme scheme_;
};

}  // namespace tarvin
