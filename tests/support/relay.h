#pragma once

#include <QByteArray>
#include <QString>
#include <QtGlobal>

#include <chrono>
#include <memory>

namespace talvora::test {

/// A TCP relay on 127.0.0.1 in front of a server, run by a thread of its own: it passes on what comes, later if asked
/// to, keeps what went through, and cuts or holds up the links. For one session after the other as for several at once.
class Relay {
 public:
    /// Listens at once. `target` is the server as in a connection string, "host,port".
    explicit Relay(const QString& target);
    ~Relay();
    Q_DISABLE_COPY_MOVE(Relay)

    /// Where to connect, as a data source: "127.0.0.1,port".
    QString dataSource() const;

    /// Delays each piece, either way, by this time.
    void setDelay(std::chrono::milliseconds delay);
    /// Closes the links that stand. New ones are taken.
    void cut();
    /// While down, closes what stands and takes no new link.
    void setDown(bool down);
    /// While held, passes nothing on and answers nothing, as a server that hangs.
    void setHeld(bool held);
    /// What has passed both ways so far.
    QByteArray traffic() const;

 private:
    class Loop;
    std::unique_ptr<Loop> loop_;
};

}  // namespace talvora::test
