#include "core/connection_file.h"
#include "platform/runtime_error.h"

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <gtest/gtest.h>

#include <optional>
#include <random>

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

    /// The number of the error with which reading fails, 0 when it does not.
    int readingError() const {
        try {
            readConnectionFile(path());
            return 0;
        } catch (const RuntimeError& error) {
            return error.number();
        }
    }

    /// A file of single-byte characters, made by hand as the set-up tool of old made it.
    static QByteArray scrambledAscii(QByteArray plain) {
        std::reverse(plain.begin(), plain.end());
        for (qsizetype i = 0; i < plain.size(); ++i) {
            plain[i] = static_cast<char>(plain[i] - (i + 1) % 10);
        }
        return plain;
    }

 private:
    QTemporaryDir folder_;
};

TEST_F(ConnectionFileTest, UnscramblingShiftsByPositionAndReverses) {
    const struct {
        QString scrambled;
        QString plain;
    } cases[] = {{QString(), QString()},
                 {u"x"_s, QString()},
                 {u"ABC."_s, u"FDB"_s},
                 {u"00000000000."_s, u"10987654321"_s},
                 {u"\u00FFz"_s, u"\u0100"_s}};
    for (const auto& [scrambled, plain] : cases) {
        EXPECT_EQ(UnscrambleText(scrambled), plain) << scrambled.toStdString();
    }
}

TEST_F(ConnectionFileTest, UnscramblingEndsWhereItsCountersDo) {
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
        const ConnectionFile read = readConnectionFile(path());
        EXPECT_EQ(read.server, content.server);
        EXPECT_EQ(read.database, content.database);
        EXPECT_EQ(read.login, content.login);
        EXPECT_EQ(read.password, content.password);
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
    const ConnectionFile read = readConnectionFile(path());
    EXPECT_EQ(read.server + read.database + read.login + read.password, u"sdlp"_s);
}

TEST_F(ConnectionFileTest, BrokenFilesAreErrors) {
    EXPECT_NE(readingError(), 0) << "missing";
    store(QByteArray());
    EXPECT_EQ(readingError(), errors::SubscriptOutOfRange) << "empty";
    store(scrambledAscii("EncryptsEncryptdEncryptl"));
    EXPECT_EQ(readingError(), errors::SubscriptOutOfRange) << "four pieces";
    store(scrambledAscii("encryptsencryptdencryptlencryptp"));
    EXPECT_EQ(readingError(), errors::SubscriptOutOfRange) << "separator in small letters";
    store("\x81"_ba);
    EXPECT_EQ(readingError(), errors::SubscriptOutOfRange) << "half a character";
    store(QByteArray(40'000, '0'));
    EXPECT_EQ(readingError(), errors::Overflow) << "too long";
    store(QByteArray(200'000, '0'));
    EXPECT_EQ(readingError(), errors::Overflow) << "far too long";
    QFile::remove(path());
    QDir().mkpath(path());
    EXPECT_NE(readingError(), 0) << "a folder";
}

TEST_F(ConnectionFileTest, RandomBytesNeverCrash) {
    std::mt19937 random(20100905);
    writeConnectionFile(path(), {u"服务器"_s, u"测评"_s, u"sa"_s, u"密码"_s});
    const QByteArray valid = stored();
    for (int round = 0; round < 600; ++round) {
        QByteArray bytes = round % 2 == 0 ? valid : QByteArray(static_cast<qsizetype>(random() % 300), '\0');
        const qsizetype changes = round % 2 == 0 ? static_cast<qsizetype>(1 + random() % 3) : bytes.size();
        for (qsizetype i = 0; i < changes; ++i) {
            bytes[round % 2 == 0 ? static_cast<qsizetype>(random()) % bytes.size() : i] = static_cast<char>(random());
        }
        store(bytes);
        readingError();
    }
}

}  // namespace

}  // namespace talvora::test
