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

/// Writes a model of the version 1.20 and gives its SolutionID. A line is "001002 0.5": code, blank, weight.
int addModel(const QString& name, const QStringList& lines);

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

/// Opens cnnPublic on a bank, an embedded file's path or a connection string, as every terminal does.
void openTerminal(const QString& bank);

}  // namespace talvora::test
