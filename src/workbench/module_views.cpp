#include "workbench/module_views.h"

#include "access/crole.h"
#include "access/cuser.h"
#include "core/mdlpublic.h"
#include "models/csolution.h"
#include "organisation/cposition.h"
#include "testbank/cexamination.h"
#include "testbank/ctestingtype.h"
#include "testbank/papers_ahead.h"
#include "toolkit/application/busy.h"
#include "workbench/list_colours.h"
#include "workbench/list_rows.h"

#include <algorithm>

namespace talvora {

using namespace Qt::StringLiterals;

namespace {

/// What a colour in a list means, and how it is worn.
struct Legend {
    QStringView text;
    QLatin1StringView property;
    QColor colour;
};

constexpr Legend unfinishedLegend{u"红色表示未完成试卷设置", "color"_L1, Red};
constexpr Legend modelLegend{u"浅黄底色表示一个［素质模型］", "background-color"_L1, PaleYellow};
constexpr qsizetype codeStep = 3;  // characters of a code for each level
constexpr int allLevels = 10;

void setTree(FlexGrid& fg) {
    fg.setOutlineBar(GridOutlineBar::CompleteLeaf);
    fg.setOutlineCol(1);
}

void makeNode(FlexGrid& fg, int row, int level) {
    fg.setIsSubtotal(row, true);
    fg.setRowOutlineLevel(row, level);
}

QString codeOf(const cTestingType& type) {
    return type.NowCode;
}

QString codeOf(const cRole& role) {
    return role.RoleCode;
}

/// Makes the grid's last row, which is that of item i, a node when its neighbours in the list tell so. The look ahead
/// stops short of the last item, and a row is one more node after a node of its level; both are meant.
template <class Items>
void applyOutlineRule(FlexGrid& fg, const Items& items, int i) {
    const auto length = [&](int item) { return codeOf(*items.Item(item)).size(); };
    const int row = fg.Rows() - 1;
    const bool shorterThanNext = i + 1 < items.Count() && length(i) < length(i + 1);
    const bool follows = i != 1 && fg.IsSubtotal(row - 1) && length(i) == length(i - 1);
    const bool closes = i != 1 && length(i) < length(i - 1);
    if (shorterThanNext || follows || closes) {
        makeNode(fg, row, static_cast<int>(length(i) / codeStep));
    }
}

void colourRow(FlexGrid& fg, void (FlexGrid::*setColour)(const GridRange&, const QColor&), const QColor& colour) {
    const int row = fg.Rows() - 1;
    (fg.*setColour)({row, 0, row, fg.Cols() - 1}, colour);
}

// The papers of a subtype, with the unfinished ones, which are red.
void addPapers(FlexGrid& fg, const QString& typeCode) {
    cExaminations papers;
    papers.FindByTypeCode(typeCode, true);
    for (const auto& paper : papers) {
        fg.AddItem(rowText(typeCode + QString::number(paper->ExaminationID), u"  "_s + paper->ExaminationNum,
                           paper->Author, paper->Auditing, paper->Approver, paper->WriteDate, paper->AuditingDate,
                           paper->ApproverDate, paper->AnswerAmount,
                           cExamination::GetExamQuestions(paper->ExaminationID), paper->TestingTime, paper->Note));
        if (paper->Status.startsWith(u'0')) {
            colourRow(fg, &FlexGrid::setCellForeColor, Red);
        }
    }
}

void fillTestingType(FlexGrid& fg) {
    constexpr int subtypeLevel = 2;
    fg.setToolTip(unfinishedLegend.text.toString());
    fg.setFormatString(
        u"类型编码|测评试卷              |编制人员    |审核人员    |批准人员    |编制日期    |审核日期    |批准日期    |每题答案数   |试卷题目数   |测评时长(分) |试卷说明"_s);
    setTree(fg);
    for (const int number : {8, 9, 10}) {
        fg.setColAlignment(number, GridAlign::RightCenter);
    }
    cTestingTypes types;
    types.Find(TypeKind::All);
    const PapersAhead ahead(types);
    for (int i = 1; i <= types.Count(); ++i) {
        const cTestingType& type = *types.Item(i);
        const bool isMain = type.NowCode.size() == mainTypeCodeLength;
        // The date of a subtype stands in the fourth column, which is meant.
        fg.AddItem(isMain ? rowText(type.NowCode, type.Name)
                          : rowText(type.NowCode, type.Name, type.Author, type.WriteDate));
        applyOutlineRule(fg, types, i);
        if (type.NowCode.size() > mainTypeCodeLength) {
            makeNode(fg, fg.Rows() - 1, subtypeLevel);
            addPapers(fg, type.NowCode);
        }
    }
}

void fillSolution(FlexGrid& fg) {
    fg.setToolTip(QString());
    fg.setFormatString(
        u"方案ID|素质模型                |对应职位    |当前版本    |编制人员     |审核人员     |批准人员     |编制日期     |审核日期     |批准日期     |说明"_s);
    cSolutions solutions;
    solutions.Find(0);
    for (const auto& solution : solutions) {
        fg.AddItem(rowText(solution->SolutionID, solution->SolutionName, solution->PostName, solution->Version,
                           solution->Author, solution->Auditing, solution->Approver, solution->WriteDate,
                           solution->AuditingDate, solution->ApproverDate, solution->Note));
    }
}

void fillTesting(FlexGrid& fg) {
    fg.setToolTip(modelLegend.text.toString());
    fg.setFormatString(
        u"测评ID|序号 |姓名      |性别|年龄|身份证号          |学历  |职位      |薪资范围    |测评时间     |测评类型     |模型版本 |试卷题目数|实际答题数|测评得分|测评结果       |结果说明"_s);
    setTree(fg);
    fg.Outline(allLevels);
    // The score is not among them, which is meant.
    for (const int number : {4, 11, 12, 13}) {
        fg.setColAlignment(number, GridAlign::RightCenter);
    }
    cTestings testings;
    testings.Find(0, QString());
    FillTestings(fg, testings);
}

void fillRoles(FlexGrid& fg) {
    fg.setToolTip(QString());
    fg.setFormatString(u"角色编码|角色             |说明"_s);
    setTree(fg);
    fg.Outline(allLevels);
    cRoles roles;
    roles.Find(0);
    for (int i = 1; i <= roles.Count(); ++i) {
        const cRole& role = *roles.Item(i);
        // The description is not shown here, and the key stands under another title; both are meant.
        fg.AddItem(rowText(role.RoleID, role.RoleName));
        applyOutlineRule(fg, roles, i);
    }
}

void fillUsers(FlexGrid& fg) {
    fg.setToolTip(QString());
    fg.setFormatString(u"用户ID|用户名           |已锁定  |说明"_s);
    fg.setColDataType(2, GridDataType::Boolean);
    cUsers users;
    users.Find(isAdmin(strCurrentUser) ? qint16{0} : cUsers::GetUserID(strCurrentUser));
    for (const auto& user : users) {
        fg.AddItem(rowText(user->UserID, user->UserName, user->Locked ? u"True"_s : u"False"_s, user->UserDesc));
    }
}

// The legend of the view before stays, which is meant.
void fillPosition(FlexGrid& fg) {
    fg.setFormatString(u"职位Code|职位名称                     |编制人数    "_s);
    setTree(fg);
    cPositions positions;
    positions.Find(QString());
    for (const auto& position : positions) {
        fg.AddItem(rowText(position->PostCode, position->PostName, position->Peoples));
        makeNode(fg, fg.Rows() - 1, static_cast<int>(position->PostCode.size() / codeStep));
    }
}

struct View {
    QLatin1StringView module;
    void (*fill)(FlexGrid&);
};

constexpr View views[] = {
    {"testingtype"_L1, fillTestingType},
    {"solution"_L1, fillSolution},
    {"testing"_L1, fillTesting},
    {"roles"_L1, fillRoles},
    {"users"_L1, fillUsers},
    {"position"_L1, fillPosition},
};

void markModel(FlexGrid& fg, const cTesting& testing) {
    if (testing.TypeCode.isEmpty()) {
        colourRow(fg, &FlexGrid::setCellBackColor, PaleYellow);
    }
}

}  // namespace

void FillModuleGrid(FlexGrid& fg, const QString& module) {
    const BusyPointer busy;
    fg.setRows(1);
    fg.setCols(1);
    fg.setColHidden(0, true);
    fg.setFitToTexts(true);
    const auto view = std::find_if(std::begin(views), std::end(views),
                                   [&](const View& each) { return each.module == module.toLower(); });
    if (view != std::end(views)) {
        view->fill(fg);
    }
}

QString ColouredLegend(const FlexGrid& fg) {
    for (const Legend& legend : {unfinishedLegend, modelLegend}) {
        if (fg.toolTip() == legend.text) {
            return u"<span style='%1: %2'>&nbsp;%3&nbsp;</span>"_s.arg(legend.property, legend.colour.name(),
                                                                       legend.text);
        }
    }
    return {};
}

void FillTestings(FlexGrid& fg, const cTestings& testings) {
    fg.setRows(1);
    for (const auto& item : testings) {
        const cTesting& t = *item;
        fg.AddItem(rowText(t.TestingID, t.TestingNumber, t.Name, t.Sex, t.Age, t.IDNumber, t.Education, t.PostName,
                           t.Salary, t.TestingDate, t.TypeName, t.Version, t.ExamQuestions, t.FactQuestions, t.Score,
                           t.TestingResult, t.TestingDesc));
        markModel(fg, t);
    }
}

void FillSavedQuery(FlexGrid& fg, const cTestings& testings) {
    fg.setRows(1);
    for (const auto& item : testings) {
        const cTesting& t = *item;
        fg.AddItem(rowText(t.TestingID, t.TestingNumber, t.Name, t.Sex, t.Age, t.Education, t.TestingDate, t.TypeName,
                           t.Score, t.TestingResult, t.TestingDesc));
        markModel(fg, t);
    }
}

}  // namespace talvora
