#include "assessment/identity_number.h"
#include "core/mdlpublic.h"
#include "models/csolution.h"
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
    SCOPED_TRACE(paper.ExaminationNum.toStdString());
    int next = 0;
    for (const auto& [lower, band] : bandsOf(paper)) {
        EXPECT_EQ(lower, next) << band.toStdString();
        next = toInt16(band.section(u' ', 0, 0).section(u'-', 1)) + 1;
    }
    EXPECT_EQ(next, highestScore(paper) + 1);
}

TEST_F(Sample, HoldsAWholeBank) {
    EXPECT_EQ(rowsOf(u"select len(TypeCode),count(*) from TestingType group by len(TypeCode) order by 1"_s),
              u"3|3\n6|9"_s);
    EXPECT_EQ(rowsOf(u"select AnswerAmount,count(*) from Examination where Status=N'1 - 已完成' group by AnswerAmount "
                     "order by AnswerAmount"_s),
              u"2|2\n3|2\n4|7\n5|2"_s);
    EXPECT_EQ(rowsOf(u"select ExaminationNum from Examination where Status<>N'1 - 已完成'"_s), u"ZZ-02"_s);
    EXPECT_GE(rowsOf(u"select count(*) from ExaminationQuestion"_s).toInt(), 150);
    EXPECT_EQ(rowsOf(u"select len(PostCode) from Position group by len(PostCode) order by 1"_s), u"3\n6\n9"_s);
    EXPECT_EQ(rowsOf(u"select count(*) from TestingSolution s, Position p where s.PostName=p.PostName"_s), u"2"_s);
    EXPECT_EQ(rowsOf(u"select count(distinct TestingNumber) from TestingResult"_s), u"200"_s);
    EXPECT_EQ(rowsOf(u"select u.UserName,u.Locked,count(r.RoleID) from Users u, UserRole l, Roles r where "
                     "u.UserID=l.UserID and l.RoleID=r.RoleID group by u.UserName,u.Locked order by u.UserName"_s),
              u"admin|0|1\nguming|0|1\nlintao|0|1\nqianbo|1|1\nxuwj|0|1\nzhouyq|0|2"_s);
    EXPECT_EQ(rowsOf(u"select r.RoleName,sum(g.IsAccess),count(*) from Roles r, RoleRight g where r.RoleID=g.RoleID "
                     "group by r.RoleCode,r.RoleName order by r.RoleCode"_s),
              u"系统管理员|43|43\n测评主管|23|43\n测评专员|6|43\n人事经理|13|43\n题库编辑|10|43"_s);
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
    constexpr double rounding = 0.0005;
    cSolutions models;
    for (const auto& model : models.Find(0)) {
        SCOPED_TRACE(model->SolutionName.toStdString());
        std::map<QString, double> left;  // of each dimension's weight, when its elements have taken theirs
        double total = 0;
        cDimensions lines;
        for (const auto& line : lines.Find(model->SolutionID)) {
            const double weight = toNumber(line->Weighing);
            if (line->TypeCode.size() == 3) {
                left[line->TypeCode] = weight;
                total += weight;
            } else {
                ASSERT_EQ(left.count(line->TypeCode.left(3)), 1U) << line->TypeName.toStdString();
                left[line->TypeCode.left(3)] -= weight;
            }
        }
        EXPECT_EQ(left.size(), 3U);
        EXPECT_NEAR(total, 1, rounding);
        for (const auto& [code, rest] : left) {
            EXPECT_NEAR(rest, 0, rounding) << code.toStdString();
        }
    }
}

TEST_F(Sample, EachTestIsWholeScoredAndJudged) {
    EXPECT_EQ(rowsOf(u"select TypeName,Name from TestingResult where Score is null or "
                     "(len(TypeCode)=6 and (TestingResult is null or TestingResult='' or FactQuestions is null))"_s),
              QString());
    cTestings tests;
    for (const auto& head : tests.Find(0, {})) {
        cTestings family;
        QStringList codes;
        for (const auto& row : family.Find(head->TestingNumber, {})) {
            codes += row->TypeCode;
        }
        QStringList expected{head->TypeCode};
        if (head->TypeCode.isEmpty()) {
            cDimensions lines;
            const auto model =
                rowsOf(u"select SolutionID from TestingSolution where SolutionName=N'%1'"_s.arg(head->TypeName));
            for (const auto& line : lines.Find(toInt16(model))) {
                expected += line->TypeCode;
            }
        }
        EXPECT_EQ(codes, expected) << head->TestingNumber;
    }
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

TEST_F(Sample, IsRefusedBesideOtherData) {
    const auto before = allCounts();
    const auto sent = test::statementsOf([] { EXPECT_THROW(installSample(), RuntimeError); });
    EXPECT_EQ(sent.filter(QRegularExpression(u"^(?!select )"_s)), QStringList());
    EXPECT_EQ(allCounts(), before);
}

TEST(SampleRefusal, SparesAnOwnUser) {
    const test::EmbeddedDatabase database;
    cnnPublic.Execute(u"insert into Users (UserName) values (N'chenli')"_s);
    EXPECT_THROW(installSample(), RuntimeError);
    EXPECT_EQ(rowsOf(u"select UserName from Users order by UserName"_s), u"admin\nchenli"_s);
}

TEST(SampleFailure, LeavesTheBankEmptyAndReadyForAnotherTry) {
    QString filled;
    QStringList whole;
    {
        const test::EmbeddedDatabase database;
        whole = test::statementsOf([] { installSample(); });
        filled = allCounts();
    }
    const auto position = [&](const char16_t* pattern) {
        return whole.indexOf(QRegularExpression(QString::fromUtf16(pattern))) + 1;
    };
    for (const auto failing : {position(u"^insert into ExaminationQuestion .*"), position(u"^insert into UserRole .*"),
                               position(u"^Update TestingResult Set TestingResult.Score.*"), whole.size()}) {
        ASSERT_GT(failing, 0);
        SCOPED_TRACE(whole[failing - 1].toStdString());
        const test::EmbeddedDatabase database;
        const auto before = allCounts();
        test::statementsOf([] { EXPECT_THROW(installSample(), RuntimeError); }, failing);
        EXPECT_EQ(allCounts(), before);
        EXPECT_THROW(cnnPublic.RollbackTrans(), RuntimeError) << "the clearing up must not be left open";
        installSample();
        EXPECT_EQ(allCounts(), filled);
    }
}

}  // namespace

}  // namespace talvora
