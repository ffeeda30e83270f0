#include "setup/import/text_file.h"

#include <QStringConverter>

#include <algorithm>

namespace talvora {

using namespace Qt::StringLiterals;

namespace {

constexpr auto utf8Mark = "\xEF\xBB\xBF";
// What the decoder makes of the byte FF, which is no GBK.
constexpr char16_t undefinedByte = 0xF8F5;

QStringDecoder gbkDecoder() {
    QStringDecoder decoder("GBK");
    return decoder.isValid() ? std::move(decoder) : QStringDecoder(QStringConverter::System);
}

// Each line is decoded for itself, which both encodings allow: no byte of a longer character is a line feed.
// Its line feed comes with it, so that a character cut off at the end of the line is noticed.
bool decodeLine(QStringDecoder decoder, const QByteArray& line, QString& text) {
    const QString decoded = decoder.decode(line);
    if (decoder.hasError() || decoded.contains(QChar(undefinedByte)) ||
        decoded.contains(QChar(QChar::ReplacementCharacter))) {
        return false;
    }
    text += decoded;
    return true;
}

// Decodes `content`; 0, or the first line that is not in the encoding.
template <class MakeDecoder>
int decode(const QByteArray& content, MakeDecoder makeDecoder, QString& text) {
    text.clear();
    text.reserve(content.size());
    int line = 1;
    for (const QByteArray& bytes : content.split('\n')) {
        if (!decodeLine(makeDecoder(), bytes + '\n', text)) {
            return line;
        }
        ++line;
    }
    text.chop(1);
    return 0;
}

QString reasonForNoText(const QByteArray& content) {
    if (content.startsWith("PK\x03\x04") || content.startsWith("\xD0\xCF\x11\xE0")) {
        return u"这是电子表格文件，不是 CSV 文件，请在电子表格程序中另存为 CSV 格式！"_s;
    }
    if (content.startsWith("\xFF\xFE") || content.startsWith("\xFE\xFF") || content.contains('\0')) {
        return u"不支持 UTF-16 编码或二进制文件，请另存为“CSV UTF-8”格式！"_s;
    }
    return {};
}

}  // namespace

QString fileText(const QByteArray& content, ImportFaults& faults) {
    if (const auto reason = reasonForNoText(content); !reason.isEmpty()) {
        faults.push_back({0, reason});
        return {};
    }
    const bool isMarked = content.startsWith(utf8Mark);
    const QByteArray bytes = isMarked ? content.mid(3) : content;
    QString text;
    const int notUtf8 = decode(
        bytes, [] { return QStringDecoder(QStringConverter::Utf8); }, text);
    if (notUtf8 > 0 && isMarked) {
        faults.push_back({notUtf8, u"含有不是 UTF-8 编码的字符！"_s});
        return {};
    }
    if (notUtf8 > 0) {
        if (const int notGbk = decode(bytes, gbkDecoder, text); notGbk > 0) {
            faults.push_back({notGbk, u"含有既不是 UTF-8 也不是 GBK 编码的字符！"_s});
            return {};
        }
    }
    text.replace("\r\n"_L1, "\n"_L1);
    text.replace(u'\r', u'\n');
    return text;
}

bool isGbkText(const QString& text) {
    const bool isAscii = std::all_of(text.begin(), text.end(), [](QChar c) { return c.unicode() < 0x80; });
    if (isAscii) {
        return true;
    }
    QStringEncoder encoder("GBK");
    if (!encoder.isValid()) {
        encoder = QStringEncoder(QStringConverter::System);
    }
    const QByteArray encoded = encoder.encode(text);
    Q_UNUSED(encoded)
    return !encoder.hasError();
}

}  // namespace talvora
