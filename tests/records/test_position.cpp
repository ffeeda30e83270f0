#include "organisation/cposition.h"
#include "support/database_fixture.h"

namespace talvora::test {

using namespace Qt::StringLiterals;

namespace {

class PositionTest : public DatabaseTest {
 protected:
    static void addRows(const QStringList& codes) {
        cnnPublic.Execute(u"delete from Position"_s);
        for (const QString& code : codes) {
            cnnPublic.Execute(u"insert into Position (PostCode,PostName) values ('"_s + code + u"','名"_s +
                              code.right(20) + u"')"_s);
        }
    }

    static QString codes() {
        cPositions positions;
        QStringList found;
        for (const auto& position : positions.Find({})) {
            found += position->PostCode;
        }
        return found.join(u' ');
    }
};
TALVORA_ON_EVERY_ENGINE(PositionTest);

TEST_P(PositionTest, CodesGrowByTheirScheme) {
    const struct {
        QStringList present;
        QString kind;
        QString reference;
        QString added;
    } cases[] = {
        {{}, u"parent"_s, QString(), u"001"_s},
        {{u"001"_s, u"002"_s, u"002001"_s}, u"parent"_s, u"001"_s, u"003"_s},
        {{u"001"_s}, u"child"_s, u"001"_s, u"001001"_s},
        {{u"001"_s, u"001009"_s, u"001009001"_s}, u"child"_s, u"001"_s, u"001010"_s},
        // Beside a position of a lower level the new one goes under the parent of the level's greatest code.
        {{u"001"_s, u"001001"_s, u"002"_s, u"002007"_s}, u"parent"_s, u"001001"_s, u"002008"_s},
        {{u"099"_s}, u"parent"_s, u"099"_s, u"100"_s},
        {{u"998"_s, u"999"_s}, u"parent"_s, u"998"_s, u"000"_s},
        {{}, u"child"_s, u"005"_s, u"005001"_s},
        {{}, u"parent"_s, u"005"_s, u"005001"_s},
        {{QString(27, u'0') + u"001"_s}, u"parent"_s, QString(27, u'0') + u"001"_s, QString(27, u'0') + u"002"_s},
    };
    for (const auto& [present, kind, reference, added] : cases) {
        addRows(present);
        EXPECT_EQ(cPosition::AddNew(kind, reference, u"新"_s, 3), Status::Done);
        EXPECT_EQ(rowsOf(u"select PostCode,Peoples from Position where PostName='新'"_s), added + u"|3"_s)
            << (present.join(u' ') + u" / "_s + reference).toStdString();
    }
}

TEST_P(PositionTest, StatementsAreThese) {
    addRows({u"001"_s});
    const auto sent = statementsOf([] {
        EXPECT_EQ(cPosition::AddNew(u"parent"_s, u"001"_s, u"甲"_s, 4), Status::Done);
        EXPECT_EQ(cPosition::AddNew(u"child"_s, u"001"_s, u"甲"_s, -1), Status::Done);
        EXPECT_EQ(cPosition::Update(u"001"_s, u"乙"_s, 5), Status::Done);
        EXPECT_EQ(cPosition::GetParent(u"001001"_s), u"乙"_s);
        EXPECT_EQ(cPosition::Delete(u"002"_s), Status::Done);
    });
    EXPECT_EQ(sent.join(u'\n'),
              u"SELECT MAX(PostCode)  FROM Position where len(PostCode)=3\n"
              "insert into Position (PostName,PostCode,Peoples) values ('甲','002',4)\n"
              "SELECT MAX(PostCode)  FROM Position where left(PostCode,3) ='001' and Len(PostCode)=6\n"
              "insert into Position (PostName,PostCode,Peoples) values ('甲','001001',-1)\n"
              "select * from Position where PostCode='001'\n"
              "select * from Position where PostName='乙' and PostCode<>'001'\n"
              "Update Position Set PostName='乙',Peoples=5 where PostCode='001'\n"
              "SELECT PostName  FROM Position where len(PostCode)=3 and postcode='001'\n"
              "select * from Position where left(PostCode,3)='002' and len(PostCode)>3\n"
              "Delete from Position where PostCode='002'"_s);
}

TEST_P(PositionTest, UpdateAndDeleteHaveTheirGuards) {
    addRows({u"001"_s, u"001001"_s, u"002"_s});
    EXPECT_EQ(cPosition::AddNew(u"parent"_s, u"001"_s, u"名001"_s, 0), Status::Done) << "adding tests no name";
    EXPECT_EQ(cPosition::Update(u"002"_s, u"名001001"_s, 1), Status::Taken);
    EXPECT_EQ(cPosition::Update(u"002"_s, u"名001"_s, 1), Status::Taken) << "even when two hold it";
    EXPECT_EQ(cPosition::Update(u"002"_s, u"名002"_s, 7), Status::Done);
    EXPECT_EQ(cPosition::Update(u"009"_s, u"x"_s, 1), Status::NoSuchRow);
    EXPECT_EQ(rowsOf(u"select Peoples from Position where PostCode='002'"_s), u"7"_s);

    EXPECT_EQ(cPosition::Delete(u"001"_s), Status::InUse);
    EXPECT_EQ(codes(), u"001 001001 002 003"_s);
    EXPECT_EQ(cPosition::Delete(u"001001"_s), Status::Done);
    EXPECT_EQ(cPosition::Delete(u"001"_s), Status::Done);
    EXPECT_EQ(codes(), u"002 003"_s);
}

TEST_P(PositionTest, FailingStatementsChangeNothing) {
    addRows({u"001"_s, u"002"_s});
    for (int failing = 1; failing <= 3; ++failing) {
        statementsOf([] { EXPECT_EQ(cPosition::Update(u"001"_s, u"x"_s, 9), Status::Failed); }, failing);
    }
    for (int failing = 1; failing <= 2; ++failing) {
        statementsOf([] { EXPECT_EQ(cPosition::AddNew(u"parent"_s, u"001"_s, u"x"_s, 9), Status::Failed); }, failing);
        statementsOf([] { EXPECT_EQ(cPosition::Delete(u"001"_s), Status::Failed); }, failing);
    }
    EXPECT_EQ(rowsOf(u"select PostCode,PostName from Position order by PostCode"_s), u"001|名001\n002|名002"_s);
}

TEST_P(PositionTest, ParentIsOneLevelUp) {
    addRows({u"001"_s, u"001002"_s});
    const struct {
        QString code;
        QString parent;
    } cases[] = {{u"001002007"_s, u"名001002"_s}, {u"001009"_s, u"名001"_s}, {u"001"_s, QString()},
                 {u"009001"_s, QString()},        {QString(), QString()},    {u"01"_s, QString()}};
    for (const auto& [code, parent] : cases) {
        EXPECT_EQ(cPosition::GetParent(code), parent) << code.toStdString();
    }
}

TEST_P(PositionTest, EveryColumnReachesItsMember) {
    const std::pair<QString, QString cPosition::*> columns[] = {{u"DeptCode"_s, &cPosition::DeptCode},
                                                                {u"Author"_s, &cPosition::Author},
                                                                {u"Auditing"_s, &cPosition::Auditing},
                                                                {u"Approver"_s, &cPosition::Approver},
                                                                {u"WriteDate"_s, &cPosition::WriteDate},
                                                                {u"AuditingDate"_s, &cPosition::AuditingDate},
                                                                {u"ApproveDate"_s, &cPosition::ApproveDate},
                                                                {u"ReportTo"_s, &cPosition::ReportTo},
                                                                {u"Guidance"_s, &cPosition::Guidance},
                                                                {u"CoWorker"_s, &cPosition::CoWorker},
                                                                {u"Exterior"_s, &cPosition::Exterior},
                                                                {u"Educational"_s, &cPosition::Educational},
                                                                {u"Training"_s, &cPosition::Training},
                                                                {u"Experience"_s, &cPosition::Experience},
                                                                {u"Skill"_s, &cPosition::Skill},
                                                                {u"WorkPeriodic"_s, &cPosition::WorkPeriodic},
                                                                {u"WorkDaily"_s, &cPosition::WorkDaily},
                                                                {u"WorkFortuitous"_s, &cPosition::WorkFortuitous},
                                                                {u"Authority"_s, &cPosition::Authority},
                                                                {u"Obligation"_s, &cPosition::Obligation}};
    addRows({u"001"_s, u"002"_s});
    for (const auto& [column, member] : columns) {
        cnnPublic.Execute(u"update Position set %1=' %1 ' where PostCode='001'"_s.arg(column));
    }
    cnnPublic.Execute(u"update Position set Peoples=12,PostName=' 经 理 ' where PostCode='001'"_s);
    cPositions positions;
    const auto full = positions.Find(u"001"_s).Item(u"001"_s);
    EXPECT_EQ(positions.Count(), 1);
    const auto empty = positions.Find(u"002"_s).Item(1);
    for (const auto& [column, member] : columns) {
        EXPECT_EQ((*full).*member, column);
        EXPECT_EQ((*empty).*member, QString());
    }
    EXPECT_EQ(full->PostName.text(), u"经 理"_s);
    EXPECT_EQ(full->Peoples, 12);
    EXPECT_EQ(empty->Peoples, 0);
}

TEST_P(PositionTest, DistinctNamesComeOnceUnderRunningNumbers) {
    for (const QString& row : {u"'001','b'"_s, u"'002','a'"_s, u"'003','b'"_s}) {
        cnnPublic.Execute(u"insert into Position (PostCode,PostName) values ("_s + row + u')');
    }
    cPositions positions;
    QStringList found;
    for (const auto& position : positions.GetDistPostName()) {
        found += position->PostCode + position->PostName.text();
    }
    EXPECT_EQ(found.join(u' '), u"1a 2b"_s);
}

}  // namespace

}  // namespace talvora::test
