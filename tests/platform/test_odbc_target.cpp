#include "platform/database/odbc/odbc_handle.h"
#include "platform/database/odbc/odbc_target.h"

#include <gtest/gtest.h>

#include <vector>

using namespace talvora;
using namespace Qt::StringLiterals;

namespace {

struct Target {
    QString driver;
    QString dataSource;
    QString password;
    QString expected;
};

QString textFor(const Target& target) {
    return odbc::driverConnectionString(target.driver, {target.dataSource, u"考核"_s, u"sa"_s, target.password});
}

const QString freeTds = u"FreeTDS"_s;
const QString odbc18 = u"ODBC Driver 18 for SQL Server"_s;
const QString odbc17 = u"ODBC Driver 17 for SQL Server"_s;

TEST(OdbcTarget, IsSpelledAsTheDriverReadsIt) {
    // What stands between the driver's name and the options that every string of the driver ends with.
    const QString user = u"UID=sa;PWD=p;DATABASE=考核;"_s;
    const std::vector<Target> targets = {
        {freeTds, u"db1"_s, u"p"_s, u"SERVER=db1;PORT=1433;"_s + user},
        {freeTds, u" tcp:db1 , 1500 "_s, u"p"_s, u"SERVER=db1;PORT=1500;"_s + user},
        {freeTds, u"db1\\express"_s, u"p"_s, u"SERVER=db1\\express;"_s + user},
        // A port makes the instance's name needless, and FreeTDS takes only one of them.
        {freeTds, u"db1\\express,1500"_s, u"p"_s, u"SERVER=db1;PORT=1500;"_s + user},
        {freeTds, u"(LOCAL)"_s, u"p"_s, u"SERVER=localhost;PORT=1433;"_s + user},
        {freeTds, u".\\express"_s, u"p"_s, u"SERVER=localhost\\express;"_s + user},
        {freeTds, u"db1"_s, u"a;b=c"_s, u"SERVER=db1;PORT=1433;UID=sa;PWD={a;b=c};DATABASE=考核;"_s},
        {freeTds, u"db1"_s, u"a}b"_s, u"SERVER=db1;PORT=1433;UID=sa;PWD=a}b;DATABASE=考核;"_s},
        {freeTds, u"db1"_s, u"{a}"_s, u"SERVER=db1;PORT=1433;UID=sa;PWD={{a}};DATABASE=考核;"_s},
        {freeTds, u"db1"_s, u" a"_s, u"SERVER=db1;PORT=1433;UID=sa;PWD={ a};DATABASE=考核;"_s},
        {odbc18, u"tcp:db1\\express,1500"_s, u"p"_s, u"SERVER=tcp:db1\\express,1500;"_s + user},
        {odbc17, u"(local)"_s, u"a;b}c=d"_s, u"SERVER=(local);UID=sa;PWD={a;b}}c=d};DATABASE=考核;"_s},
        {u"SQL Server"_s, u"db1"_s, u" p"_s, u"SERVER=db1;UID=sa;PWD={ p};DATABASE=考核;"_s}};
    for (const Target& target : targets) {
        const bool isFreeTds = target.driver == freeTds;
        const QString head = isFreeTds ? u"DRIVER=FreeTDS;"_s : u"DRIVER={%1};"_s.arg(target.driver);
        QString tail = isFreeTds ? u"TDS_Version=7.4;ClientCharset=UTF-8;"_s : QString();
        if (target.driver.startsWith(u"ODBC"_s)) {
            tail = u"TrustServerCertificate=yes;"_s + (target.driver == odbc18 ? u"Encrypt=optional;"_s : QString());
        }
        EXPECT_EQ(textFor(target), head + target.expected + tail);
    }
}

TEST(OdbcTarget, WhatADriverCannotBeToldIsRefused) {
    const std::vector<Target> refused = {
        {freeTds, u"db1"_s, u"a};b"_s, {}},        {freeTds, u"db1"_s, u"a\0b"_s, {}},
        {odbc18, u"db1"_s, u"a\0b"_s, {}},         {freeTds, u"db1,"_s, u"p"_s, {}},
        {freeTds, u"db1,port"_s, u"p"_s, {}},      {freeTds, u"db1,70000"_s, u"p"_s, {}},
        {freeTds, u"db1\\express,x"_s, u"p"_s, {}}};
    for (const Target& target : refused) {
        EXPECT_THROW(textFor(target), DatabaseError) << qPrintable(target.dataSource);
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
