#include "core/connection_file.h"
#include "core/mdlpublic.h"
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

    /// A file of single-byte characters, built by hand, byte by byte.
    static QByteArray scrambledAscii(QByteArray plain) {
        std::reverse(plain.begin(), plain.end());
        for (qsizetype i = 0; i < plain.size(); ++i) {
            plain[i] = static_cast<char>(plain[i] - (i + 1) % 10);
        }
        return plain;
    }

    bool connectBy(const ConnectionFile& content) const {
        writeConnectionFile(path(), content);
        return ConnectServer(folder_.path());
    }

    static QString pieces(const ConnectionFile& file) {
        return QStringList{file.server, file.database, file.login, file.password}.join(u'|');
    }

    QTemporaryDir folder_;
};

TEST_F(ConnectionFileTest, UnscramblingShiftsByPositionAndReverses) {
    EXPECT_EQ(UnscrambleText({}), QString());
    EXPECT_EQ(UnscrambleText(u"x"_s), QString());
    EXPECT_EQ(UnscrambleText(u"ABC."_s), u"FDB"_s);
    EXPECT_EQ(UnscrambleText(u"00000000000."_s), u"10987654321"_s);
    EXPECT_EQ(UnscrambleText(u"\u00FFz"_s), u"\u0100"_s);
    EXPECT_EQ(UnscrambleText(QString(32768, u'0')).size(), 32767);
    EXPECT_THROW(UnscrambleText(QString(32769, u'0')), RuntimeError);
}

TEST_F(ConnectionFileTest, WhatIsWrittenIsReadBack) {
    const QString longText = QString(300, u'镕') + u"encrypt Encryp t 丂狛"_s;
    const ConnectionFile contents[] = {{},
                                       {u"10.0.0.5,1433"_s, u"talvora"_s, u"sa"_s, u"p;w'\"=}{ "_s},
                                       {u"embedded"_s, u"/测评/a.db"_s, u"管理员"_s, u"密码１２３－；~"_s},
                                       {longText, QString(299, u'a'), {}, longText},
                                       {u"服务器"_s, u"库"_s, u"测评"_s, u"密码1"_s}};
    for (const ConnectionFile& content : contents) {
        writeConnectionFile(path(), content);
        EXPECT_EQ(pieces(readConnectionFile(path())), pieces(content));
    }
    EXPECT_EQ(stored().toHex(),
              "30c2e9c3d9706b736b5b6545c6bfb2e0716c746c5c663cbfe2736e766e5e683ec6efcee8b7fe736e766e5e683e"_ba);
    const auto others = QFile::ReadGroup | QFile::ReadOther | QFile::WriteGroup | QFile::WriteOther;
    EXPECT_EQ(QFileInfo(path()).permissions() & others, QFile::Permissions());
    store(scrambledAscii("leftoverEncryptsEncryptdEncryptlEncryptpEncryptmoreEncrypt"));
    EXPECT_EQ(pieces(readConnectionFile(path())), u"s|d|l|p"_s);
}

TEST_F(ConnectionFileTest, WhatCouldNotBeReadBackIsRefusedAndTheFileStays) {
    writeConnectionFile(path(), {u"srv"_s, u"db"_s, u"sa"_s, u"pw"_s});
    const QByteArray before = "vnqltl\\f<arrmum]g=Ydsnvn^h>nissnvn^h>"_ba;
    EXPECT_EQ(stored(), before);
    const std::pair<ConnectionFile, QString> cases[] = {
        {{u"a\nb"_s, {}, {}, {}}, u"［服务器］"_s},     {{{}, u"a;b"_s, {}, {}}, u"［数据库］"_s},
        {{{}, {}, u"a\u007Fb"_s, {}}, u"［登录名］"_s}, {{{}, {}, {}, u"xEncrypty"_s}, u"［密码］"_s},
        {{{}, {}, {}, u"\U0001F600"_s}, u"［密码］"_s}, {{{}, u"ü\u0E01"_s, {}, {}}, u"［数据库］"_s},
        {{{}, {}, {}, QString(32768, u'a')}, u"过长"_s}};
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

TEST_F(ConnectionFileTest, OpensTheSessionThatTheFileTells) {
    EXPECT_FALSE(ConnectServer(folder_.path())) << "no file: an attempt with empty names";
    const QString names =
        u"Provider=SQLOLEDB.1;Persist Security Info=True;User ID=%1;Initial Catalog=%2;Data "
        "Source=%3;pwd=%4"_s;
    EXPECT_EQ(cnnPublic.ConnectionString, names.arg(u""_s, u""_s, u""_s, u""_s));
    EXPECT_FALSE(connectBy({u"embedded"_s, u"no-such-folder/no.db"_s, {}, {}})) << "no such database";
    EXPECT_FALSE(connectBy({u"127.0.0.1,1"_s, u"db"_s, u"sa"_s, u"pw"_s})) << "nobody listens";
    EXPECT_TRUE(connectBy({u"embedded"_s, u":memory:"_s, u"sa"_s, u"p;w"_s}));
    EXPECT_EQ(cnnPublic.CommandTimeout, 10);
    EXPECT_EQ(cnnPublic.ConnectionString, names.arg(u"sa"_s, u":memory:"_s, u"embedded"_s, u"p;w"_s));
    cnnPublic.Close();
}

TEST_F(ConnectionFileTest, BrokenFilesAreErrors) {
    const auto readingError = [&] { return errorOf([&] { readConnectionFile(path()); }); };
    EXPECT_NE(readingError(), 0) << "missing";
    for (const QByteArray& bytes :
         {QByteArray(), "\x81"_ba, scrambledAscii("EncryptsEncryptdEncryptl"),
          scrambledAscii("encryptsencryptdencryptlencryptp"), QByteArray(40'000, '0'), QByteArray(200'000, '0')}) {
        store(bytes);
        EXPECT_EQ(readingError(), bytes.size() < 40'000 ? errors::SubscriptOutOfRange : errors::Overflow);
    }
    QFile::remove(path());
    QDir().mkpath(path());
    EXPECT_NE(readingError(), 0) << "a folder";
}

}  // namespace

}  // namespace talvora::test
