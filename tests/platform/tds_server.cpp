#include "platform/tds_server.h"

#include <QDataStream>
#include <QTcpServer>
#include <QTcpSocket>
#include <QtEndian>

#include <optional>

using namespace Qt::StringLiterals;

namespace {

constexpr int pollMs = 20;
constexpr int headerSize = 8;
enum PacketType { Batch = 1, Response = 4, Attention = 6, Login = 16, PreLogin = 18 };
enum DoneStatus : quint16 { Final = 0, More = 1, Error = 2, Count = 16, Cancelled = 32 };

QByteArray wide(const QString& text) {
    return {reinterpret_cast<const char*>(text.utf16()), text.size() * 2};
}

/// The little-endian bytes of `values`, one after the other; texts as they are.
template <class... Values>
QByteArray bytes(Values... values) {
    QByteArray all;
    QDataStream stream(&all, QIODevice::WriteOnly);
    stream.setByteOrder(QDataStream::LittleEndian);
    const auto add = [&](const auto& value) {
        if constexpr (std::is_same_v<std::decay_t<decltype(value)>, QByteArray>) {
            stream.writeRawData(value.constData(), static_cast<int>(value.size()));
        } else {
            stream << value;
        }
    };
    (add(values), ...);
    return all;
}

QByteArray shortText(const QString& text) {
    return bytes(static_cast<quint8>(text.size()), wide(text));
}

QByteArray done(int status = Final) {
    return bytes(quint8{0xFD}, static_cast<quint16>(status), quint16{0xC1}, quint64{1});
}

QByteArray message(quint8 token, qint32 number, quint8 severity, const QString& words) {
    const QByteArray content = bytes(number, quint8{1}, severity, static_cast<quint16>(words.size()), wide(words),
                                     shortText(u"server"_s), shortText({}), qint32{1});
    return bytes(token, static_cast<quint16>(content.size()), content);
}

QByteArray failure(qint32 number, const QString& words) {
    constexpr quint8 severity = 16;
    return message(0xAA, number, severity, words);
}

/// Tells the driver that a transaction began (8), was committed (9) or rolled back (10).
QByteArray transactionChange(quint8 kind) {
    const QByteArray id = bytes(quint64{1});
    const QByteArray content =
        kind == 8 ? bytes(kind, quint8{8}, id, quint8{0}) : bytes(kind, quint8{0}, quint8{8}, id);
    return bytes(quint8{0xE3}, static_cast<quint16>(content.size()), content);
}

QByteArray column(const QByteArray& type, const QString& name) {
    return bytes(quint32{0}, quint16{9}, type, shortText(name));
}

QByteArray oneNumber() {
    return bytes(quint8{0x81}, quint16{1}, column("\x26\x04"_ba, u"n"_s), quint8{0xD1}, quint8{4}, qint32{7});
}

QByteArray values() {
    const QByteArray collation = "\x04\x08\xD0\x00\x34"_ba;
    const QByteArray columns = column("\x26\x04"_ba, u"whole"_s) + column("\x68\x01"_ba, u"bit"_s) +
                               column("\x6D\x08"_ba, u"real"_s) + column("\x6F\x08"_ba, u"moment"_s) +
                               column("\x28"_ba, u"day"_s) + column("\xE7\xFF\xFF"_ba + collation, u"text"_s);
    constexpr qint32 daysFrom1900 = 40000;
    constexpr quint32 ticksAfterNoon = (12 * 3600 + 34 * 60 + 56) * 300 + 37;
    constexpr quint32 daysFromYear1 = 733773;
    const QByteArray text = wide(u"张三"_s);
    const QByteArray row =
        bytes(quint8{0xD1}, quint8{4}, qint32{-5}, quint8{1}, quint8{1}, quint8{8}, 0.3333, quint8{8}, daysFrom1900,
              ticksAfterNoon, quint8{3}, bytes(daysFromYear1).first(3), static_cast<quint64>(text.size()),
              static_cast<quint32>(text.size()), text, quint32{0});
    const QByteArray nulls = bytes(quint8{0xD1}) + QByteArray(5, '\0') + QByteArray(8, '\xFF');
    return bytes(quint8{0x81}, quint16{6}, columns, row, nulls) + done(Count);
}

/// One message of the driver, put together from its packets; nothing at the end of the link.
struct Message {
    int type;
    QByteArray body;
};

std::optional<QByteArray> readExactly(QTcpSocket& socket, int count, const std::atomic<bool>& stopping) {
    while (socket.bytesAvailable() < count) {
        if (stopping || (!socket.waitForReadyRead(pollMs) && socket.state() != QAbstractSocket::ConnectedState)) {
            return std::nullopt;
        }
    }
    return socket.read(count);
}

std::optional<Message> readMessage(QTcpSocket& socket, const std::atomic<bool>& stopping) {
    QByteArray body;
    while (true) {
        const auto header = readExactly(socket, headerSize, stopping);
        if (!header) {
            return std::nullopt;
        }
        const auto rest = readExactly(socket, qFromBigEndian<quint16>(header->constData() + 2) - headerSize, stopping);
        if (!rest) {
            return std::nullopt;
        }
        body += *rest;
        if ((header->at(1) & 1) != 0) {
            return Message{header->at(0), body};
        }
    }
}

/// One of the texts that a login names by offset and length; the password's bytes are turned around and masked.
QString loginText(const QByteArray& body, int index, bool masked = false) {
    constexpr int firstOffset = 36;
    const auto* at = body.constData() + firstOffset + 4 * index;
    QByteArray text = body.mid(qFromLittleEndian<quint16>(at), 2 * qFromLittleEndian<quint16>(at + 2));
    for (char& byte : text) {
        const auto bare = static_cast<quint8>(static_cast<quint8>(byte) ^ 0xA5U);
        byte = masked ? static_cast<char>((bare << 4U) | (bare >> 4U)) : byte;
    }
    return QString::fromUtf16(reinterpret_cast<const char16_t*>(text.constData()), text.size() / 2);
}

}  // namespace

TdsServer::TdsServer() {
    std::promise<quint16> listening;
    thread_.reset(QThread::create([&] { serve(listening); }));
    thread_->start();
    port_ = listening.get_future().get();
}

TdsServer::~TdsServer() {
    stopping_ = true;
    thread_->wait();
}

QStringList TdsServer::seen() const {
    const QMutexLocker lock(&mutex_);
    return seen_;
}

void TdsServer::note(const QString& event) {
    const QMutexLocker lock(&mutex_);
    seen_ << event;
}

void TdsServer::serve(std::promise<quint16>& listening) {
    QTcpServer server;
    server.listen(QHostAddress::LocalHost);
    listening.set_value(server.serverPort());
    while (!stopping_) {
        if (server.waitForNewConnection(pollMs)) {
            const std::unique_ptr<QTcpSocket> socket(server.nextPendingConnection());
            converse(*socket);
        }
    }
}

void TdsServer::converse(QTcpSocket& socket) {
    inTransaction_ = false;
    while (const auto received = readMessage(socket, stopping_)) {
        QByteArray reply;
        if (!answer(received->type, received->body, reply)) {
            return;
        }
        if (!reply.isEmpty()) {
            QByteArray packet = bytes(quint8{Response}, quint8{1}) + QByteArray(6, '\0') + reply;
            qToBigEndian(static_cast<quint16>(packet.size()), packet.data() + 2);
            socket.write(packet);
            socket.flush();
        }
    }
}

bool TdsServer::answer(int type, const QByteArray& body, QByteArray& reply) {
    switch (type) {
        case PreLogin:
            // Two options: the version, and that there is no encryption.
            reply = QByteArray::fromHex(
                "00000B0006"
                "0100110001"
                "FF"
                "0F0000000000"
                "02");
            return true;
        case Login: {
            note(loginText(body, 1) + u'/' + loginText(body, 2, true) + u'/' + loginText(body, 8));
            const QByteArray version = bytes(quint8{1}, quint32{0x04000074}, shortText(u"SQL Server"_s), quint32{15});
            reply = bytes(quint8{0xAD}, static_cast<quint16>(version.size()), version) + done();
            return true;
        }
        case Attention:
            reply = done(Cancelled);
            return true;
        case Batch: {
            const auto headers = qFromLittleEndian<quint32>(body.constData());
            return run(QString::fromUtf16(reinterpret_cast<const char16_t*>(body.constData() + headers),
                                          (body.size() - headers) / 2),
                       reply);
        }
        default:
            return false;
    }
}

bool TdsServer::run(const QString& statement, QByteArray& reply) {
    note(inTransaction_ ? statement + u'*' : statement);
    if (statement == "begin transaction"_L1) {
        inTransaction_ = true;
        reply = transactionChange(8) + done();
    } else if (statement == "commit transaction"_L1) {
        reply = inTransaction_ ? transactionChange(9) + done() : failure(3902, u"Nothing to commit."_s) + done(Error);
        inTransaction_ = false;
    } else if (statement == "convert"_L1) {
        reply = failure(245, u"Conversion failed."_s) + (inTransaction_ ? transactionChange(10) : QByteArray()) +
                done(Error);
        inTransaction_ = false;
    } else if (statement == "truncate"_L1) {
        reply = message(0xAB, 3621, 0, u"The statement has been terminated."_s) +
                failure(8152, u"Data would be truncated."_s) + done(Error);
    } else if (statement == "values"_L1) {
        reply = values();
    } else if (statement == "half"_L1) {
        reply = oneNumber() + done(Count | More) + failure(245, u"Conversion failed."_s) + done(Error);
    } else if (statement == "hang up"_L1) {
        return false;
    } else if (statement != "hang"_L1) {
        reply = done();
    }
    return true;
}
