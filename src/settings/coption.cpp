#include "settings/coption.h"

#include "core/status_of.h"

namespace talvora {

using namespace Qt::StringLiterals;

Status cOption::Update(const QString& VarName, const QString& value) {
    return executed(u"Update Options set VarValue='"_s + value + u"' where varName='"_s + VarName + u'\'');
}

cOptions& cOptions::Find(const QString& VarName) {
    const QString statement =
        VarName.isEmpty() ? u"SELECT *  FROM Options "_s : u"SELECT * FROM Options where VarName='"_s + VarName + u'\'';
    qint16 number = 0;
    load(statement, [&](cOption& option, const Row& row) {
        option.VarID = ++number;
        option.VarName = row.text("VarName");
        option.VarValue = row.text("VarValue");
        option.VarType = row.text("VarType");
        option.VarDesc = row.text("VarDesc");
    });
    return *this;
}

}  // namespace talvora
