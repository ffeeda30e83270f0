#pragma once

#include <QElapsedTimer>
#include <QString>

namespace talvora {

/// Tells on standard output how far long work is. On a terminal in one line a step that is written over; in a file or a
/// pipe in a line for each tenth.
class ProgressLine {
 public:
    ProgressLine();
    /// Ends the line that is being written over.
    ~ProgressLine();
    ProgressLine(const ProgressLine&) = delete;
    ProgressLine& operator=(const ProgressLine&) = delete;

    /// With a `total` of 0 only the step is told.
    void show(const QString& step, qint64 done, qint64 total);

 private:
    bool onTerminal_;
    QElapsedTimer sinceShown_;
    QString step_;
    qint64 tenth_ = -1;
    bool isOpen_ = false;
};

}  // namespace talvora
