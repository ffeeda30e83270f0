#include "core/connection_file.h"
#include "core/mdlpublic.h"
#include "platform/numbers.h"
#include "support/error_of.h"

#include <QDeadlineTimer>
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

    QRandomGenerator random_{20100905};
    QDeadlineTimer end_{qEnvironmentVariable("TALVORA_FUZZ_SECONDS", u"1"_s).toLongLong() * 1000};
};

TEST_F(Fuzz, AlteredConnectionFilesAreReadOrRefused) {
    const QTemporaryDir folder;
    QFile file(folder.filePath(connectionFileName()));
    writeConnectionFile(file.fileName(), {u"服务器\\实例"_s, u"人事测评"_s, u"登录"_s, u"口令 9"_s});
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QByteArray real = file.readAll();
    file.close();
    int read = 0;
    while (!end_.hasExpired()) {
        QByteArray altered = real;
        if (below(4) == 0) {
            altered.resize(below(300));
            random_.generate(altered.begin(), altered.end());
        }
        for (int changes = 1 + below(4); changes > 0 && !altered.isEmpty(); --changes) {
            const int at = below(altered.size());
            if (below(2) == 0) {
                altered[at] = static_cast<char>(below(256));
            } else {
                altered.remove(at, 1 + below(3));
            }
        }
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(altered);
        file.close();
        const int error = errorOf([&] { readConnectionFile(file.fileName()); });
        EXPECT_TRUE(error == 0 || error == errors::SubscriptOutOfRange) << error;
        EXPECT_FALSE(error != 0 && ConnectServer(folder.path()));
        read += error == 0 ? 1 : 0;
    }
    EXPECT_GT(read, 0) << "an alteration within a piece leaves a file that reads";
}

TEST_F(Fuzz, NumberConversionsAgreeOnWhatIsANumber) {
    const QString characters = u"0123456789..,+-eEdD()&HhOFa $¥￥％ \t１－."_s;
    while (!end_.hasExpired()) {
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
