#pragma once

#include <QCursor>
#include <QGuiApplication>

namespace talvora {

/// The busy pointer while long work is under way.
class BusyPointer {
 public:
    BusyPointer() { QGuiApplication::setOverrideCursor(Qt::WaitCursor); }
    ~BusyPointer() { QGuiApplication::restoreOverrideCursor(); }
    BusyPointer(const BusyPointer&) = delete;
    BusyPointer& operator=(const BusyPointer&) = delete;
};

}  // namespace talvora
