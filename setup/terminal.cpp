#include "setup/terminal.h"

#include <QTextStream>

#include <cstdio>

#ifdef Q_OS_WIN
#include <io.h>
#else
#include <unistd.h>
#endif

namespace talvora {

using namespace Qt::StringLiterals;

namespace {

void write(std::FILE* file, const QString& text) {
    QTextStream stream(file);
    stream.setEncoding(QStringConverter::System);
    stream << text << Qt::endl;
}

bool isTerminal(std::FILE* file) {
#ifdef Q_OS_WIN
    return _isatty(_fileno(file)) != 0;
#else
    return isatty(fileno(file)) != 0;
#endif
}

}  // namespace

void say(const QString& text) {
    write(stdout, text);
}

void complain(const QString& text) {
    write(stderr, text);
}

void sayOver(const QString& text) {
    // What a longer line before it has left.
    const QString blanks(8, u' ');
    QTextStream stream(stdout);
    stream.setEncoding(QStringConverter::System);
    stream << u'\r' << text << blanks << Qt::flush;
}

bool isShown() {
    return isTerminal(stdout);
}

bool isAsked() {
    return isTerminal(stdin);
}

QString readAnswer(const QString& prompt) {
    complain(prompt);
    QTextStream stream(stdin);
    stream.setEncoding(QStringConverter::System);
    return stream.readLine();
}

QString readPassword(const QString& prompt) {
    return readAnswer(prompt + u"（输入的内容会显示在屏幕上）"_s);
}

}  // namespace talvora
