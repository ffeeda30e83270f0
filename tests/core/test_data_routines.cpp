#include "core/data_routines.h"
#include "support/database_fixture.h"

namespace talvora::test {

using namespace Qt::StringLiterals;

namespace {

class DataRoutinesTest : public DatabaseTest {
 protected:
    static void addQuery(const QString& name) {
        cnnPublic.Execute(u"insert into Query (Query,Condition) values ('"_s + name + u"','')"_s);
    }
};
TALVORA_ON_EVERY_ENGINE(DataRoutinesTest);

TEST_P(DataRoutinesTest, NewIdFollowsTheGreatestPresent) {
    EXPECT_EQ(GetNewID(u"Query"_s, u"QueryID"_s), 1);
    addQuery(u"a"_s);
    addQuery(u"b"_s);
    const qint32 greatest = numberOf(u"select max(QueryID) from Query"_s);
    EXPECT_EQ(GetNewID(u"query"_s, u"queryid"_s), greatest + 1);
    cnnPublic.Execute(u"delete from Query where Query='b'"_s);
    EXPECT_EQ(GetNewID(u"Query"_s, u"QueryID"_s), greatest);
    EXPECT_THROW(GetNewID(u"NoTable"_s, u"ID"_s), DatabaseError);
}

TEST_P(DataRoutinesTest, NameExistsWithOneRowAndAnIdWithOneOrMore) {
    const auto exists = [](const QString& exceptId) {
        return IsExistName(u"Query"_s, u"Query"_s, u"本科"_s, exceptId.isEmpty() ? QString() : u"QueryID"_s, exceptId);
    };
    EXPECT_FALSE(exists({}));
    addQuery(u"本科"_s);
    const qint16 id = numberOf(u"select QueryID from Query"_s);
    EXPECT_TRUE(IsExistID(u"Query"_s, u"QueryID"_s, id));
    EXPECT_TRUE(exists({}));
    EXPECT_FALSE(exists(QString::number(id))) << "the row being edited";
    addQuery(u"本科"_s);
    EXPECT_FALSE(exists({})) << "two rows already share it";
    EXPECT_TRUE(exists(QString::number(id)));
    cnnPublic.Execute(u"insert into UserRole (UserID,RoleID) values (3,70)"_s);
    cnnPublic.Execute(u"insert into UserRole (UserID,RoleID) values (4,70)"_s);
    EXPECT_TRUE(IsExistID(u"UserRole"_s, u"RoleID"_s, 70));
    EXPECT_FALSE(IsExistID(u"UserRole"_s, u"RoleID"_s, 71));
}

TEST_P(DataRoutinesTest, TypeCodesRunOn) {
    const QString cases[][4] = {
        {{}, u"parent"_s, {}, u"001"_s},
        {u"005 002 005007"_s, u"parent"_s, {}, u"006"_s},
        {u"009"_s, u"parent"_s, {}, u"0010"_s},
        {u"009 0010"_s, u"parent"_s, {}, u"0010"_s},
        {{}, u"child"_s, {}, u"001001"_s},
        {u"001 001004"_s, u"child"_s, {}, u"001005"_s},
        {u"003007 004012"_s, u"child"_s, u"003"_s, u"003008"_s},
        {u"001009"_s, u"child"_s, u"001"_s, u"001010"_s},
        {u"001999"_s, u"child"_s, u"001"_s, u"002000"_s},
        {u"010001"_s, u"child"_s, u"010"_s, u"0010002"_s},
        {u"004012"_s, u"Parent"_s, u"004"_s, u"004013"_s},
    };
    for (const auto& [present, kind, parent, next] : cases) {
        cnnPublic.Execute(u"delete from TestingType"_s);
        for (const QString& code : present.split(u' ', Qt::SkipEmptyParts)) {
            cnnPublic.Execute(u"insert into TestingType (TestingType,TypeCode) values ('x','%1')"_s.arg(code));
        }
        EXPECT_EQ(NewTypeCode(kind, parent), next) << present.toStdString();
    }
}

}  // namespace

}  // namespace talvora::test
