#include "core/connection_file.h"
#include "support/error_of.h"

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <gtest/gtest.h>

#include <algorithm>

namespace talvora::test {

using namespace Qt::StringLiterals;

namespace {

class ConnectionFileTest : public ::testing::Test {
 protected:
    QString path() const { return folder_.filePath(connectionFileName()); }

    void store(const QByteArray& bytes) const {
        QFile file(path());
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
    }

    QByteArray stored() const {
        QFile file(path());
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    int readingError() const {
        return errorOf([&] { readConnectionFile(path()); });
    }

    /// A file of single-byte characters, built by hand, byte by byte.
    static QByteArray scrambledAscii(QByteArray plain) {
        std::reverse(plain.begin(), plain.end());
        for (qsizetype i = 0; i < plain.size(); ++i) {
            plain[i] = static_cast<char>(plain[i] - (i + 1) % 10);
        }
        return plain;
    }

    static QStringList pieces(const ConnectionFile& file) {
        return {file.server, file.database, file.login, file.password};
    }

 private:
    QTemporaryDir folder_;
};

TEST_F(ConnectionFileTest, UnscramblingShiftsByPositionAndReverses) {
    const QString cases[][2] = {{{}, {}},
                                {u"x"_s, {}},
                                {u"ABC."_s, u"FDB"_s},
                                {u"00000000000."_s, u"10987654321"_s},
                                {u"\u00FFz"_s, u"\u0100"_s}};
    for (const auto& [scrambled, plain] : cases) {
        EXPECT_EQ(UnscrambleText(scrambled), plain) << scrambled.toStdString();
    }
    EXPECT_EQ(UnscrambleText(QString(32768, u'0')).size(), 32767);
    EXPECT_THROW(UnscrambleText(QString(32769, u'0')), RuntimeError);
}

TEST_F(ConnectionFileTest, BytesAreThoseOfTheScrambling) {
    writeConnectionFile(path(), {u"srv"_s, u"db"_s, u"sa"_s, u"pw"_s});
    EXPECT_EQ(stored(), "vnqltl\\f<arrmum]g=Ydsnvn^h>nissnvn^h>"_ba);
    writeConnectionFile(path(), {u"服务器"_s, u"库"_s, u"测评"_s, u"密码1"_s});
    EXPECT_EQ(stored().toHex(),
              "30c2e9c3d9706b736b5b6545c6bfb2e0716c746c5c663cbfe2736e766e5e683ec6efcee8b7fe736e766e5e683e"_ba);
}

TEST_F(ConnectionFileTest, WhatIsWrittenIsReadBack) {
    const ConnectionFile contents[] = {
        {},
        {u"10.0.0.5,1433"_s, u"talvora"_s, u"sa"_s, u"p;w'\"=}{ "_s},
        {u"host\\instance"_s, u"测评数据库"_s, u"管理员"_s, u"密码１２３－；~"_s},
        {u"embedded"_s, u"/srv/测评/talvora.db"_s, QString(), QString()},
        {QString(300, u'镕'), QString(299, u'a'), u"丂狛"_s, u"encrypt Encryp t"_s},
    };
    for (const ConnectionFile& content : contents) {
        writeConnectionFile(path(), content);
        EXPECT_EQ(pieces(readConnectionFile(path())), pieces(content));
    }
    EXPECT_EQ(
        QFileInfo(path()).permissions() & (QFile::ReadGroup | QFile::ReadOther | QFile::WriteGroup | QFile::WriteOther),
        QFile::Permissions());
}

TEST_F(ConnectionFileTest, WhatCouldNotBeReadBackIsRefusedAndTheFileStays) {
    const ConnectionFile good{u"srv"_s, u"db"_s, u"sa"_s, u"pw"_s};
    writeConnectionFile(path(), good);
    const QByteArray before = stored();
    const struct {
        ConnectionFile content;
        QString named;
    } cases[] = {
        {{u"a\nb"_s, {}, {}, {}}, u"［服务器］"_s},      {{{}, u"a;b"_s, {}, {}}, u"［数据库］"_s},
        {{{}, {}, u"a\u007Fb"_s, {}}, u"［登录名］"_s},  {{{}, {}, {}, u"xEncrypty"_s}, u"［密码］"_s},
        {{{}, {}, {}, u"\U0001F600"_s}, u"［密码］"_s},  {{{}, u"ü\u0E01"_s, {}, {}}, u"［数据库］"_s},
        {{{}, {}, {}, QString(32768, u'a')}, u"过长"_s},
    };
    for (const auto& [content, named] : cases) {
        try {
            writeConnectionFile(path(), content);
            ADD_FAILURE() << "not refused: " << named.toStdString();
        } catch (const RuntimeError& error) {
            EXPECT_TRUE(error.description().contains(named)) << error.what();
        }
        EXPECT_EQ(stored(), before);
    }
}

TEST_F(ConnectionFileTest, PiecesAreTakenBetweenTheSeparators) {
    store(scrambledAscii("leftoverEncryptsEncryptdEncryptlEncryptpEncryptmoreEncrypt"));
    EXPECT_EQ(pieces(readConnectionFile(path())).join(u'|'), u"s|d|l|p"_s);
}

TEST_F(ConnectionFileTest, BrokenFilesAreErrors) {
    EXPECT_NE(readingError(), 0) << "missing";
    const std::pair<QByteArray, int> files[] = {
        {{}, errors::SubscriptOutOfRange},
        {scrambledAscii("EncryptsEncryptdEncryptl"), errors::SubscriptOutOfRange},
        {scrambledAscii("encryptsencryptdencryptlencryptp"), errors::SubscriptOutOfRange},
        {"\x81"_ba, errors::SubscriptOutOfRange},
        {QByteArray(40'000, '0'), errors::Overflow},
        {QByteArray(200'000, '0'), errors::Overflow},
    };
    for (const auto& [bytes, error] : files) {
        store(bytes);
        EXPECT_EQ(readingError(), error) << bytes.size();
    }
    QFile::remove(path());
    QDir().mkpath(path());
    EXPECT_NE(readingError(), 0) << "a folder";
}

}  // namespace

}  // namespace talvora::test
