#include "settings/coption.h"

#include "core/mdlpublic.h"
#include "core/status_of.h"

namespace talvora {

using namespace Qt::StringLiterals;

Status cOption::Update(const QString& VarName, const QString& value) {
    return statusOf([&] {
        cnnPublic.Execute(u"Update Options set VarValue='"_s + value + u"' where varName='"_s + VarName + u'\'');
        return Status::Done;
    });
}

cOptions& cOptions::Find(const QString& VarName) {
    const QString statement =
        VarName.isEmpty() ? u"SELECT *  FROM Options "_s : u"SELECT * FROM Options where VarName='"_s + VarName + u'\'';
    Clear();
    qint16 number = 0;
    for (const Row row : cnnPublic.Execute(statement)) {
        auto option = std::make_shared<cOption>();
        option->VarID = ++number;
        option->VarName = row.text("VarName");
        option->VarValue = row.text("VarValue");
        option->VarType = row.text("VarType");
        option->VarDesc = row.text("VarDesc");
        Add(option);
    }
    return *this;
}

}  // namespace talvora
