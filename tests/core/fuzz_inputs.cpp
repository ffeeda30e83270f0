#include "core/connection_file.h"
#include "core/mdlpublic.h"
#include "platform/numbers.h"
#include "support/error_of.h"

#include <QElapsedTimer>
#include <QFile>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <gtest/gtest.h>

// Random input for what the program reads from outside. Some seconds in the suite, longer with TALVORA_FUZZ_SECONDS.
namespace talvora::test {

using namespace Qt::StringLiterals;

namespace {

class Fuzz : public ::testing::Test {
 protected:
    int below(qsizetype bound) { return static_cast<int>(random_.bounded(static_cast<quint32>(bound))); }

    bool timeLeft() const {
        bool given = false;
        const int seconds = qEnvironmentVariableIntValue("TALVORA_FUZZ_SECONDS", &given);
        return clock_.elapsed() < qint64{given ? seconds : 1} * 1000;
    }

    void store(const QByteArray& bytes) const {
        QFile file(path());
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
    }

    QByteArray realFile() const {
        writeConnectionFile(path(), {u"服务器\\实例"_s, u"人事测评"_s, u"登录"_s, u"口令 9"_s});
        QFile file(path());
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    QByteArray noise(int length) {
        QByteArray bytes(length, '\0');
        for (char& byte : bytes) {
            byte = static_cast<char>(below(256));
        }
        return bytes;
    }

    QString path() const { return folder_.filePath(connectionFileName()); }
    QString folder() const { return folder_.path(); }

 private:
    QTemporaryDir folder_;
    QRandomGenerator random_{20100905};
    QElapsedTimer clock_ = [] {
        QElapsedTimer clock;
        clock.start();
        return clock;
    }();
};

TEST_F(Fuzz, BrokenConnectionFilesOpenNothing) {
    const QByteArray real = realFile();
    for (const QByteArray& bytes : {QByteArray(), real.left(1), real.left(real.size() / 2), QByteArray(40000, 'x')}) {
        store(bytes);
        EXPECT_FALSE(ConnectServer(folder())) << "of " << bytes.size() << " bytes";
    }
    while (timeLeft()) {
        store(noise(below(300)));
        EXPECT_FALSE(ConnectServer(folder()));
    }
}

TEST_F(Fuzz, AlteredConnectionFilesAreReadOrRefused) {
    const QByteArray real = realFile();
    int read = 0;
    while (timeLeft()) {
        QByteArray altered = real;
        for (int changes = 1 + below(4); changes > 0 && !altered.isEmpty(); --changes) {
            const int at = below(altered.size());
            if (below(2) == 0) {
                altered[at] = static_cast<char>(below(256));
            } else {
                altered.remove(at, 1 + below(3));
            }
        }
        store(altered);
        const int error = errorOf([&] { readConnectionFile(path()); });
        EXPECT_TRUE(error == 0 || error == errors::SubscriptOutOfRange) << error;
        read += error == 0 ? 1 : 0;
    }
    EXPECT_GT(read, 0) << "an alteration within a piece leaves a file that reads";
}

TEST_F(Fuzz, NumberConversionsAgreeOnWhatIsANumber) {
    const QString characters = u"0123456789..,+-eEdD()&HhOFa $¥￥％ \t１－."_s;
    while (timeLeft()) {
        QString text;
        for (int length = below(12); length > 0; --length) {
            text += characters[below(characters.size())];
        }
        const int error = errorOf([&] { toNumber(text); });
        EXPECT_EQ(error, isNumeric(text) ? 0 : errors::TypeMismatch) << text.toStdString();
        const int narrow = errorOf([&] { toInt16(text); });
        EXPECT_TRUE(narrow == error || narrow == errors::Overflow) << text.toStdString();
        leadingNumber(text);
    }
}

}  // namespace

}  // namespace talvora::test
