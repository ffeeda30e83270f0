#include "assessment/identity_number.h"
#include "core/mdlpublic.h"
#include "platform/moment.h"
#include "platform/numbers.h"
#include "results/ctesting.h"
#include "setup/sample/sample.h"
#include "setup/tables.h"
#include "support/database_fixture.h"
#include "testbank/cexamination.h"
#include "testbank/ctestingtype.h"

#include <QRegularExpression>
#include <gtest/gtest.h>

#include <algorithm>
#include <map>

namespace talvora {

using namespace Qt::StringLiterals;
using test::rowsOf;

namespace {

QString allCounts() {
    QStringList tables;
    for (const TableColumns& table : schemaTables()) {
        tables += table.table;
    }
    return test::rowCounts(tables);
}

class Sample : public ::testing::Test {
 protected:
    void SetUp() override { installSample(); }

 private:
    test::EmbeddedDatabase database_;
};

/// The bands of a paper, "0-12 较差" for instance, by their lower bounds.
std::map<int, QString> bandsOf(const cExamination& paper) {
    std::map<int, QString> bands;
    for (std::size_t i = 0; i < examinationScopes.size(); ++i) {
        const QString scope = paper.*examinationScopes[i];
        EXPECT_TRUE(
            bands.emplace(toInt16(scope.section(u'-', 0, 0)), scope + u' ' + paper.*examinationWords[i]).second);
    }
    return bands;
}

int highestScore(const cExamination& paper) {
    int sum = 0;
    for (const auto& question : cExamination::GetQuestions(paper.ExaminationID)) {
        // An answer E scores nothing, whatever stands in the bank.
        sum += std::max({question->Score1, question->Score2, question->Score3, question->Score4});
    }
    return sum;
}

void expectEachScoreHasOneBand(const cExamination& paper) {
    int next = 0;
    for (const auto& [lower, band] : bandsOf(paper)) {
        EXPECT_EQ(lower, next) << band.toStdString();
        next = toInt16(band.section(u' ', 0, 0).section(u'-', 1)) + 1;
    }
    EXPECT_EQ(next, highestScore(paper) + 1) << paper.ExaminationNum.toStdString();
}

TEST_F(Sample, HoldsAWholeBank) {
    EXPECT_EQ(rowsOf(u"select len(TypeCode),count(*) from TestingType group by len(TypeCode) order by len(TypeCode)"_s),
              u"3|3\n6|9"_s);
    EXPECT_EQ(rowsOf(u"select ExaminationNum from Examination where Status<>N'1 - 已完成'"_s), u"ZZ-02"_s);
    EXPECT_EQ(rowsOf(u"select count(*) from TestingSolution s, Position p where s.PostName=p.PostName"_s), u"2"_s);
    EXPECT_EQ(rowsOf(u"select count(*) from (select distinct TestingNumber from TestingResult) a"_s), u"200"_s);
    EXPECT_EQ(rowsOf(u"select u.UserName,u.Locked,count(r.RoleID) from Users u, UserRole l, Roles r where "
                     "u.UserID=l.UserID and l.RoleID=r.RoleID group by u.UserName,u.Locked order by u.UserName"_s),
              u"admin|0|1\nguming|0|1\nlintao|0|1\nqianbo|1|1\nxuwj|0|1\nzhouyq|0|2"_s);
}

TEST_F(Sample, ItsPapersJudgeEachScoreByAWordOfTheSubtype) {
    cTestingTypes types;
    int subtypes = 0;
    for (const auto& type : types.Find(u"all"_s, {})) {
        cExaminations papers;
        for (const auto& paper : papers.FindByTypeCode(type->NowCode, true)) {
            EXPECT_EQ(bandsOf(*paper), bandsOf(*papers.Item(1))) << paper->ExaminationNum.toStdString();
            for (std::size_t i = 0; i < examinationWords.size(); ++i) {
                EXPECT_EQ((*paper).*examinationWords[i], (*type).*testingTypeWords[i]);
                EXPECT_NE((*type).*testingTypeNotes[i], QString());
            }
            if (paper->Status.startsWith(u'1')) {
                expectEachScoreHasOneBand(*paper);
            }
        }
        subtypes += papers.Count() > 0 ? 1 : 0;
    }
    EXPECT_EQ(subtypes, 9);
}

TEST_F(Sample, EachModelsWeightsAddUp) {
    EXPECT_EQ(rowsOf(u"select count(*) from (select SolutionID,sum(Weighing) as Whole from TestingSolutionDetail "
                     "where len(TypeCode)=3 group by SolutionID) a where Whole>0.9995 and Whole<1.0005"_s),
              u"2"_s);
    // The elements of each dimension share out its weight.
    EXPECT_EQ(rowsOf(u"select count(*) from (select d.SolutionID,d.TypeCode,sum(e.Weighing)-d.Weighing as Rest from "
                     "TestingSolutionDetail d,"
                     "(select SolutionID,left(TypeCode,3) as Code,Weighing from TestingSolutionDetail "
                     "where len(TypeCode)=6) e where d.SolutionID=e.SolutionID and d.TypeCode=e.Code "
                     "group by d.SolutionID,d.TypeCode,d.Weighing) a where Rest>-0.0005 and Rest<0.0005"_s),
              u"6"_s);
}

TEST_F(Sample, EachTestIsWholeScoredAndJudged) {
    EXPECT_EQ(rowsOf(u"select TypeName,Name from TestingResult where Score is null or "
                     "(len(TypeCode)=6 and (TestingResult is null or TestingResult='' or FactQuestions is null))"_s),
              QString());
    // No verdict stays without an example: nine subtypes with four words each.
    EXPECT_EQ(rowsOf(u"select count(*) from (select distinct TypeCode,TestingResult from TestingResult "
                     "where len(TypeCode)=6) a"_s),
              u"36"_s);
}

TEST_F(Sample, ItsCandidatesHaveIdentityNumbersOfTheirAgeAndSex) {
    cTestings tests;
    for (const auto& candidate : tests.Find(0, {})) {
        SCOPED_TRACE(candidate->IDNumber.toStdString());
        EXPECT_TRUE(IsValidIDNumber(candidate->IDNumber));
        const QDate birth = QDate::fromString(candidate->IDNumber.mid(6, 8), u"yyyyMMdd"_s);
        const QDate day = toMoment(candidate->TestingDate).date();
        EXPECT_LE(birth.addYears(candidate->Age), day);
        EXPECT_GT(birth.addYears(candidate->Age + 1), day);
        EXPECT_EQ(candidate->Sex, candidate->IDNumber[16].digitValue() % 2 == 1 ? u"男"_s : u"女"_s);
        EXPECT_LT(toMoment(candidate->TestingDate), presentMoment());
    }
}

TEST(SampleRefusal, SparesAnOwnUser) {
    const test::EmbeddedDatabase database;
    cnnPublic.Execute(u"insert into Users (UserName) values (N'chenli')"_s);
    const auto sent = test::statementsOf([] { EXPECT_THROW(installSample(), RuntimeError); });
    EXPECT_EQ(sent.filter(QRegularExpression(u"^(?!select )"_s)), QStringList());
}

TEST(SampleFailure, LeavesTheBankEmptyAndReadyForAnotherTry) {
    QStringList whole;
    {
        const test::EmbeddedDatabase database;
        whole = test::statementsOf([] { installSample(); });
    }
    for (const auto& pattern : {u"^insert into ExaminationQuestion .*"_s, u"^insert into UserRole .*"_s,
                                u"^Update TestingResult Set TestingResult.Score.*"_s}) {
        SCOPED_TRACE(pattern.toStdString());
        const test::EmbeddedDatabase database;
        const auto before = allCounts();
        const auto failing = whole.indexOf(QRegularExpression(pattern)) + 1;
        test::statementsOf([] { EXPECT_THROW(installSample(), RuntimeError); }, failing);
        EXPECT_EQ(allCounts(), before);
        EXPECT_THROW(cnnPublic.RollbackTrans(), RuntimeError) << "the clearing up must not be left open";
        EXPECT_EQ(test::statementsOf([] { installSample(); }).size(), whole.size());
    }
}

}  // namespace

}  // namespace talvora
