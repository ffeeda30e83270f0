#include "core/status_of.h"
#include "support/database_fixture.h"
#include "testbank/ctestingtype.h"

namespace talvora::test {

using namespace Qt::StringLiterals;

namespace {

class TestingTypeTest : public DatabaseTest {
 protected:
    /// Each as "code" or as "code name".
    static void addRows(const QStringList& types) {
        for (const QString& type : types) {
            cnnPublic.Execute(u"insert into TestingType (TestingType,TypeCode) values ('%1','%2')"_s.arg(
                type.section(u' ', -1), type.section(u' ', 0, 0)));
        }
    }

    /// A type with the words that a text lists.
    static cTestingType words(const QString& list) {
        cTestingType type;
        for (std::size_t i = 0; i < testingTypeWords.size(); ++i) {
            type.*testingTypeWords[i] = list.section(u',', static_cast<int>(i), static_cast<int>(i));
        }
        return type;
    }

    /// A type whose every member is told from the others.
    static cTestingType full() {
        return {{},      {},      {},      u"au"_s, u"ad"_s, u"ap"_s, u"r1"_s, u"r2"_s, u"r3"_s,
                u"r4"_s, u"n1"_s, u"n2"_s, u"n3"_s, u"n4"_s, u"d1"_s, u"d2"_s, u"d3"_s, u"note"_s};
    }

    static QString codes(TypeKind kind, const QString& code = {}) {
        cTestingTypes types;
        QStringList found;
        for (const auto& type : types.Find(kind, code)) {
            found += type->NowCode;
        }
        return found.join(u' ');
    }
};
TALVORA_ON_EVERY_ENGINE(TestingTypeTest);

TEST_P(TestingTypeTest, MainTypeIsWrittenWithItsNameAloneAndASubtypeWhole) {
    EXPECT_EQ(sentBy([] { return full().AddNew(u"parent"_s, QString(), u" 能力 "_s); }),
              u"SELECT MAX(TypeCode)  FROM testingType where len(TypeCode)=3\n"
              "Select Count(*) from testingType where TestingType=' 能力 ' and len(TypeCode)=3\n"
              "insert into testingType (TestingType,TypeCode) values (' 能力 ','001')"_s);
    EXPECT_EQ(sentBy([] { return full().AddNew(u"child"_s, u"001"_s, u"条理性"_s); }),
              u"SELECT MAX(TypeCode)  FROM testingType where left(TypeCode,3) ='001' and Len(TypeCode)=6\n"
              "Select Count(*) from testingType where TestingType='条理性' and left(TypeCode,3)='001' and "
              "len(TypeCode)=6\n"
              "insert into testingType (TestingType,TypeCode,Author,Auditing,Approver,WriteDate,AuditingDate,"
              "ApproverDate,TestingResult1,TestingResult2,TestingResult3,TestingResult4,TestingNote1,TestingNote2,"
              "TestingNote3,TestingNote4,Note) values ('条理性','001001','au','ad','ap','d1','d2',"
              "'d3','r1','r2','r3','r4','n1','n2','n3','n4','note')"_s);
}

TEST_P(TestingTypeTest, NamesAreComparedByTheRuleOfEachOperation) {
    addRows({u"001 能力"_s, u"002 品格"_s, u"003 双"_s, u"004 双"_s, u"001001 条理性"_s, u"002001 诚信"_s});
    const cTestingType type;
    EXPECT_EQ(type.AddNew(u"parent"_s, {}, u"能力"_s), Status::Taken);
    EXPECT_EQ(type.AddNew(u"parent"_s, {}, u"双"_s), Status::Done) << "two hold it already";
    EXPECT_EQ(type.AddNew(u"parent"_s, {}, u"诚信"_s), Status::Done) << "a subtype's name";
    EXPECT_EQ(type.AddNew(u"child"_s, u"001"_s, u"条理性"_s), Status::Taken);
    EXPECT_EQ(type.AddNew(u"child"_s, u"002"_s, u"条理性"_s), Status::Done) << "under another main type";
    EXPECT_EQ(type.AddNew(u"child"_s, u"001"_s, u"能力"_s), Status::Done) << "a main type's name";
    EXPECT_EQ(type.Update(u"001001"_s, u"条理性"_s), Status::Taken) << "one other holds it, wherever";
    EXPECT_EQ(type.Update(u"002001"_s, u"品格"_s), Status::Taken) << "even a main type";
    EXPECT_EQ(type.Update(u"002001"_s, u"双"_s), Status::Done) << "three hold it";
}

TEST_P(TestingTypeTest, UpdateSendsThisSeries) {
    words(u"o1,o2,o3,o4"_s).AddNew(u"child"_s, u"001"_s, u"旧"_s);
    const QString sent = sentBy([] { return full().Update(u"001001"_s, u"新"_s); });
    QString expected =
        u"Select Count(*) from testingType where TestingType='新' and TypeCode<>'001001'\n"
        "Select TestingResult1,TestingResult2,TestingResult3,TestingResult4 from testingType where TypeCode='001001'\n"
        "begin transaction\n"_s;
    for (int i = 0; i < 16; ++i) {
        expected +=
            u"update examination set descScope%2='r%1' where TypeCode='001001' and descScope%2='o%1'\n"_s.arg(i / 4 + 1)
                .arg(i % 4 + 1);
    }
    expected +=
        u"Update TestingType Set TestingType='新', Author='au', Auditing='ad', Approver='ap', WriteDate='d1', "
        "AuditingDate='d2', ApproverDate='d3', TestingResult1='r1', TestingResult2='r2', TestingResult3='r3', "
        "TestingResult4='r4', TestingNote1='n1', TestingNote2='n2', TestingNote3='n3', TestingNote4='n4', "
        "Note='note' where TypeCode='001001'\ncommit transaction"_s;
    EXPECT_EQ(sent, expected);
}

TEST_P(TestingTypeTest, RenamedWordsRunThroughThePapers) {
    // Old words, new words, and what becomes of a paper with the words 优, 良, none and 中.
    const QString cases[][3] = {
        {u"优,良,中,差"_s, u"A,B,C,D"_s, u"A|B||C"_s},
        // Swapped words end as one; a first third word fills every empty band; a cleared word clears its band.
        {u"优,良,中,"_s, u"良,优,中,"_s, u"优|优||中"_s},
        {u"优,良,,差"_s, u"优,良,可,差"_s, u"优|良|可|中"_s},
        {u"优,良,中,差"_s, u"优,,中,差"_s, u"优|||中"_s},
    };
    for (const auto& [oldWords, newWords, papers] : cases) {
        emptyTables({u"Examination"_s, u"TestingType"_s});
        cnnPublic.Execute(
            u"insert into Examination (TypeCode,DescScope1,DescScope2,DescScope3,DescScope4) values "
            "('001001','优','良','','中'), ('001002','优','良','','中')"_s);
        words(oldWords).AddNew(u"child"_s, u"001"_s, u"条理性"_s);
        EXPECT_EQ(words(newWords).Update(u"001001"_s, u"条理性"_s), Status::Done);
        EXPECT_EQ(rowsOf(u"select DescScope1,DescScope2,DescScope3,DescScope4 from Examination order by TypeCode"_s),
                  papers + u"\n优|良||中"_s);
    }
    // A NULL word counts as an empty one, a NULL band does not.
    cnnPublic.Execute(u"update TestingType set TestingResult1=null,TestingResult2=null"_s);
    cnnPublic.Execute(u"update Examination set DescScope1='',DescScope3=null"_s);
    EXPECT_EQ(words(u"甲,乙,中,差"_s).Update(u"001001"_s, u"条理性"_s), Status::Done);
    EXPECT_EQ(rowsOf(u"select DescScope1,DescScope3 from Examination order by TypeCode"_s), u"甲|null\n|null"_s);
}

TEST_P(TestingTypeTest, UpdateGoesOnPastEachFailingStatement) {
    // Statements: guard, old words, begin, the sixteen, row, commit. The first of the sixteen carries word 1 into band
    // 1, the sixth word 2 into band 2; without the old words none of them finds a band.
    QStringList left(21, u"新|A|B"_s);
    left[0] = u"旧|优|良"_s;
    left[1] = u"新|优|良"_s;
    left[3] = u"新|优|B"_s;
    left[8] = u"新|A|良"_s;
    left[19] = u"旧|A|B"_s;
    const auto store = [] {
        emptyTables({u"TestingType"_s, u"Examination"_s});
        words(u"优,良"_s).AddNew(u"child"_s, u"001"_s, u"旧"_s);
        cnnPublic.Execute(u"insert into Examination (TypeCode,DescScope1,DescScope2) values ('001001','优','良')"_s);
    };
    // The guard's error alone is not caught inside.
    const auto update = [] { return words(u"A,B"_s).Update(u"001001"_s, u"新"_s); };
    statementsOf([&] { EXPECT_THROW(update(), DatabaseError); }, 1);
    failEachStatement(
        OnError::GoesOn, left.join(u", "_s), store, [&] { return statusOf(update); },
        [] { return rowsOf(u"select TestingType,DescScope1,DescScope2 from TestingType,Examination"_s); });
}

TEST_P(TestingTypeTest, FindGivesTheKindAskedForAndDeleteLooksForDependants) {
    addRows({u"0020"_s, u"001"_s, u"001001"_s, u"001002"_s, u"002"_s});
    EXPECT_EQ(codes(TypeKind::All), u"001 001001 001002 002 0020"_s);
    EXPECT_EQ(codes(TypeKind::Main), u"001 002"_s);
    EXPECT_EQ(codes(TypeKind::Under, u"001"_s) + codes(TypeKind::Under, u"002"_s), u"001001 0010020020"_s);
    EXPECT_EQ(codes(TypeKind::Detail, u"001002"_s), u"001002"_s);
    cnnPublic.Execute(u"insert into Examination (TypeCode,Status) values ('001001','0 - 建立中')"_s);
    EXPECT_EQ(cTestingType::Delete(u"001"_s), Status::Dependants);
    EXPECT_EQ(cTestingType::Delete(u"001001"_s), Status::Dependants);
    EXPECT_EQ(cTestingType::Delete(u"0020"_s), Status::Done);
    EXPECT_EQ(sentBy([] { return cTestingType::Delete(u"001002"_s); }),
              u"Select Count(*) from Examination where TypeCode='001002'\n"
              "begin transaction\n"
              "Delete from TestingTypeCode where TypeCode='001002'\n"
              "Delete from TestingType where TypeCode='001002'\n"
              "commit transaction"_s);
    // A main type goes without a transaction.
    EXPECT_EQ(sentBy([] { return cTestingType::Delete(u"002"_s); }),
              u"Select Count(*) from TestingType where left(TypeCode,3)='002' and len(TypeCode)=6\n"
              "Delete from TestingType where TypeCode='002'"_s);
    EXPECT_EQ(codes(TypeKind::All), u"001 001001"_s);
    // A failing statement is passed over.
    cnnPublic.Execute(u"delete from Examination"_s);
    statementsOf([] { EXPECT_EQ(cTestingType::Delete(u"001001"_s), Status::Failed); }, 3);
    EXPECT_EQ(codes(TypeKind::All), u"001"_s);
}

}  // namespace

}  // namespace talvora::test
