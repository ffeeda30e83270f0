#include "core/connection_file.h"

#include "platform/runtime_error.h"

#include <QByteArray>
#include <QFile>
#include <QSaveFile>
#include <QStringConverter>
#include <QStringList>

#include <algorithm>
#include <array>
#include <limits>

namespace talvora {

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype counterLimit = std::numeric_limits<qint16>::max();
constexpr char16_t byteRange = 0x100;
constexpr int shiftPeriod = 10;
constexpr uchar asciiRange = 0x80;

QString separator() {
    return u"Encrypt"_s;
}

// The file is written in the code page of the Chinese installations. A Qt without that converter has the platform's
// own to offer, which is the same one there.
constexpr auto encodingName = "GBK";

QString decoded(const QByteArray& bytes) {
    // Most files are plain ASCII, and opening a converter takes longer than the rest of the reading.
    if (std::all_of(bytes.begin(), bytes.end(), [](char byte) { return static_cast<uchar>(byte) < asciiRange; })) {
        return QString::fromLatin1(bytes);
    }
    QStringDecoder decoder(encodingName);
    if (!decoder.isValid()) {
        decoder = QStringDecoder(QStringConverter::System);
    }
    return decoder(bytes);
}

QByteArray encoded(const QString& text) {
    QStringEncoder encoder(encodingName);
    if (!encoder.isValid()) {
        encoder = QStringEncoder(QStringConverter::System);
    }
    return encoder(text);
}

bool isLeadByte(uchar byte) {
    return byte >= 0x81 && byte <= 0xFE;
}

// The bytes cut into character codes by their form alone. The scrambling changes the second byte of a code but never
// borrows from the first, so a scrambled code is cut where the plain one was.
QString codesOf(const QByteArray& bytes) {
    QString codes;
    codes.reserve(bytes.size());
    for (qsizetype i = 0; i < bytes.size(); ++i) {
        const auto byte = static_cast<uchar>(bytes[i]);
        if (isLeadByte(byte) && i + 1 < bytes.size()) {
            codes += QChar(static_cast<char16_t>(byte * byteRange + static_cast<uchar>(bytes[++i])));
        } else {
            codes += QChar(static_cast<char16_t>(byte));
        }
    }
    return codes;
}

QByteArray bytesOf(const QString& codes) {
    QByteArray bytes;
    bytes.reserve(2 * codes.size());
    for (const QChar code : codes) {
        if (code.unicode() >= byteRange) {
            bytes += static_cast<char>(code.unicode() / byteRange);
        }
        bytes += static_cast<char>(code.unicode() % byteRange);
    }
    return bytes;
}

QString scrambled(const QString& codes) {
    QString text;
    text.reserve(codes.size());
    for (qsizetype position = 1; position <= codes.size(); ++position) {
        const auto shift = static_cast<char16_t>(position % shiftPeriod);
        text += QChar(static_cast<char16_t>(codes[codes.size() - position].unicode() - shift));
    }
    return text;
}

QStringList piecesOf(const QByteArray& bytes) {
    // The scrambled text ends in one NUL that is not in the file: it is what UnscrambleText leaves out.
    const QString plain = UnscrambleText(codesOf(bytes) + QChar(u'\0'));
    return decoded(bytesOf(plain)).split(separator());
}

struct NamedPiece {
    QString name;
    QString text;
};

// What would be written and yet not arrive: the caller is told which piece and why.
void refuseUnwritable(const NamedPiece& piece, bool mayHoldSemicolon) {
    const auto refuse = [&](const QString& why) {
        throw RuntimeError(errors::InvalidCall, u"［%1］%2"_s.arg(piece.name, why));
    };
    const bool hasControl =
        std::any_of(piece.text.begin(), piece.text.end(), [](QChar c) { return c.category() == QChar::Other_Control; });
    if (hasControl) {
        refuse(u"中不可有控制字符！"_s);
    }
    if (piece.text.contains(separator())) {
        refuse(u"中不可有字样“Encrypt”！"_s);
    }
    if (!mayHoldSemicolon && piece.text.contains(u';')) {
        refuse(u"中不可有分号！"_s);
    }
    if (decoded(encoded(piece.text)) != piece.text || bytesOf(codesOf(encoded(piece.text))) != encoded(piece.text)) {
        refuse(u"中有连接文件不能保存的字符！"_s);
    }
}

QByteArray fileBytes(const ConnectionFile& content) {
    const std::array<NamedPiece, 4> pieces{{{u"服务器"_s, content.server},
                                            {u"数据库"_s, content.database},
                                            {u"登录名"_s, content.login},
                                            {u"密码"_s, content.password}}};
    QStringList parts{QString()};
    for (const NamedPiece& piece : pieces) {
        refuseUnwritable(piece, &piece == &pieces.back());
        parts += piece.text;
    }
    const QString codes = codesOf(encoded(parts.join(separator())));
    if (codes.size() > counterLimit) {
        throw RuntimeError(errors::InvalidCall, u"连接内容过长！"_s);
    }
    QByteArray bytes = bytesOf(scrambled(codes));
    if (piecesOf(bytes) != parts) {
        throw RuntimeError(errors::InvalidCall, u"连接内容中有连接文件不能保存的字符！"_s);
    }
    return bytes;
}

}  // namespace

QString connectionFileName() {
    return u"cfgserver.bin"_s;
}

QString connectionString(const ConnectionFile& file) {
    return u"Provider=SQLOLEDB.1;Persist Security Info=True;User ID="_s + file.login + u";Initial Catalog="_s +
           file.database + u";Data Source="_s + file.server + u";pwd="_s + file.password;
}

QString UnscrambleText(const QString& Text) {
    const qsizetype count = std::max<qsizetype>(Text.size() - 1, 0);
    if (count > counterLimit) {
        throw RuntimeError(errors::Overflow);
    }
    QString shifted;
    shifted.reserve(count);
    for (qsizetype i = 0; i < count; ++i) {
        shifted += QChar(static_cast<char16_t>(Text[i].unicode() + (i + 1) % shiftPeriod));
    }
    std::reverse(shifted.begin(), shifted.end());
    return shifted;
}

ConnectionFile readConnectionFile(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        throw RuntimeError(errors::PathAccess, file.errorString());
    }
    if (file.size() > 2 * counterLimit) {
        throw RuntimeError(errors::Overflow);
    }
    const QByteArray bytes = file.readAll();
    if (file.error() != QFile::NoError) {
        throw RuntimeError(errors::PathAccess, file.errorString());
    }
    const QStringList pieces = piecesOf(bytes);
    if (pieces.size() < 5) {
        throw RuntimeError(errors::SubscriptOutOfRange);
    }
    return {pieces[1], pieces[2], pieces[3], pieces[4]};
}

void writeConnectionFile(const QString& path, const ConnectionFile& content) {
    const QByteArray bytes = fileBytes(content);
    QSaveFile file(path);
    // The rights are set before a byte is in it: the file holds a password.
    const bool written = file.open(QIODevice::WriteOnly) &&
                         file.setPermissions(QFileDevice::ReadOwner | QFileDevice::WriteOwner) &&
                         file.write(bytes) == bytes.size() && file.commit();
    if (!written) {
        throw RuntimeError(errors::PathAccess, u"连接文件不能写入："_s + file.errorString());
    }
}

}  // namespace talvora
