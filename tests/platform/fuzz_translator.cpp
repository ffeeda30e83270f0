// Random statements against the embedded engine: whatever comes, it answers with rows or with a DatabaseError.

#include "platform/embedded_bank.h"

#include <QElapsedTimer>
#include <QRandomGenerator>
#include <QStringList>
#include <gtest/gtest.h>

using namespace talvora;
using namespace Qt::StringLiterals;

namespace {

class StatementMaker {
 public:
    explicit StatementMaker(quint32 seed) : random_(seed) {}

    QString next() { return random_.bounded(3) == 0 ? soup() : mutated(); }

 private:
    static const QStringList& words() {
        static const QStringList list =
            u"select insert update delete from where group by order having into values set and or not null in like "
            "between is exists case when then else end as on join left right full top distinct union all create table "
            "index drop alter add primary key int nvarchar(5) identity(1,1) ( ) ( ) , , . * + - / % = <> < > <= != ; 1 "
            "0 "
            "2. .5 99999999999 'A' '' N'甲' '5' '%x%' #t Users UserID UserName TestingResult TestingResultDetail Score "
            "SelectAnswer a b len( patindex( cast( sum( count(*) max( left( [x] \"y\" -- /* */ ' @ ~ desc"_s.split(
                u' ');
        return list;
    }

    static const QStringList& statements() {
        static const QStringList list = {
            u"Select * from Users where UserName='a' and Password='b' and locked='0'"_s,
            u"insert into Users (UserName,Locked) values ('a',0),('d','')"_s,
            u"update TestingResultDetail set Score=case SelectAnswer when 'A' then a.Score1 when 'B' then a.Score2 end "
            u"from "
            "ExaminationQuestion a where TestingResultDetail.ExaminationID=a.ExaminationID and "
            "TestingResultDetail.QuestionName=a.QuestionName and TestingResultDetail.ExaminationID=1"_s,
            u"update TestingResult set TestingResult =a.DescScope1 from Examination a where "
            u"TestingResult.TypeCode=a.typecode "
            "and Score>=cast(left(a.ScoreScope1,patindex('%－%',a.ScoreScope1)-1) as int) and testingResult.TestingID=3"_s,
            u"SELECT LEFT(TypeCode, 3) AS typecode, SUM(Score1) AS score into #T FROM (SELECT a.TypeCode, a.Score * "
            "b.Weighing AS Score1 FROM TestingResult a ,TestingSolutionDetail b where a.SolutionID = b.SolutionID) c "
            "GROUP BY "
            "LEFT(TypeCode, 3)"_s,
            u"select top 3 a.UserID, count(b.RoleID) n from Users a,UserRole b where a.UserID=b.UserID group "
            "by a.UserID order by a.UserID desc"_s,
            u"create table x (id int identity(1,1) primary key, n nvarchar(3) not null, d datetime)"_s,
            u"delete from TestingResultDetail where TestingID in (select TestingID from TestingResult where TestingNumber='1')"_s,
            u"select left(UserName,2)+right('y',1)+cast(UserID as nvarchar(5)) from Users"_s,
            u"drop table #T"_s,
        };
        return list;
    }

    int below(qsizetype bound) { return random_.bounded(static_cast<int>(std::max<qsizetype>(bound, 1))); }
    const QString& one(const QStringList& list) { return list[below(list.size())]; }

    QString soup() {
        QStringList list = {random_.bounded(2) == 0 ? u"select"_s : one(words())};
        for (int n = below(25); n > 0; --n) {
            list += one(words());
        }
        return list.join(random_.bounded(5) == 0 ? QString() : u" "_s);
    }

    QString mutated() {
        QStringList parts = one(statements()).split(u' ');
        for (int n = below(4); n > 0; --n) {
            const int at = below(parts.size());
            switch (random_.bounded(4)) {
                case 0:
                    parts[at] = one(words());
                    break;
                case 1:
                    parts.insert(at, one(words()));
                    break;
                case 2:
                    parts = parts.mid(0, at) + one(statements()).split(u' ').mid(at) + QStringList{QString()};
                    break;
                default:
                    parts[at].remove(below(parts[at].size()), 1);
            }
        }
        return parts.join(u' ');
    }

    QRandomGenerator random_;
};

TEST(FuzzTranslator, AnswersEveryStatement) {
    bool given = false;
    const int seconds = qEnvironmentVariableIntValue("TALVORA_FUZZ_SECONDS", &given);
    constexpr int usualSeconds = 3;
    const qint64 limit = qint64{given ? seconds : usualSeconds} * 1000;
    StatementMaker maker(20100905);
    QElapsedTimer clock;
    clock.start();
    int understood = 0;
    int asked = 0;
    while (clock.elapsed() < limit) {
        // A fresh database now and then, since statements fill and drop tables.
        test::EmbeddedBank bank;
        bank.session.CommandTimeout = 2;
        for (int i = 0; i < 3000 && clock.elapsed() < limit; ++i) {
            const QString statement = maker.next();
            const int error = bank.errorOf(statement);
            understood += error == 0 ? 1 : 0;
            ++asked;
        }
        EXPECT_EQ(bank.errorOf(u"select 1"_s), 0);
    }
    // Were nearly everything refused, the engine behind the parser would go untried.
    EXPECT_GT(understood * 20, asked);
}

}  // namespace
