#pragma once

#include <QObject>
#include <QPointer>

#include <vector>

namespace talvora {

/// Keeps the windows painted, under the busy pointer, while the session waits for its server. What the user presses
/// stays waiting, and so do timers: no handler runs within a statement.
class ServerWait : public QObject {
 public:
    /// Has the session's waits go through an object that lives as long as `parent`.
    static void install(QObject* parent);

    ~ServerWait() override;

    bool eventFilter(QObject* receiver, QEvent* event) override;

 private:
    explicit ServerWait(QObject* parent);

    void goOn();
    void end();

    struct Tick {
        QPointer<QObject> receiver;
        int timer;
    };
    std::vector<Tick> ticks_;
    bool busy_ = false;
};

}  // namespace talvora
