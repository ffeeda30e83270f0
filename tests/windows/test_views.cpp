#include "windows/grid_listing.h"
#include "windows/journey_bank.h"
#include "workbench/detail_views.h"
#include "workbench/module_views.h"

namespace talvora::test {
namespace {

using namespace Qt::StringLiterals;

class Views : public JourneyTest {
 protected:
    QString fill(const QString& module) {
        FillModuleGrid(fg, module);
        EXPECT_TRUE(fg.ColHidden(0));
        return listing(fg);
    }
    QString detailOf(const QString& module, int row) {
        FillModuleGrid(fg, module);
        fg.Select(row, 1);
        FillDetailGrid(module, fg, detail);
        return listing(detail);
    }
    FlexGrid fg, detail;
};

TEST_F(Views, OutlineFollowsTheNeighbours) {
    // Codes, and the level of each row's node, - for a plain row.
    const QString cases[][2] = {
        {u"001 001001"_s, u"--"_s},
        {u"001 001001 002 003"_s, u"1-11"_s},
        {u"001 002 002001 003"_s, u"-1-1"_s},
        {u"001 001001 001002 002 002001 003"_s, u"1--1-1"_s},
        {u"001001 001001001 001002 002"_s, u"2-21"_s},
    };
    for (const auto& [codes, levels] : cases) {
        emptyTables({u"Roles"_s});
        for (const QString& code : codes.split(u' ')) {
            cnnPublic.Execute(u"insert into Roles (RoleName, RoleCode) values ('%1', '%1')"_s.arg(code));
        }
        QString found;
        for (const QString& line : fill(u"ROLES"_s).split(u'\n')) {
            found += line.front();
        }
        EXPECT_EQ(found, levels) << codes.toStdString();
    }
}

TEST_F(Views, PapersStandUnderTheirSubtypes) {
    cnnPublic.Execute(u"update TestingType set Author='张三', WriteDate='2010-09-05' where TypeCode='001001'"_s);
    cnnPublic.Execute(
        u"update Examination set Author='a', Auditing='b', Approver='c', WriteDate='d', AuditingDate='e', "
        "ApproverDate='f', Note='g' where ExaminationNum='ZR-1'"_s);
    cnnPublic.Execute(u"update Examination set Status='' where ExaminationNum='LJ-1'"_s);
    EXPECT_EQ(fill(u"testingtype"_s),
              u"1 001|职业素养\n"
              "2 001001|责任心|张三|2010-09-05\n- 0010011|  ZR-1|a|b|c|d|e|f|4|3|20|g\n"
              "2 001002|诚信\n- 0010022|  CX-1|||||||4|1|20 #ff0000\n"
              "1 002|专业能力\n"
              "2 002001|逻辑推理\n- 0020013|  LJ-1|||||||2|2|1\n- 0020014|  LJ-2|||||||2|2|1\n"
              "2 002002|沟通\n- 0020025|  GT-1|||||||5|2|0"_s);
    EXPECT_EQ(fg.TextMatrix(0, 1), u"测评试卷              "_s) << "the blanks give the column its width";
}

TEST_F(Views, TestsInSeventeenCellsModelsInYellow) {
    cnnPublic.Execute(
        u"insert into TestingResult (TestingNumber, Name, Sex, Age, IdNumber, Education, PostName, Salary, "
        "TestingDate, TypeName, Version, ExamQuestions, FactQuestions, Score, TestingResult, TestingDesc, SolutionID) "
        "values (2, 'n', 's', 30, 'i', 'e', 'p', 'w', 'd', 't', 'v', 9, 8, 7, 'r', 'x', 1)"_s);
    cnnPublic.Execute(
        u"insert into TestingResult (TestingNumber, TypeCode, SolutionID) values (2, '001', 1), (1, '001001', 0)"_s);
    EXPECT_EQ(fill(u"Testing"_s), u"- 3|1|||0||||||||0|0|0\n- 1|2|n|s|30|i|e|p|w|d|t|v|9|8|7|r|x #ffffc0"_s);
    fill(u"position"_s);
    EXPECT_EQ(fg.toolTip(), u"浅黄底色表示一个［素质模型］"_s) << "positions leave the legend alone";
    EXPECT_EQ(ColouredLegend(fg),
              u"<span style='background-color: #ffffc0'>&nbsp;浅黄底色表示一个［素质模型］&nbsp;</span>"_s);
    fill(u"roles"_s);
    EXPECT_EQ(ColouredLegend(fg), QString());
}

TEST_F(Views, PlainLists) {
    cnnPublic.Execute(u"insert into Users (UserName, UserDesc, Password, Locked) values ('li', 'd', '', 1)"_s);
    cnnPublic.Execute(u"update Roles set RoleDesc='not shown'"_s);
    EXPECT_EQ(fill(u"position"_s), u"1 001|总经理|1\n2 001001|销售经理|3\n3 001001001|销售专员|9"_s);
    EXPECT_EQ(fill(u"roles"_s), u"- 1|系统管理员"_s);
    EXPECT_EQ(fill(u"solution"_s), u"- 1|销售经理模型|销售经理|1.0"_s);
    strCurrentUser = u"admin"_s;
    EXPECT_EQ(fill(u"Users"_s), u"- 1|admin|False|系统用户\n- 2|li|True|d"_s);
    strCurrentUser = u"li"_s;
    EXPECT_EQ(fill(u"users"_s), u"- 2|li|True|d"_s) << "others see themselves alone";
    strCurrentUser.clear();
    EXPECT_EQ(fill(u"nothing"_s), QString());
    EXPECT_EQ(fg.Rows() + fg.Cols(), 2);
}

TEST_F(Views, QuestionsOfAPaperButNotOfAType) {
    EXPECT_EQ(detailOf(u"TestingType"_s, 3),
              u"- 1|ZR-1 第1题|做法1|1|做法2|2|做法3|3|做法4|4||0\n"
              "- 2|ZR-1 第2题|做法1|1|做法2|2|做法3|3|做法4|4||0\n"
              "- 3|ZR-1 第3题|做法1|1|做法2|2|做法3|3|做法4|4||0"_s);
    EXPECT_EQ(detailOf(u"testingtype"_s, 0) + detailOf(u"testingtype"_s, 2) + detailOf(u"position"_s, 1), QString());
}

TEST_F(Views, AnswersOfATestUnderItsParts) {
    cnnPublic.Execute(
        u"insert into TestingResult (TestingNumber, TypeName, TypeCode, Score, SolutionID) values (5, '推理', "
        u"'002001', "
        "6, 0), (7, '要素', '001001', 9, 1), (7, '维度', '001', 5, 1), (7, '模型', null, 7, 1)"_s);
    for (const auto& letter : {u"A"_s, u"E"_s, u"e"_s, u"F"_s, u""_s}) {
        cnnPublic.Execute(
            u"insert into TestingResultDetail (TestingID, ExaminationID, QuestionName, Answer1, Answer5, SelectAnswer, "
            "Score) values (2, 1, 'q', 'x', 'y', '%1', 4)"_s.arg(letter));
    }
    EXPECT_EQ(detailOf(u"testing"_s, 2),
              u"1 模型|||||||7\n2 维度|||||||5 #d3d8e0\n3 要素|||||||9 #ffffc0\n"
              "- q|x||||y|A|4 #ff0000 none\n- q|x||||y|E|4 #ff0000 none\n"
              "- q|x||||y|e|4\n- q|x||||y|F|4\n- q|x||||y||4"_s);
    EXPECT_TRUE(detail.CellForeColor(4, 1).isValid() && detail.CellForeColor(5, 5).isValid());
    EXPECT_EQ(detailOf(u"testing"_s, 1), u"3 推理|||||||6 #ffffc0"_s);
    EXPECT_EQ(detailOf(u"testing"_s, 0), QString());
}

}  // namespace
}  // namespace talvora::test
