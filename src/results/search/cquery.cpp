#include "results/search/cquery.h"

#include "core/data_routines.h"
#include "core/mdlpublic.h"
#include "core/status_of.h"

namespace talvora {

using namespace Qt::StringLiterals;

Status cQuery::AddNew(const QString& description, const QString& statement) {
    return statusOf([&] {
        if (IsExistName(u"Query"_s, u"Query"_s, description, QString(), u"0"_s)) {
            return Status::Taken;
        }
        QString quoted = statement;
        quoted.replace(u"'"_s, u"''"_s);
        cnnPublic.Execute(u"insert into Query (Query,Condition) values ('"_s + description + u"','"_s + quoted +
                          u"')"_s);
        return Status::Done;
    });
}

Status cQuery::Delete(qint16 QueryID) {
    return executed(u"Delete from Query where QueryID="_s + QString::number(QueryID));
}

cQuerys& cQuerys::Find(qint16 QueryID) {
    const QString statement = QueryID != 0 ? u"Select * from Query where QueryID="_s + QString::number(QueryID)
                                           : u"Select * from Query order by Query"_s;
    load(statement, [](cQuery& query, const Row& row) {
        query.QueryID = row.number16("QueryID");
        query.Query = row.text("Query");
        query.Condition = row.text("Condition");
    });
    return *this;
}

}  // namespace talvora
