// A session with a server whose link is cut, held up or gone for a while, by a relay in between.

#include "core/mdlpublic.h"
#include "platform/database/connection_string.h"
#include "platform/runtime_error.h"
#include "records/scoring_bank.h"
#include "support/database_fixture.h"
#include "support/error_of.h"
#include "support/relay.h"

#include <QDebug>
#include <QElapsedTimer>

#include <thread>

namespace talvora::test {

using namespace Qt::StringLiterals;

namespace {

class LostLinkTest : public testing::Test {
 protected:
    void SetUp() override {
        const QString server = qEnvironmentVariable("TALVORA_TEST_SERVER");
        if (server.isEmpty()) {
            GTEST_SKIP() << "no server";
        }
        const ConnectionParts parts = ConnectionParts::parse(server);
        relay_ = std::make_unique<Relay>(parts.dataSource);
        session_.ConnectionString = QString(server).replace(parts.dataSource, relay_->dataSource());
        session_.CommandTimeout = 2;
        session_.Open();
        session_.Execute(u"if object_id('linktrial') is not null drop table linktrial"_s);
        session_.Execute(u"create table linktrial (x int)"_s);
    }
    void TearDown() override {
        if (relay_) {
            session_.Execute(u"drop table linktrial"_s);
        }
    }

    QString error(const QString& statement) {
        QElapsedTimer since;
        since.start();
        try {
            session_.Execute(statement);
            return u"done %1"_s.arg(since.elapsed());
        } catch (const DatabaseError& error) {
            return u"%1 %2 %3 (%4 ms)"_s.arg(error.number())
                .arg(error.sqlState(), error.description())
                .arg(since.elapsed());
        }
    }

    std::unique_ptr<Relay> relay_;
    Connection session_;
};

TEST_F(LostLinkTest, Trial) {
    qInfo() << error(u"select 1"_s);
    relay_->cut();
    qInfo() << "cut, select" << error(u"select 1"_s);
    relay_->cut();
    qInfo() << "cut, insert at once" << error(u"insert into linktrial values (1)"_s);
    qInfo() << "insert again" << error(u"insert into linktrial values (1)"_s);
    relay_->cut();
    std::this_thread::sleep_for(std::chrono::milliseconds(1100));
    qInfo() << "cut, insert later" << error(u"insert into linktrial values (1)"_s);
    relay_->setDown(true);
    qInfo() << "down, select" << error(u"select 1"_s);
    std::thread([this] {
        std::this_thread::sleep_for(std::chrono::milliseconds(700));
        relay_->setDown(false);
    }).detach();
    qInfo() << "down for 0.7 s, select" << error(u"select 1"_s);
    relay_->setHeld(true);
    qInfo() << "held, select" << error(u"select 1"_s);
    qInfo() << "held, select" << error(u"select 1"_s);
    relay_->setHeld(false);
    qInfo() << "free, select" << error(u"select 1"_s);
    qInfo() << "slow" << error(u"waitfor delay '00:00:05'"_s);
    qInfo() << "free, select" << error(u"select 1"_s);
    session_.BeginTrans();
    qInfo() << "in t" << error(u"insert into linktrial values (5)"_s);
    relay_->cut();
    qInfo() << "cut in t" << error(u"insert into linktrial values (6)"_s);
    qInfo() << "cut in t" << error(u"insert into linktrial values (7)"_s);
    EXPECT_THROW(session_.CommitTrans(), DatabaseError);
    qInfo() << "after" << error(u"insert into linktrial values (8)"_s);
    qInfo() << session_.Execute(u"select * from linktrial"_s).RecordCount();
}

}  // namespace

}  // namespace talvora::test
