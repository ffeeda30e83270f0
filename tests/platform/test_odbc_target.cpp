#include "platform/database/odbc/odbc_handle.h"
#include "platform/database/odbc/odbc_target.h"

#include <gtest/gtest.h>

#include <ostream>
#include <vector>

using namespace talvora;
using namespace Qt::StringLiterals;

namespace {

const QString tail = u"TDS_Version=7.4;ClientCharset=UTF-8;"_s;

struct Target {
    QString driver;
    QString dataSource;
    QString password;
    QString expected;
};

void PrintTo(const Target& target, std::ostream* out) {
    *out << qPrintable(target.driver + u", "_s + target.dataSource + u", "_s + target.password);
}

QString textFor(const Target& target) {
    return odbc::driverConnectionString(target.driver, {target.dataSource, u"考核"_s, u"sa"_s, target.password});
}

class TargetTest : public testing::TestWithParam<Target> {};

TEST_P(TargetTest, IsSpelledAsTheDriverReadsIt) {
    EXPECT_EQ(textFor(GetParam()), GetParam().expected);
}

const QString odbc18 = u"ODBC Driver 18 for SQL Server"_s;
const QString odbc17 = u"ODBC Driver 17 for SQL Server"_s;

INSTANTIATE_TEST_SUITE_P(
    FreeTds, TargetTest,
    testing::Values(Target{u"FreeTDS"_s, u"db1"_s, u"p"_s,
                           u"DRIVER=FreeTDS;SERVER=db1;PORT=1433;UID=sa;PWD=p;DATABASE=考核;"_s + tail},
                    Target{u"FreeTDS"_s, u"db1,1500"_s, u"p"_s,
                           u"DRIVER=FreeTDS;SERVER=db1;PORT=1500;UID=sa;PWD=p;DATABASE=考核;"_s + tail},
                    Target{u"FreeTDS"_s, u" tcp:db1 , 1500 "_s, u"p"_s,
                           u"DRIVER=FreeTDS;SERVER=db1;PORT=1500;UID=sa;PWD=p;DATABASE=考核;"_s + tail},
                    Target{u"FreeTDS"_s, u"db1\\express"_s, u"p"_s,
                           u"DRIVER=FreeTDS;SERVER=db1\\express;UID=sa;PWD=p;DATABASE=考核;"_s + tail},
                    // A port makes the instance's name needless, and FreeTDS takes only one of them.
                    Target{u"FreeTDS"_s, u"db1\\express,1500"_s, u"p"_s,
                           u"DRIVER=FreeTDS;SERVER=db1;PORT=1500;UID=sa;PWD=p;DATABASE=考核;"_s + tail},
                    Target{u"FreeTDS"_s, u"(LOCAL)"_s, u"p"_s,
                           u"DRIVER=FreeTDS;SERVER=localhost;PORT=1433;UID=sa;PWD=p;DATABASE=考核;"_s + tail},
                    Target{u"FreeTDS"_s, u".\\express"_s, u"p"_s,
                           u"DRIVER=FreeTDS;SERVER=localhost\\express;UID=sa;PWD=p;DATABASE=考核;"_s + tail},
                    Target{u"FreeTDS"_s, u"db1"_s, u"a;b=c"_s,
                           u"DRIVER=FreeTDS;SERVER=db1;PORT=1433;UID=sa;PWD={a;b=c};DATABASE=考核;"_s + tail},
                    Target{u"FreeTDS"_s, u"db1"_s, u"a}b"_s,
                           u"DRIVER=FreeTDS;SERVER=db1;PORT=1433;UID=sa;PWD=a}b;DATABASE=考核;"_s + tail},
                    Target{u"FreeTDS"_s, u"db1"_s, u"{a}"_s,
                           u"DRIVER=FreeTDS;SERVER=db1;PORT=1433;UID=sa;PWD={{a}};DATABASE=考核;"_s + tail},
                    Target{u"FreeTDS"_s, u"db1"_s, u" a"_s,
                           u"DRIVER=FreeTDS;SERVER=db1;PORT=1433;UID=sa;PWD={ a};DATABASE=考核;"_s + tail}));

INSTANTIATE_TEST_SUITE_P(
    Microsoft, TargetTest,
    testing::Values(
        Target{odbc18, u"tcp:db1\\express,1500"_s, u"p"_s,
               u"DRIVER={ODBC Driver 18 for SQL Server};SERVER=tcp:db1\\express,1500;UID=sa;PWD=p;DATABASE=考核;"
               "TrustServerCertificate=yes;Encrypt=optional;"_s},
        Target{odbc17, u"(local)"_s, u"a;b}c=d"_s,
               u"DRIVER={ODBC Driver 17 for SQL Server};SERVER=(local);UID=sa;PWD={a;b}}c=d};DATABASE=考核;"
               "TrustServerCertificate=yes;"_s},
        Target{u"SQL Server"_s, u"db1"_s, u" p"_s,
               u"DRIVER={SQL Server};SERVER=db1;UID=sa;PWD={ p};DATABASE=考核;"_s}));

TEST(OdbcTarget, WhatADriverCannotBeToldIsRefused) {
    const std::vector<Target> refused = {{u"FreeTDS"_s, u"db1"_s, u"a};b"_s, {}},
                                         {u"FreeTDS"_s, u"db1"_s, u"a\0b"_s, {}},
                                         {odbc18, u"db1"_s, u"a\0b"_s, {}},
                                         {u"FreeTDS"_s, u"db1,"_s, u"p"_s, {}},
                                         {u"FreeTDS"_s, u"db1,port"_s, u"p"_s, {}},
                                         {u"FreeTDS"_s, u"db1,70000"_s, u"p"_s, {}},
                                         {u"FreeTDS"_s, u"db1\\express,x"_s, u"p"_s, {}}};
    for (const Target& target : refused) {
        EXPECT_THROW(textFor(target), DatabaseError) << testing::PrintToString(target);
    }
}

TEST(OdbcTarget, TheBestInstalledDriverIsTaken) {
    const std::vector<std::pair<QStringList, QString>> choices = {
        {{}, {}},
        {{u"SQLite3"_s, u"PostgreSQL Unicode"_s, u"ODBC Driver for SQL Server"_s}, {}},
        {{u"SQL Server"_s, u"SQLite3"_s}, u"SQL Server"_s},
        {{u"SQL Server"_s, u"FreeTDS"_s}, u"FreeTDS"_s},
        {{u"ODBC Driver 9 for SQL Server"_s, u"FreeTDS"_s, odbc17, u"SQL Server"_s}, odbc17},
        {{odbc17, odbc18, u"ODBC Driver 9 for SQL Server"_s}, odbc18}};
    for (const auto& [installed, best] : choices) {
        EXPECT_EQ(odbc::bestDriver(installed), best) << qPrintable(installed.join(u", "_s));
    }
}

TEST(OdbcMessage, LosesTheNamesInFrontOfItsWords) {
    const std::vector<std::pair<QString, QString>> messages = {
        {u"[unixODBC][FreeTDS][SQL Server]Invalid object name 'x'."_s, u"Invalid object name 'x'."_s},
        {u"[Microsoft][ODBC Driver 18 for SQL Server]Login timeout expired"_s, u"Login timeout expired"_s},
        {u"no such table: [x]"_s, u"no such table: [x]"_s},
        {u"[open"_s, u"[open"_s},
        {u"[SQLite]"_s, u""_s}};
    for (const auto& [given, expected] : messages) {
        EXPECT_EQ(odbc::plainMessage(given), expected);
    }
}

}  // namespace
