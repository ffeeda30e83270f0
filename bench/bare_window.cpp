// The least program that shows a window: Qt's widgets and nothing of ours, to hold the start against.
#include "bench/first_paint.h"

#include <QApplication>
#include <QWidget>

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    talvora::bench::FirstPaint painted;
    application.installEventFilter(&painted);
    QWidget window;
    window.show();
    return QApplication::exec();
}
