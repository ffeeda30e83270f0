#include "models/csolution.h"
#include "support/database_fixture.h"

namespace talvora::test {

using namespace Qt::StringLiterals;

namespace {

class SolutionTest : public DatabaseTest {
 protected:
    /// A head whose every member is told from the others.
    static cSolution head(const QString& name) {
        cSolution solution;
        solution.SolutionName = name;
        solution.PostName = u"会计"_s;
        solution.Version = u"1.00"_s;
        solution.Author = u"au"_s;
        solution.Auditing = u"ad"_s;
        solution.Approver = u"ap"_s;
        solution.WriteDate = u"2010-01-01"_s;
        solution.AuditingDate = u"2010-01-02"_s;
        solution.ApproverDate = u"2010-01-03"_s;
        solution.Note = u"note"_s;
        return solution;
    }

    struct Line {
        QString code;
        QString score;
        QString weighing;
    };
    static cDimensions lines(const QList<Line>& plans) {
        cDimensions all;
        for (const Line& plan : plans) {
            auto line = std::make_shared<cDimension>();
            line->ID = static_cast<qint16>(all.Count() + 1);
            line->TypeCode = plan.code;
            line->TypeName = u"名"_s + plan.code;
            line->Score = plan.score;
            line->Weighing = plan.weighing;
            all.Add(line);
        }
        return all;
    }
    static cDimensions twoLines() {
        return lines({{u"001"_s, u"6"_s, u"100.%"_s}, {u"001002"_s, u"7.5"_s, u"33.33%"_s}});
    }

    static qint16 keyOf(const QString& name) {
        return static_cast<qint16>(
            rowsOf(u"select SolutionID from TestingSolution where SolutionName='"_s + name + u'\'').toInt());
    }
    static QString counts() { return rowCounts({u"TestingSolution"_s, u"TestingSolutionDetail"_s}); }
    static void store() {
        emptyTables({u"TestingSolution"_s, u"TestingSolutionDetail"_s});
        EXPECT_EQ(head(u"old"_s).AddNew(lines({{u"009"_s, u"1"_s, u"1.%"_s}})), Status::Done);
    }
};
TALVORA_ON_EVERY_ENGINE(SolutionTest);

TEST_P(SolutionTest, AddNewSendsThisSeries) {
    const auto sent = statementsOf([] { EXPECT_EQ(head(u"主管"_s).AddNew(twoLines()), Status::Done); });
    const QString line =
        u"insert into TestingSolutionDetail (SolutionID,TypeCode,typeName,Score,Weighing) values (%1,"_s.arg(
            keyOf(u"主管"_s));
    EXPECT_EQ(sent.join(u'\n'),
              u"Select Count(*) from TestingSolution where SolutionName='主管'\n"
              "begin transaction\n"
              "insert into TestingSolution (SolutionName,PostName,Version,Author,Auditing,Approver,WriteDate,"
              "AuditingDate,ApproverDate,Note) values ('主管','会计','1.00','au','ad','ap','2010-01-01','2010-01-02',"
              "'2010-01-03','note')\n"
              "SELECT MAX(solutionID) FROM testingsolution\n"_s +
                  line + u"'001','名001',6,1.)\n"_s + line + u"'001002','名001002',7.5,.3333)\ncommit transaction"_s);
    EXPECT_EQ(rowsOf(u"select TypeCode,Score,Weighing from TestingSolutionDetail order by TypeCode"_s),
              u"001|6|1\n001002|7.5|0.3333"_s);
}

TEST_P(SolutionTest, UpdateSendsThisSeries) {
    head(u"主管"_s).AddNew(lines({{u"009"_s, u"1"_s, u"1.%"_s}}));
    cSolution changed = head(u"经理"_s);
    changed.SolutionID = keyOf(u"主管"_s);
    const auto sent = statementsOf([&] { EXPECT_EQ(changed.Update(twoLines()), Status::Done); });
    EXPECT_EQ(sent.join(u'\n'),
              u"Select Count(*) from TestingSolution where SolutionName='经理' and SolutionID<>%1\n"
              "begin transaction\n"
              "Update TestingSolution Set SolutionName='经理', PostName='会计', Version='1.00', Author='au', "
              "Auditing='ad', Approver='ap', WriteDate='2010-01-01', AuditingDate='2010-01-02', "
              "ApproverDate='2010-01-03', Note='note' where SolutionID=%1\n"
              "delete from TestingSolutionDetail where SolutionID=%1\n"
              "insert into TestingSolutionDetail (SolutionID,TypeCode,typeName,Score,Weighing) values "
              "(%1,'001','名001',6,1.)\n"
              "insert into TestingSolutionDetail (SolutionID,TypeCode,typeName,Score,Weighing) values "
              "(%1,'001002','名001002',7.5,.3333)\n"
              "commit transaction"_s.arg(changed.SolutionID));
}

TEST_P(SolutionTest, NameHeldByJustOneOtherModelIsTaken) {
    head(u"主管"_s).AddNew(twoLines());
    EXPECT_EQ(head(u"主管"_s).AddNew(twoLines()), Status::Taken);
    EXPECT_EQ(head(u"主管"_s).Update(twoLines()), Status::Taken);
    cSolution changed = head(u"主管"_s);
    changed.SolutionID = keyOf(u"主管"_s);
    EXPECT_EQ(changed.Update({}), Status::Done);
    EXPECT_EQ(counts(), u"1 0"_s) << "a model may lose all its lines here";
    cnnPublic.Execute(u"insert into TestingSolution (SolutionName) values ('主管')"_s);
    EXPECT_EQ(head(u"主管"_s).AddNew({}), Status::Done) << "a name that stands twice reads as free";
}

TEST_P(SolutionTest, AddNewRollsBackAtEachFailingStatement) {
    const QString before = u"1 1"_s;
    failEachStatement(
        {before, before, before, before, before, before, before}, store,
        [] { EXPECT_EQ(head(u"主管"_s).AddNew(twoLines()), Status::Failed); },
        [](const QStringList& sent) {
            // The guard and the opening have nothing to roll back.
            EXPECT_EQ(sent.contains(u"rollback transaction"_s), sent.size() > 2);
            return counts();
        });
    EXPECT_EQ(head(u"主管"_s).AddNew(lines({{u"001"_s, u"6"_s, u"1.%"_s}, {u"001001"_s, u"x"_s, u"1.%"_s}})),
              Status::Failed);
    EXPECT_EQ(head(u"主管"_s).AddNew(lines({{u"001"_s, u"6"_s, u"many"_s}})), Status::Failed);
    EXPECT_EQ(counts(), before);
}

TEST_P(SolutionTest, UpdateGoesOnPastEachFailingStatement) {
    cSolution changed = head(u"new"_s);
    // Statements: guard, begin, head, delete, two lines, commit. An unanswered guard writes nothing.
    failEachStatement(
        {u"old 1 1"_s, u"new 1 2"_s, u"old 1 2"_s, u"new 1 3"_s, u"new 1 1"_s, u"new 1 1"_s, u"new 1 2"_s},
        [&] {
            store();
            changed.SolutionID = keyOf(u"old"_s);
        },
        [&] { EXPECT_EQ(changed.Update(twoLines()), Status::Failed); },
        [](const QStringList&) { return rowsOf(u"select SolutionName from TestingSolution"_s) + u' ' + counts(); });
}

TEST_P(SolutionTest, DeleteGoesOnPastEachFailingStatement) {
    qint16 key = 0;
    failEachStatement(
        {u"0 0"_s, u"0 1"_s, u"1 0"_s, u"0 0"_s},
        [&] {
            store();
            key = keyOf(u"old"_s);
        },
        [&] { EXPECT_EQ(cSolution::Delete(key), Status::Failed); }, [](const QStringList&) { return counts(); });
}

TEST_P(SolutionTest, ModelsAreListedByNameWithEveryColumn) {
    cSolutions solutions;
    EXPECT_EQ(solutions.Find(0).Count(), 0);
    head(u"b"_s).AddNew({});
    head(u"a"_s).AddNew({});
    cnnPublic.Execute(u"insert into TestingSolution (SolutionName) values (' c ')"_s);
    QString names;
    for (const auto& solution : solutions.Find(0)) {
        names += solution->SolutionName + solution->Version;
    }
    EXPECT_TRUE(names == "ca1.00b1.00"_L1 || names == "a1.00b1.00c"_L1) << names.toStdString();
    const auto one = solutions.Find(keyOf(u"b"_s)).Item(u"a%1"_s.arg(keyOf(u"b"_s)));
    const cSolution expected = head(u"b"_s);
    for (const auto member : {&cSolution::SolutionName, &cSolution::PostName, &cSolution::Version, &cSolution::Author,
                              &cSolution::Auditing, &cSolution::Approver, &cSolution::WriteDate,
                              &cSolution::AuditingDate, &cSolution::ApproverDate, &cSolution::Note}) {
        EXPECT_EQ((*one).*member, expected.*member);
    }
}

TEST_P(SolutionTest, LinesComeByCodeAsTheyAreStored) {
    head(u"主管"_s).AddNew(
        lines({{u"002"_s, u"3"_s, u"50.%"_s}, {u"001002"_s, u"7.5"_s, u".5%"_s}, {u"001"_s, u"8"_s, u"16.67%"_s}}));
    cDimensions found;
    QStringList texts;
    for (const auto& line : found.Find(keyOf(u"主管"_s))) {
        texts += u"%1 %2 %3 %4 %5 %6"_s.arg(line->ID)
                     .arg(line->SolutionID)
                     .arg(line->TypeCode, line->TypeName, line->Score, line->Weighing);
    }
    EXPECT_EQ(texts.join(u'\n'), u"1 0 001 名001 8 0.1667\n2 0 001002 名001002 7.5 0.005\n3 0 002 名002 3 0.5"_s);
    EXPECT_EQ(found.Find(30'000).Count(), 0);
}

TEST_P(SolutionTest, LineWithoutANumberFailsAtReading) {
    cnnPublic.Execute(u"insert into TestingSolutionDetail (SolutionID,TypeCode,Score) values (7,'001',3)"_s);
    cDimensions found;
    EXPECT_THROW(found.Find(7), RuntimeError);
}

TEST_P(SolutionTest, SingleLinesAreWrittenAsTheyAre) {
    const auto sent = statementsOf([] {
        EXPECT_EQ(cDimension::AddNew(7, u"001"_s, u"能力"_s, u"6"_s, u"0.25"_s), Status::Done);
        EXPECT_EQ(cDimension::AddNew(7, u"002"_s, u"O'Neil"_s, u"6"_s, u"0.25"_s), Status::Failed);
    });
    EXPECT_EQ(sent[0],
              u"insert into TestingSolutionDetail (SolutionID,TypeCode,TypeName,Score,Weighing) values "
              "(7,'001','能力','6','0.25')"_s);
    EXPECT_EQ(rowsOf(u"select SolutionID,Weighing from TestingSolutionDetail"_s), u"7|0.25"_s);
    EXPECT_EQ(cDimension::Delete(7), Status::Done);
    EXPECT_EQ(counts(), u"0 0"_s);
    statementsOf([] { EXPECT_EQ(cDimension::Delete(7), Status::Failed); }, 1);
}

}  // namespace

}  // namespace talvora::test
