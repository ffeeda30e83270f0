// Random statements against the embedded engine: whatever comes, it answers with rows or with a DatabaseError.

#include "platform/embedded_bank.h"

#include <QDeadlineTimer>
#include <QRandomGenerator>
#include <QStringList>
#include <gtest/gtest.h>

using namespace talvora;
using namespace Qt::StringLiterals;

namespace {

const QStringList words =
    uR"(select insert update delete from where group by order having into values set and or not
null in like between is exists case when then else end as on join left right full top distinct union all create table
index drop alter add primary key int nvarchar(5) identity(1,1) ( ) ( ) , , . * + - / % = <> < > <= != ; 1 0 2. .5
99999999999 'A' '' N'甲' '5' '%x%' #t Users UserID UserName TestingResult TestingResultDetail Score SelectAnswer a b
len( patindex( cast( sum( count(*) max( left( [x] "y" -- /* */ ' @ ~ desc)"_s.simplified()
        .split(u' ');

const QStringList statements =
    uR"(Select * from Users where UserName='a' and Password='b' and locked='0';
insert into Users (UserName,Locked) values ('a',0),('d','');
update TestingResultDetail set Score=case SelectAnswer when 'A' then a.Score1 when 'B' then a.Score2 end from
    ExaminationQuestion a where TestingResultDetail.ExaminationID=a.ExaminationID and
    TestingResultDetail.QuestionName=a.QuestionName and TestingResultDetail.ExaminationID=1;
update TestingResult set TestingResult =a.DescScope1 from Examination a where TestingResult.TypeCode=a.typecode and
    Score>=cast(left(a.ScoreScope1,patindex('%－%',a.ScoreScope1)-1) as int) and testingResult.TestingID=3;
SELECT LEFT(TypeCode, 3) AS typecode, SUM(Score1) AS score into #T FROM (SELECT a.TypeCode, a.Score * b.Weighing AS
    Score1 FROM TestingResult a ,TestingSolutionDetail b where a.SolutionID = b.SolutionID) c GROUP BY LEFT(TypeCode,3);
select top 3 a.UserID,count(b.RoleID) n from Users a,UserRole b where a.UserID=b.UserID group by a.UserID order by n;
create table x (id int identity(1,1) primary key, n nvarchar(3) not null, d datetime);
delete from TestingResultDetail where TestingID in (select TestingID from TestingResult where TestingNumber='1');
select left(UserName,2)+right('y',1)+cast(UserID as nvarchar(5)) from Users;drop table #T)"_s.simplified()
        .split(u';');

class StatementMaker {
 public:
    QString next() { return random_.bounded(3) == 0 ? soup() : mutated(); }

 private:
    int below(qsizetype bound) { return random_.bounded(static_cast<int>(std::max<qsizetype>(bound, 1))); }
    const QString& one(const QStringList& list) { return list[below(list.size())]; }

    QString soup() {
        QStringList list = {random_.bounded(2) == 0 ? u"select"_s : one(words)};
        for (int n = below(25); n > 0; --n) {
            list += one(words);
        }
        return list.join(random_.bounded(5) == 0 ? QString() : u" "_s);
    }

    QString mutated() {
        QStringList parts = one(statements).split(u' ');
        for (int n = below(4); n > 0; --n) {
            const int at = below(parts.size());
            const int kind = random_.bounded(4);
            if (kind == 0) {
                parts[at] = one(words);
            } else if (kind == 1) {
                parts.insert(at, one(words));
            } else if (kind == 2) {
                parts = parts.mid(0, at) + one(statements).split(u' ').mid(at) + QStringList{QString()};
            } else {
                parts[at].remove(below(parts[at].size()), 1);
            }
        }
        return parts.join(u' ');
    }

    QRandomGenerator random_{20100905};
};

TEST(FuzzTranslator, AnswersEveryStatement) {
    const QDeadlineTimer end(qEnvironmentVariable("TALVORA_FUZZ_SECONDS", u"3"_s).toLongLong() * 1000);
    StatementMaker maker;
    int understood = 0;
    int asked = 0;
    while (!end.hasExpired()) {
        // A fresh database now and then, since statements fill and drop tables.
        test::EmbeddedBank bank;
        bank.session.CommandTimeout = 2;
        for (int i = 0; i < 3000 && !end.hasExpired(); ++i) {
            understood += bank.errorOf(maker.next()) == 0 ? 1 : 0;
            ++asked;
        }
        EXPECT_EQ(bank.errorOf(u"select 1"_s), 0);
    }
    // Were nearly everything refused, the engine behind the parser would go untried.
    EXPECT_GT(understood * 20, asked);
}

}  // namespace
