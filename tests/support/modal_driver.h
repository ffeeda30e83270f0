#pragma once

#include "toolkit/form.h"

#include <QElapsedTimer>
#include <QObject>
#include <QSet>

#include <functional>
#include <list>
#include <string>

namespace talvora::test {

/// Runs the scripts of whenModal, each from the event loop of the modal window it is for, and watches that no modal
/// window stays open with nobody to deal with it.
class ModalDriver : public QObject {
 public:
    static ModalDriver& instance();

    void add(std::function<Form*()> find, std::function<void(Form&)> script, std::string name);

    /// Tells the watch that the test still does something.
    void touch() { idle_.restart(); }

    /// Fails the test for each script that did not run, and forgets them.
    void finish();

    bool eventFilter(QObject* receiver, QEvent* event) override;

 private:
    struct Pending {
        std::function<Form*()> find;
        std::function<void(Form&)> script;
        std::string name;
    };

    ModalDriver();
    void poll();
    void run(const Pending& pending, Form& form);
    void watch();

    std::list<Pending> pending_;
    QSet<const QObject*> served_;  ///< windows whose script has begun, as long as they are up
    QElapsedTimer idle_;
};

}  // namespace talvora::test
