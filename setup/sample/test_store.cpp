#include "setup/sample/test_store.h"

#include "core/data_routines.h"
#include "core/mdlpublic.h"
#include "core/resume_next.h"
#include "platform/numbers.h"
#include "testbank/ctestingtype.h"

#include <QHash>
#include <QSet>

namespace talvora {

using namespace Qt::StringLiterals;

namespace {

constexpr int scoreBands = 5;

QString text(QString content) {
    return u"N'"_s + content.replace(u'\'', "''"_L1) + u'\'';
}

QString row(const QStringList& values) {
    return u'(' + values.join(u',') + u')';
}

/// The statements that insert the rows, so many at a time.
QStringList inserts(const QString& columns, const QStringList& rows) {
    constexpr qsizetype together = 200;
    QStringList statements;
    for (qsizetype first = 0; first < rows.size(); first += together) {
        statements += u"insert into "_s + columns + u" values "_s + rows.mid(first, together).join(u',');
    }
    return statements;
}

struct Model {
    QString key;
    QString version;
};

class TestStore {
 public:
    explicit TestStore(const std::vector<FinishedTest>& tests)
        : tests_(tests), firstNumber_(GetNewID(u"TestingResult"_s, u"TestingNumber"_s)) {
        for (const auto paper : cnnPublic.Execute(u"select ExaminationID,AnswerAmount from Examination"_s)) {
            answerAmounts_.insert(paper.number32("ExaminationID"), paper.number32Or0("AnswerAmount"));
        }
        for (const auto model : cnnPublic.Execute(u"select SolutionID,SolutionName,Version from TestingSolution"_s)) {
            models_.insert(model.text("SolutionName"), {model.text("SolutionID"), model.rawText("Version")});
        }
    }

    void run(const Progress& progress) {
        const auto results = inserts(
            u"TestingResult (TestingNumber,IdNumber,Name,Sex,Age,Education,PostName,Salary,TestingDate,TypeName,"
            "TypeCode,ExaminationID,ExamQuestions,SolutionID,Version)"_s,
            resultRows());
        for (const auto& statement : results) {
            cnnPublic.Execute(statement);
        }
        const auto answers = inserts(
            u"TestingResultDetail (TestingID,ExaminationID,QuestionName,Answer1,Answer2,Answer3,Answer4,Answer5,"
            "SelectAnswer)"_s,
            answerRows());
        const auto statements = answers + scoring();
        for (qsizetype done = 0; done < statements.size();) {
            cnnPublic.Execute(statements[done++]);
            if (progress) {
                progress(static_cast<int>(done), static_cast<int>(statements.size()));
            }
        }
    }

 private:
    QStringList resultRows() const {
        QStringList rows;
        qint32 number = firstNumber_;
        for (const auto& test : tests_) {
            const QStringList first = particulars(number++, test.head);
            if (test.isModel) {
                const auto model = models_.value(test.head.TypeName);
                rows += row(first + QStringList{text(test.head.TypeName), u"null"_s, u"null"_s, u"null"_s, model.key,
                                                text(model.version)});
            }
            for (const auto& item : test.rows) {
                rows +=
                    row(first + QStringList{text(item->TypeName), text(item->TypeCode),
                                            numberText(leadingNumber(item->ExaminationID)),
                                            QString::number(item->ExamQuestions),
                                            test.isModel ? models_.value(test.head.TypeName).key : u"0"_s, u"null"_s});
            }
        }
        return rows;
    }

    static QStringList particulars(qint32 number, const cTesting& head) {
        return {QString::number(number), text(head.IDNumber),       text(head.Name),
                text(head.Sex),          QString::number(head.Age), text(head.Education),
                text(head.PostName),     text(head.Salary),         text(head.TestingDate)};
    }

    QStringList answerRows() {
        QHash<QString, QString> keys;  // by testing number and type
        for (const auto stored :
             cnnPublic.Execute(u"select TestingID,TestingNumber,TypeCode from TestingResult where len(TypeCode)=6"_s)) {
            // The client holds keys in 16 bits, and storing one by one would have failed beyond.
            keys.insert(stored.text("TestingNumber") + u'/' + stored.text("TypeCode"),
                        QString::number(stored.number16("TestingID")));
        }
        QStringList rows;
        qint32 number = firstNumber_;
        for (const auto& test : tests_) {
            for (const auto& item : test.rows) {
                const auto key = keys.value(u"%1/%2"_s.arg(number).arg(item->TypeCode));
                if (item->TypeCode.size() == subtypeCodeLength) {
                    addAnswers(test, leadingNumber(item->ExaminationID), key, rows);
                }
            }
            ++number;
        }
        return rows;
    }

    void addAnswers(const FinishedTest& test, double paper, const QString& testingId, QStringList& rows) {
        for (const auto& answer : test.answers) {
            if (answer->ExaminationID != paper) {
                continue;
            }
            papers_.insert(answer->ExaminationID);
            const auto offered = static_cast<std::size_t>(answerAmounts_.value(answer->ExaminationID));
            QStringList values{testingId, QString::number(answer->ExaminationID), text(answer->QuestionName)};
            for (std::size_t i = 0; i < detailAnswers.size(); ++i) {
                values += i < offered ? text((*answer).*detailAnswers[i]) : u"null"_s;
            }
            rows += row(values + QStringList{text(answer->SelectAnswer)});
        }
    }

    /// The statements by which a test is scored when it is stored alone, for all tests at once.
    QStringList scoring() const {
        QStringList statements;
        for (const auto paper : papers_) {
            statements +=
                u"update TestingResultDetail set Score=case SelectAnswer when 'A' then a.Score1 when 'B' then a.Score2 "
                "when 'C' then a.Score3 when 'D' then a.Score4 end from ExaminationQuestion a "
                "where TestingResultDetail.ExaminationID=a.ExaminationID and "
                "TestingResultDetail.QuestionName=a.QuestionName and TestingResultDetail.ExaminationID=%1"_s.arg(paper);
        }
        statements +=
            u"update TestingResult set Score=a.Score from (select TestingID,sum(Score) as Score "
            "from TestingResultDetail group by TestingID) a where TestingResult.TestingID=a.TestingID"_s;
        statements +=
            u"update TestingResult set FactQuestions=a.FactQuestions from (select TestingID,count(*) as FactQuestions "
            "from TestingResultDetail where Score is not null group by TestingID) a "
            "where TestingResult.TestingID=a.TestingID"_s;
        for (int band = 1; band <= scoreBands; ++band) {
            statements +=
                u"update TestingResult set TestingResult=a.DescScope%1 from Examination a "
                "where TestingResult.TypeCode=a.TypeCode and "
                "Score>=cast(left(a.ScoreScope%1,patindex('%－%',a.ScoreScope%1)-1) as int) and "
                "Score<=cast(right(a.ScoreScope%1,len(a.ScoreScope%1)-patindex('%－%',a.ScoreScope%1)) as int)"_s.arg(
                    band);
        }
        statements +=
            u"update TestingResult set Score=a.Score from (select TestingNumber,left(TypeCode,3) as TypeCode,"
            "sum(Weighed) as Score from (select r.TestingNumber,r.TypeCode,r.Score*s.Weighing as Weighed "
            "from TestingResult r,TestingSolutionDetail s where r.SolutionID=s.SolutionID and r.TypeCode=s.TypeCode) c "
            "group by TestingNumber,left(TypeCode,3)) a "
            "where a.TestingNumber=TestingResult.TestingNumber and a.TypeCode=TestingResult.TypeCode"_s;
        statements +=
            u"update TestingResult set Score=a.Score from (select TestingNumber,sum(Score) as Score "
            "from TestingResult where len(TypeCode)=3 group by TestingNumber) a "
            "where TestingResult.TestingNumber=a.TestingNumber and TestingResult.TypeCode is null"_s;
        return statements;
    }

    const std::vector<FinishedTest>& tests_;
    qint32 firstNumber_;
    QHash<qint32, qint32> answerAmounts_;  // by paper
    QHash<QString, Model> models_;         // by name
    QSet<qint16> papers_;                  // those that were sat
};

}  // namespace

void storeTests(const std::vector<FinishedTest>& tests, const Progress& progress) {
    cnnPublic.BeginTrans();
    try {
        TestStore(tests).run(progress);
        cnnPublic.CommitTrans();
    } catch (const RuntimeError&) {
        ResumeNext rollback;
        rollback([] { cnnPublic.RollbackTrans(); });
        throw;
    }
}

}  // namespace talvora
