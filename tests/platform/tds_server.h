#pragma once

#include <QByteArray>
#include <QMutex>
#include <QString>
#include <QStringList>
#include <QThread>

#include <atomic>
#include <future>
#include <memory>

class QTcpSocket;

/// The other end of a TDS link, as far as a driver needs one to log in and to send statements: what a real server does
/// at its worst, on demand. It takes one session after the other, on a port of this machine. The statements:
///   "begin transaction", "commit transaction"  keep account of the transaction; 3902 when none is open
///   "convert"    fails with 245 and rolls the transaction back
///   "truncate"   fails with 8152 after a warning; the transaction stays open
///   "values"     one row of each type that drivers give trouble with, and one of NULLs
///   "half"       a row, then the error 245
///   "hang"       is answered by its cancellation only
///   "hang up"    ends the link
/// All others succeed without rows.
class TdsServer {
 public:
    TdsServer();
    ~TdsServer();

    quint16 port() const { return port_; }
    /// "user/password/database" of each login and, with a "*" behind it inside a transaction, each statement.
    QStringList seen() const;

 private:
    void serve(std::promise<quint16>& listening);
    void converse(QTcpSocket& socket);
    bool answer(int type, const QByteArray& body, QByteArray& reply);
    bool run(const QString& statement, QByteArray& reply);
    void note(const QString& event);

    std::atomic<bool> stopping_ = false;
    mutable QMutex mutex_;
    QStringList seen_;
    bool inTransaction_ = false;
    std::unique_ptr<QThread> thread_;
    quint16 port_ = 0;
};
