#pragma once

#include "core/status.h"
#include "results/ctesting.h"
#include "results/ctestingdetail.h"

#include <QString>
#include <QStringList>

#include <vector>

namespace talvora::test {

/// A test paper in the fewest words. Its questions are 题1, 题2 …; an answer A scores 1 point, B 2, C 3, D 4, E 5.
struct PaperPlan {
    QString typeCode;
    int answers = 4;
    int questions = 2;
    /// Each band as "0-3 差": the scope, a blank, the word.
    QStringList bands;
};

/// Writes the paper and its questions, and gives its ExaminationID.
int addPaper(const PaperPlan& plan);

/// A line of a competency model: 3 digits a dimension, 6 an element.
struct LinePlan {
    QString typeCode;
    QString typeName;
    double weighing = 0;
};

/// Writes a model and gives its SolutionID.
int addModel(const QString& name, const QString& version, const std::vector<LinePlan>& lines);

/// One row of a run as the test window hands it in: a paper with the letters chosen, one for each question ('_' is a
/// question left unanswered), or a dimension, whose examination is empty.
struct SheetPlan {
    QString typeCode;
    QString typeName;
    QString examination;
    QString letters;
};

/// A candidate about to take the test `typeName`.
cTesting candidate(const QString& typeName, const QString& name = QStringLiteral("张三"));

/// Hands the sheets of a run to cTesting::AddNew.
Status submit(const cTesting& test, bool isModel, const std::vector<SheetPlan>& sheets);

}  // namespace talvora::test
