#include "results/ctestingdetail.h"

namespace talvora {

using namespace Qt::StringLiterals;

cTestingDetails& cTestingDetails::Find(qint32 testingId) {
    const QString statement =
        u"Select * from TestingResultDetail where TestingID="_s + QString::number(testingId) + u" Order by ID"_s;
    load(statement, [](cTestingDetail& detail, const Row& row) {
        detail.ID = row.number32("ID");
        detail.TestingID = row.number32("TestingID");
        detail.ExaminationID = row.number16("ExaminationID");
        detail.QuestionName = row.text("QuestionName");
        detail.Answer1 = row.text("Answer1");
        detail.Answer2 = row.text("Answer2");
        detail.Answer3 = row.text("Answer3");
        detail.Answer4 = row.text("Answer4");
        detail.Answer5 = row.text("Answer5");
        detail.SelectAnswer = row.text("SelectAnswer");
        detail.Score = row.number16Or0("Score");
    });
    return *this;
}

}  // namespace talvora
