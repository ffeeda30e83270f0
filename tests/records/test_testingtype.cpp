#include "support/database_fixture.h"
#include "testbank/ctestingtype.h"

namespace talvora::test {

using namespace Qt::StringLiterals;

namespace {

class TestingTypeTest : public DatabaseTest {
 protected:
    static void addRow(const QString& code, const QString& name) {
        cnnPublic.Execute(u"insert into TestingType (TestingType,TypeCode) values ('"_s + name + u"','"_s + code +
                          u"')"_s);
    }

    static cTestingType words(const QString& first, const QString& second, const QString& third = {},
                              const QString& fourth = {}) {
        cTestingType type;
        type.TestingResult1 = first;
        type.TestingResult2 = second;
        type.TestingResult3 = third;
        type.TestingResult4 = fourth;
        return type;
    }

    /// A type whose every member is told from the others.
    static cTestingType full() {
        cTestingType type = words(u"r1"_s, u"r2"_s, u"r3"_s, u"r4"_s);
        type.Author = u"au"_s;
        type.Auditing = u"ad"_s;
        type.Approver = u"ap"_s;
        type.WriteDate = u"2010-01-01"_s;
        type.AuditingDate = u"2010-01-02"_s;
        type.ApproverDate = u"2010-01-03"_s;
        type.TestingNote1 = u"n1"_s;
        type.TestingNote2 = u"n2"_s;
        type.TestingNote3 = u"n3"_s;
        type.TestingNote4 = u"n4"_s;
        type.Note = u"note"_s;
        return type;
    }

    static QString codes(const QString& kind, const QString& code) {
        cTestingTypes types;
        QStringList found;
        for (const auto& type : types.Find(kind, code)) {
            found += type->NowCode;
        }
        return found.join(u' ');
    }
};
TALVORA_ON_EVERY_ENGINE(TestingTypeTest);

TEST_P(TestingTypeTest, MainTypeIsWrittenWithItsNameAlone) {
    const auto sent = statementsOf([] { EXPECT_EQ(full().AddNew(u"parent"_s, QString(), u" 能力 "_s), Status::Done); });
    EXPECT_EQ(sent.join(u'\n'),
              u"SELECT MAX(TypeCode)  FROM testingType where len(TypeCode)=3\n"
              "Select Count(*) from testingType where TestingType=' 能力 ' and len(TypeCode)=3\n"
              "insert into testingType (TestingType,TypeCode) values (' 能力 ','001')"_s);
    EXPECT_EQ(rowsOf(u"select TypeCode,Author,TestingResult1,Note from TestingType"_s), u"001|null|null|null"_s);
}

TEST_P(TestingTypeTest, SubtypeIsWrittenWhole) {
    addRow(u"002"_s, u"能力"_s);
    const auto sent = statementsOf([] { EXPECT_EQ(full().AddNew(u"child"_s, u"002"_s, u"条理性"_s), Status::Done); });
    EXPECT_EQ(sent.join(u'\n'),
              u"SELECT MAX(TypeCode)  FROM testingType where left(TypeCode,3) ='002' and Len(TypeCode)=6\n"
              "Select Count(*) from testingType where TestingType='条理性' and left(TypeCode,3)='002' and "
              "len(TypeCode)=6\n"
              "insert into testingType (TestingType,TypeCode,Author,Auditing,Approver,WriteDate,AuditingDate,"
              "ApproverDate,TestingResult1,TestingResult2,TestingResult3,TestingResult4,TestingNote1,TestingNote2,"
              "TestingNote3,TestingNote4,Note) values ('条理性','002001','au','ad','ap','2010-01-01','2010-01-02',"
              "'2010-01-03','r1','r2','r3','r4','n1','n2','n3','n4','note')"_s);
}

TEST_P(TestingTypeTest, TextsArriveTrimmedAndNullsEmpty) {
    cnnPublic.Execute(u"insert into TestingType (TestingType,TypeCode,Author) values (' 甲 乙 ','001',' x ')"_s);
    cTestingTypes types;
    const auto type = types.Find(u"1"_s, QString()).Item(1);
    EXPECT_EQ(type->Name.text() + type->Author + type->Note, u"甲 乙x"_s);
}

TEST_P(TestingTypeTest, EveryColumnReachesItsMember) {
    full().AddNew(u"child"_s, u"001"_s, u"条理性"_s);
    cTestingTypes types;
    ASSERT_EQ(types.Find(u"detail"_s, u"001001"_s).Count(), 1);
    const cTestingType expected = full();
    const auto type = types.Item(u"001001"_s);
    EXPECT_EQ(type->Name.text(), u"条理性"_s);
    for (const auto member :
         {&cTestingType::Author, &cTestingType::Auditing, &cTestingType::Approver, &cTestingType::WriteDate,
          &cTestingType::AuditingDate, &cTestingType::ApproverDate, &cTestingType::Note, testingTypeWords[0],
          testingTypeWords[1], testingTypeWords[2], testingTypeWords[3], testingTypeNotes[0], testingTypeNotes[1],
          testingTypeNotes[2], testingTypeNotes[3]}) {
        EXPECT_EQ((*type).*member, expected.*member);
    }
}

TEST_P(TestingTypeTest, NamesAreComparedByTheRuleOfEachOperation) {
    addRow(u"001"_s, u"能力"_s);
    addRow(u"002"_s, u"品格"_s);
    addRow(u"003"_s, u"双"_s);
    addRow(u"004"_s, u"双"_s);
    addRow(u"001001"_s, u"条理性"_s);
    addRow(u"002001"_s, u"诚信"_s);
    const cTestingType type;
    const struct {
        QString kind;
        QString parent;
        QString name;
        Status status;
    } added[] = {
        {u"parent"_s, QString(), u"能力"_s, Status::Taken},    {u"parent"_s, QString(), u"双"_s, Status::Done},
        {u"parent"_s, QString(), u"诚信"_s, Status::Done},     {u"child"_s, u"001"_s, u"条理性"_s, Status::Taken},
        {u"child"_s, u"002"_s, u"条理性"_s, Status::Done},     {u"child"_s, u"001"_s, u"能力"_s, Status::Done},
        {u"parent"_s, QString(), u"O'Neil"_s, Status::Failed},
    };
    for (const auto& [kind, parent, name, status] : added) {
        EXPECT_EQ(type.AddNew(kind, parent, name), status) << name.toStdString();
    }
    const struct {
        QString code;
        QString name;
        Status status;
    } renamed[] = {
        {u"001001"_s, u"条理性"_s, Status::Taken}, {u"002001"_s, u"品格"_s, Status::Taken},
        {u"002"_s, u"品格"_s, Status::Done},       {u"002001"_s, u"双"_s, Status::Done},
        {u"001002"_s, u"勤奋"_s, Status::Done},
    };
    for (const auto& [code, name, status] : renamed) {
        EXPECT_EQ(type.Update(code, name), status) << name.toStdString();
    }
    EXPECT_THROW(type.Update(u"001"_s, u"O'Neil"_s), DatabaseError);
}

TEST_P(TestingTypeTest, UpdateSendsThisSeries) {
    words(u"o1"_s, u"o2"_s, u"o3"_s, u"o4"_s).AddNew(u"child"_s, u"001"_s, u"旧"_s);
    const auto sent = statementsOf([] { EXPECT_EQ(full().Update(u"001001"_s, u"新"_s), Status::Done); });
    QStringList expected{
        u"Select Count(*) from testingType where TestingType='新' and TypeCode<>'001001'"_s,
        u"Select TestingResult1,TestingResult2,TestingResult3,TestingResult4 from testingType where TypeCode='001001'"_s,
        u"begin transaction"_s};
    for (const QString& word : {u"1"_s, u"2"_s, u"3"_s, u"4"_s}) {
        for (const QString& band : {u"1"_s, u"2"_s, u"3"_s, u"4"_s}) {
            expected += u"update examination set descScope%2='r%1' where TypeCode='001001' and descScope%2='o%1'"_s.arg(
                word, band);
        }
    }
    expected << u"Update TestingType Set TestingType='新', Author='au', Auditing='ad', Approver='ap', "
                "WriteDate='2010-01-01', AuditingDate='2010-01-02', ApproverDate='2010-01-03', TestingResult1='r1', "
                "TestingResult2='r2', TestingResult3='r3', TestingResult4='r4', TestingNote1='n1', TestingNote2='n2', "
                "TestingNote3='n3', TestingNote4='n4', Note='note' where TypeCode='001001'"_s
             << u"commit transaction"_s;
    EXPECT_EQ(sent.join(u'\n'), expected.join(u'\n'));
}

TEST_P(TestingTypeTest, RenamedWordsRunThroughThePapers) {
    const struct {
        const char* what;
        QStringList oldWords;
        QStringList newWords;
        QString papers;
    } cases[] = {
        {"new words", {u"优"_s, u"良"_s, u"中"_s, u"差"_s}, {u"A"_s, u"B"_s, u"C"_s, u"D"_s}, u"A|B||C"_s},
        {"swapped words end as one",
         {u"优"_s, u"良"_s, u"中"_s, u""_s},
         {u"良"_s, u"优"_s, u"中"_s, u""_s},
         u"优|优||中"_s},
        {"a first third word fills every empty band",
         {u"优"_s, u"良"_s, u""_s, u"差"_s},
         {u"优"_s, u"良"_s, u"可"_s, u"差"_s},
         u"优|良|可|中"_s},
        {"a cleared word clears the band",
         {u"优"_s, u"良"_s, u"中"_s, u"差"_s},
         {u"优"_s, u""_s, u"中"_s, u"差"_s},
         u"优|||中"_s},
    };
    addRow(u"001001"_s, u"条理性"_s);
    for (const auto& [what, oldWords, newWords, papers] : cases) {
        cnnPublic.Execute(u"delete from Examination"_s);
        for (const QString& code : {u"001001"_s, u"001002"_s}) {
            cnnPublic.Execute(
                u"insert into Examination (TypeCode,DescScope1,DescScope2,DescScope3,DescScope4) values ('"_s + code +
                u"','优','良','','中')"_s);
        }
        cnnPublic.Execute(
            u"update TestingType set TestingResult1='%1',TestingResult2='%2',TestingResult3='%3',TestingResult4='%4'"_s
                .arg(oldWords[0], oldWords[1], oldWords[2], oldWords[3]));
        EXPECT_EQ(words(newWords[0], newWords[1], newWords[2], newWords[3]).Update(u"001001"_s, u"条理性"_s),
                  Status::Done);
        EXPECT_EQ(rowsOf(u"select DescScope1,DescScope2,DescScope3,DescScope4 from Examination order by TypeCode"_s),
                  papers + u"\n优|良||中"_s)
            << what;
    }
}

TEST_P(TestingTypeTest, NullWordCountsAsEmptyInTheCascade) {
    addRow(u"001001"_s, u"条理性"_s);
    cnnPublic.Execute(u"insert into Examination (TypeCode,DescScope1,DescScope2) values ('001001','','优')"_s);
    EXPECT_EQ(words(u"甲"_s, u"乙"_s).Update(u"001001"_s, u"条理性"_s), Status::Done);
    EXPECT_EQ(rowsOf(u"select DescScope1,DescScope2,DescScope3 from Examination"_s), u"甲|优|null"_s);
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
    failEachStatement(
        left,
        [] {
            emptyTables({u"TestingType"_s, u"Examination"_s});
            words(u"优"_s, u"良"_s).AddNew(u"child"_s, u"001"_s, u"旧"_s);
            cnnPublic.Execute(
                u"insert into Examination (TypeCode,DescScope1,DescScope2) values ('001001','优','良')"_s);
        },
        [] {
            try {
                EXPECT_EQ(words(u"A"_s, u"B"_s).Update(u"001001"_s, u"新"_s), Status::Failed);
            } catch (const DatabaseError& error) {
                EXPECT_EQ(error.number(), 50000) << "the guard's error alone is not caught inside";
            }
        },
        [](const QStringList&) {
            return rowsOf(
                u"select TestingType,DescScope1,DescScope2 from TestingType a,Examination b "
                "where a.TypeCode=b.TypeCode"_s);
        });
    statementsOf([] { EXPECT_THROW(cTestingType().Update(u"001001"_s, u"x"_s), DatabaseError); }, 1);
}

TEST_P(TestingTypeTest, DeleteLooksForDependants) {
    for (const QString& code : {u"001"_s, u"001001"_s, u"001002"_s, u"002"_s, u"0020"_s}) {
        addRow(code, code);
    }
    cnnPublic.Execute(u"insert into Examination (TypeCode,Status) values ('001001','0 - 建立中')"_s);
    const struct {
        QString code;
        Status status;
        QString left;
    } cases[] = {
        {u"001"_s, Status::Dependants, u"001 001001 001002 002 0020"_s},
        {u"001001"_s, Status::Dependants, u"001 001001 001002 002 0020"_s},
        {u"001002"_s, Status::Done, u"001 001001 002 0020"_s},
        {u"002"_s, Status::Done, u"001 001001 0020"_s},
        {u"0020"_s, Status::Done, u"001 001001"_s},
        {u"no'code"_s, Status::Failed, u"001 001001"_s},
    };
    for (const auto& [code, status, left] : cases) {
        EXPECT_EQ(cTestingType::Delete(code), status) << code.toStdString();
        EXPECT_EQ(codes(u"all"_s, QString()), left);
    }
}

TEST_P(TestingTypeTest, DeleteGoesOnPastEachFailingStatement) {
    failEachStatement(
        {u"0 0"_s, u"0 0"_s, u"1 0"_s, u"0 1"_s, u"0 0"_s},
        [] {
            emptyTables({u"TestingTypeCode"_s, u"TestingType"_s});
            addRow(u"001001"_s, u"条理性"_s);
            cnnPublic.Execute(u"insert into TestingTypeCode (TypeCode) values ('001001')"_s);
        },
        [] { EXPECT_EQ(cTestingType::Delete(u"001001"_s), Status::Failed); },
        [](const QStringList& sent) {
            EXPECT_EQ(sent.join(u'\n'),
                      u"Select Count(*) from Examination where TypeCode='001001'\n"
                      "begin transaction\n"
                      "Delete from TestingTypeCode where TypeCode='001001'\n"
                      "Delete from TestingType where TypeCode='001001'\n"
                      "commit transaction"_s);
            return rowCounts({u"TestingTypeCode"_s, u"TestingType"_s});
        });
}

TEST_P(TestingTypeTest, EleventhMainTypeIsRefused) {
    for (int number = 1; number <= 10; ++number) {
        EXPECT_EQ(cTestingType().AddNew(u"parent"_s, QString(), u"类%1"_s.arg(number)), Status::Done);
    }
    EXPECT_EQ(cTestingType().AddNew(u"parent"_s, QString(), u"类11"_s), Status::Failed);
    EXPECT_EQ(codes(u"all"_s, QString()), u"001 0010 002 003 004 005 006 007 008 009"_s);
}

TEST_P(TestingTypeTest, FindGivesTheKindAskedFor) {
    for (const QString& code : {u"002"_s, u"001"_s, u"001002"_s, u"001001"_s, u"0010"_s, u"002001"_s}) {
        addRow(code, u"类 "_s + code);
    }
    const struct {
        QString kind;
        QString code;
        QString found;
    } cases[] = {
        {u"all"_s, QString(), u"001 0010 001001 001002 002 002001"_s},
        {u"1"_s, u"ignored"_s, u"001 002"_s},
        {u"2"_s, u"001"_s, u"0010 001001 001002"_s},
        {u"2"_s, u"003"_s, QString()},
        {u"detail"_s, u"001002"_s, u"001002"_s},
    };
    for (const auto& [kind, code, found] : cases) {
        EXPECT_EQ(codes(kind, code), found) << kind.toStdString();
    }
    cTestingTypes types;
    types.Find(u"all"_s, QString());
    EXPECT_EQ(types.Find(u"detail"_s, u"none"_s).Count(), 0);
    EXPECT_THROW(types.Find(u"detail"_s, u"o'"_s), DatabaseError);
}

}  // namespace

}  // namespace talvora::test
