#include "models/csolution.h"
#include "support/database_fixture.h"

namespace talvora::test {

using namespace Qt::StringLiterals;

namespace {

class SolutionTest : public DatabaseTest {
 protected:
    /// A head whose every member is told from the others.
    static cSolution head(const QString& name, qint16 key = 0) {
        return {key, name, u"会计"_s, u"1.00"_s, u"au"_s, u"ad"_s, u"ap"_s, u"d1"_s, u"d2"_s, u"d3"_s, u"note"_s};
    }

    /// Lines from "code score weight".
    static cDimensions lines(const QStringList& plans) {
        cDimensions all;
        for (const QString& plan : plans) {
            const QStringList parts = plan.split(u' ');
            all.Add(std::make_shared<cDimension>(
                cDimension{static_cast<qint16>(all.Count() + 1), 0, parts[0], u"名"_s + parts[0], parts[1], parts[2]}));
        }
        return all;
    }
    static cDimensions twoLines() { return lines({u"001 6 100.%"_s, u"001002 7.5 33.33%"_s}); }

    static qint16 keyOf(const QString& name) {
        return numberOf(u"select SolutionID from TestingSolution where SolutionName='%1'"_s.arg(name));
    }
    static QString counts() { return rowCounts({u"TestingSolution"_s, u"TestingSolutionDetail"_s}); }
};
TALVORA_ON_EVERY_ENGINE(SolutionTest);

TEST_P(SolutionTest, AddNewAndUpdateSendTheseSeries) {
    const QString added = sentBy([] { return head(u"主管"_s).AddNew(twoLines()); });
    const qint16 key = keyOf(u"主管"_s);
    const QString twoInserts =
        u"insert into TestingSolutionDetail (SolutionID,TypeCode,typeName,Score,Weighing) values "
        u"(%1,'001','名001',6,1.)\n"
        "insert into TestingSolutionDetail (SolutionID,TypeCode,typeName,Score,Weighing) values "
        "(%1,'001002','名001002',7.5,.3333)\n"
        "commit transaction"_s.arg(key);
    EXPECT_EQ(added,
              u"Select Count(*) from TestingSolution where SolutionName='主管'\n"
              "begin transaction\n"
              "insert into TestingSolution (SolutionName,PostName,Version,Author,Auditing,Approver,WriteDate,"
              "AuditingDate,ApproverDate,Note) values ('主管','会计','1.00','au','ad','ap','d1','d2','d3','note')\n"
              "SELECT MAX(solutionID) FROM testingsolution\n"_s +
                  twoInserts);
    EXPECT_EQ(sentBy([&] { return head(u"经理"_s, key).Update(twoLines()); }),
              u"Select Count(*) from TestingSolution where SolutionName='经理' and SolutionID<>%1\n"
              "begin transaction\n"
              "Update TestingSolution Set SolutionName='经理', PostName='会计', Version='1.00', Author='au', "
              "Auditing='ad', Approver='ap', WriteDate='d1', AuditingDate='d2', "
              "ApproverDate='d3', Note='note' where SolutionID=%1\n"
              "delete from TestingSolutionDetail where SolutionID=%1\n"_s.arg(key) +
                  twoInserts);
}

TEST_P(SolutionTest, NameHeldByJustOneOtherModelIsTaken) {
    head(u"主管"_s).AddNew(twoLines());
    EXPECT_EQ(head(u"主管"_s).AddNew(twoLines()), Status::Taken);
    EXPECT_EQ(head(u"主管"_s).Update(twoLines()), Status::Taken);
    EXPECT_EQ(head(u"主管"_s, keyOf(u"主管"_s)).Update({}), Status::Done);
    EXPECT_EQ(counts(), u"1 0"_s) << "a model may lose all its lines here";
    cnnPublic.Execute(u"insert into TestingSolution (SolutionName) values ('主管')"_s);
    EXPECT_EQ(head(u"主管"_s).AddNew({}), Status::Done) << "a name that stands twice reads as free";
}

TEST_P(SolutionTest, EachStatementFailsInTurn) {
    qint16 key = 0;
    const auto store = [&] {
        emptyTables({u"TestingSolution"_s, u"TestingSolutionDetail"_s});
        EXPECT_EQ(head(u"old"_s).AddNew(lines({u"009 1 1.%"_s})), Status::Done);
        key = keyOf(u"old"_s);
    };
    failEachStatement(
        OnError::RollsBack, u"1 1, 1 1, 1 1, 1 1, 1 1, 1 1, 1 1"_s, store,
        [] { return head(u"主管"_s).AddNew(twoLines()); }, counts);
    store();
    // Text for a score, or a weight of nothing, makes a line's statement fail.
    for (const auto& bad : {u"001001 x 1.%"_s, u"001001 6 .%"_s}) {
        EXPECT_EQ(head(u"主管"_s).AddNew(lines({u"001 6 1.%"_s, bad})), Status::Failed);
        EXPECT_EQ(counts(), u"1 1"_s);
        EXPECT_EQ(head(u"old"_s, key).Update(lines({bad, u"001 6 1.%"_s, u"002 6 1.%"_s})), Status::Failed);
        EXPECT_EQ(counts(), u"1 2"_s);
        store();
    }
    EXPECT_EQ(head(u"正号"_s).AddNew(lines({u"001 +5 1.%"_s, u"001001 - 1.%"_s})), Status::Failed);
    EXPECT_EQ(head(u"正号"_s).AddNew(lines({u"001 +5 1.%"_s})), Status::Done);
    EXPECT_EQ(cDimensions().Find(keyOf(u"正号"_s)).Item(1)->Score, u"5"_s);
    store();

    // Statements: guard, begin, head, delete, two lines, commit. An unanswered guard writes nothing.
    failEachStatement(
        OnError::GoesOn, u"old 1 1, new 1 2, old 1 2, new 1 3, new 1 1, new 1 1, new 1 2"_s, store,
        [&] { return head(u"new"_s, key).Update(twoLines()); },
        [] { return rowsOf(u"select SolutionName from TestingSolution"_s) + u' ' + counts(); });
    failEachStatement(
        OnError::GoesOn, u"0 0, 0 1, 1 0, 0 0"_s, store, [&] { return cSolution::Delete(key); }, counts);
}

TEST_P(SolutionTest, ModelsComeByNameAndLinesByCode) {
    head(u"b"_s).AddNew(lines({u"002 3 50.%"_s, u"001002 7.5 .5%"_s, u"001 8 16.67%"_s}));
    head(u"a"_s).AddNew({});
    EXPECT_EQ(cSolutions().Find(0).Item(2)->SolutionName, u"b"_s);
    const qint16 key = keyOf(u"b"_s);
    cDimensions found;
    QString texts;
    for (const auto& line : found.Find(key)) {
        texts += u"%1 %2 %3 %4, "_s.arg(line->ID).arg(line->TypeCode, line->Score, line->Weighing);
    }
    EXPECT_EQ(texts, u"1 001 8 0.1667, 2 001002 7.5 0.005, 3 002 3 0.5, "_s);
    cnnPublic.Execute(u"update TestingSolutionDetail set Weighing=null"_s);
    EXPECT_THROW(found.Find(key), RuntimeError) << "a line without a number";
    EXPECT_EQ(cDimension::Delete(key), Status::Done);
    EXPECT_EQ(sentBy([] { return cDimension::AddNew(7, u"001"_s, u"能力"_s, u"6"_s, u"0.25"_s); }),
              u"insert into TestingSolutionDetail (SolutionID,TypeCode,TypeName,Score,Weighing) values "
              "(7,'001','能力','6','0.25')"_s);
    EXPECT_EQ(counts(), u"2 1"_s);
}

}  // namespace

}  // namespace talvora::test
