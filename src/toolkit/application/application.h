#pragma once

#include <QApplication>

#include <functional>

namespace talvora {

class FontConfiguration;

/// The program's application object: look, Chinese locale and button texts, and the second net under the event
/// dispatch (see last_resort.h). One a process; no window outlives it.
class Application : public QApplication {
    Q_OBJECT

 public:
    Application(int& argc, char** argv);
    ~Application() override;

    /// Runs the program's main routine under the guard of the event dispatch, and gives the exit code.
    int run(const std::function<void()>& main);

    bool notify(QObject* receiver, QEvent* event) override;

 private:
    Application(int& argc, char** argv, FontConfiguration&& fonts);
};

}  // namespace talvora
