#include "core/connection_file.h"
#include "core/mdlpublic.h"

#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace talvora::test {

using namespace Qt::StringLiterals;

namespace {

class ConnectServerTest : public ::testing::Test {
 protected:
    ~ConnectServerTest() override { cnnPublic.Close(); }

    bool connectBy(const ConnectionFile& content) const {
        writeConnectionFile(folder_.filePath(connectionFileName()), content);
        return ConnectServer(folder_.path());
    }

    QTemporaryDir folder_;
};

TEST_F(ConnectServerTest, OpensTheSessionThatTheFileTells) {
    EXPECT_TRUE(connectBy({u"embedded"_s, u":memory:"_s, u"sa"_s, u"p;w"_s}));
    EXPECT_TRUE(cnnPublic.IsOpen());
    EXPECT_EQ(cnnPublic.CommandTimeout, 10);
    EXPECT_EQ(cnnPublic.ConnectionString,
              u"Provider=SQLOLEDB.1;Persist Security Info=True;User ID=sa;Initial Catalog=:memory:;Data "
              "Source=embedded;pwd=p;w"_s);
}

TEST_F(ConnectServerTest, FalseWhateverTheCause) {
    EXPECT_FALSE(ConnectServer(folder_.path())) << "no file: an attempt with empty names";
    EXPECT_EQ(cnnPublic.ConnectionString,
              u"Provider=SQLOLEDB.1;Persist Security Info=True;User ID=;Initial Catalog=;Data Source=;pwd="_s);
    EXPECT_FALSE(connectBy({u"embedded"_s, u"no-such-folder/no.db"_s, {}, {}})) << "no such database";
    EXPECT_FALSE(connectBy({u"127.0.0.1,1"_s, u"db"_s, u"sa"_s, u"pw"_s})) << "nobody listens";
}

}  // namespace

}  // namespace talvora::test
