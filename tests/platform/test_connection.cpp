#include "platform/database/connection.h"
#include "platform/database/connection_string.h"
#include "platform/database/embedded/embedded_driver.h"
#include "platform/embedded_bank.h"
#include "platform/runtime_error.h"
#include "support/error_of.h"

#include <QStringList>
#include <QTemporaryDir>
#include <gtest/gtest.h>

#include <functional>
#include <vector>

using namespace talvora;
using test::errorOf;
using namespace Qt::StringLiterals;

namespace {

class ConnectionTest : public testing::Test {
 protected:
    void SetUp() override {
        createEmbedded(ConnectionParts::parse(test::embeddedString(file_)));
        session_.ConnectionString = test::embeddedString(file_);
        session_.Open();
        session_.Execute(u"create table t (id int)"_s);
    }

    void insert(int id) { session_.Execute(u"insert into t (id) values (%1)"_s.arg(id)); }

    /// The ids that another session sees, as one text.
    QString stored() const {
        Connection other;
        other.ConnectionString = session_.ConnectionString;
        other.Open();
        QStringList ids;
        for (const Row row : other.Execute(u"select id from t order by id"_s)) {
            ids << row.text("id");
        }
        return ids.join(u' ');
    }

    QTemporaryDir directory_;
    QString file_ = directory_.filePath(u"bank.db"_s);
    Connection session_;
};

TEST_F(ConnectionTest, WithoutAnOpenSessionEveryCallIsError3704) {
    Connection closed;
    EXPECT_FALSE(closed.IsOpen());
    EXPECT_EQ(errorOf([&] { closed.Execute(u"select 1"_s); }), errors::ConnectionClosed);
    EXPECT_EQ(errorOf([&] { closed.BeginTrans(); }), errors::ConnectionClosed);
    EXPECT_EQ(errorOf([&] { closed.CommitTrans(); }), errors::ConnectionClosed);
    EXPECT_EQ(errorOf([&] { closed.RollbackTrans(); }), errors::ConnectionClosed);
    closed.Close();
    closed.Abandon();
}

TEST_F(ConnectionTest, AFailingOpenLeavesNoSession) {
    session_.ConnectionString = test::embeddedString(directory_.filePath(u"nothere.db"_s));
    EXPECT_THROW(session_.Open(), DatabaseError);
    EXPECT_FALSE(session_.IsOpen());
    EXPECT_EQ(errorOf([&] { insert(1); }), errors::ConnectionClosed);
}

TEST_F(ConnectionTest, ATransactionLeftOpenIsCommittedByTheNextOne) {
    session_.BeginTrans();
    insert(1);
    session_.BeginTrans();
    EXPECT_EQ(stored(), u"1"_s);
    insert(2);
    session_.RollbackTrans();
    EXPECT_EQ(stored(), u"1"_s);
}

TEST_F(ConnectionTest, AnOrderlyEndCommitsWhatIsOpen) {
    const std::vector<std::function<void()>> ends = {[&] { session_.Close(); }, [&] { session_.Open(); }};
    QString expected;
    int id = 0;
    for (const auto& end : ends) {
        session_.Open();
        session_.BeginTrans();
        insert(++id);
        end();
        expected = (expected + u' ' + QString::number(id)).trimmed();
        EXPECT_EQ(stored(), expected);
    }
    session_.BeginTrans();
    insert(++id);
    session_.Abandon();
    EXPECT_EQ(stored(), expected) << "an abandoned session undoes what is open";
    {
        Connection scoped;
        scoped.ConnectionString = session_.ConnectionString;
        scoped.Open();
        scoped.BeginTrans();
        scoped.Execute(u"insert into t (id) values (9)"_s);
    }
    EXPECT_EQ(stored(), expected + u" 9"_s);
}

TEST_F(ConnectionTest, TheObserverSeesEachStatementBeforeItRuns) {
    QStringList seen;
    session_.setObserver([&](const QString& statement) { seen << statement + u" | "_s + stored(); });
    session_.BeginTrans();
    insert(1);
    session_.CommitTrans();
    session_.BeginTrans();
    session_.RollbackTrans();
    const QStringList expected = {u"begin transaction | "_s, u"insert into t (id) values (1) | "_s,
                                  u"commit transaction | "_s, u"begin transaction | 1"_s,
                                  u"rollback transaction | 1"_s};
    EXPECT_EQ(seen, expected);
}

}  // namespace
