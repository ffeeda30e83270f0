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
    cnnPublic.Execute(u"insert into UserRole (UserID,RoleID) values (3,70),(4,70)"_s);
    EXPECT_TRUE(IsExistID(u"UserRole"_s, u"RoleID"_s, 70));
    EXPECT_FALSE(IsExistID(u"UserRole"_s, u"RoleID"_s, 71));
}

TEST_P(DataRoutinesTest, TypeCodesRunOn) {
    // The codes that are there, the kind of the new type, its parent and the code that it gets.
    const QString cases =
        u"|parent||001;005 002 005007|parent||006;009|parent||0010;009 0010|parent||0010;|child||001001;"
        "001 001004|child||001005;003007 004012|child|003|003008;001999|child|001|002000;"
        "010001|child|010|0010002;004012|Parent|004|004013"_s;
    for (const QString& row : cases.split(u';')) {
        const QStringList parts = row.split(u'|');
        cnnPublic.Execute(u"delete from TestingType"_s);
        for (const QString& code : parts[0].split(u' ', Qt::SkipEmptyParts)) {
            cnnPublic.Execute(u"insert into TestingType (TestingType,TypeCode) values ('x','%1')"_s.arg(code));
        }
        EXPECT_EQ(NewTypeCode(parts[1], parts[2]), parts[3]) << row.toStdString();
    }
}

}  // namespace

}  // namespace talvora::test
