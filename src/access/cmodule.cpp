#include "access/cmodule.h"

namespace talvora {

using namespace Qt::StringLiterals;

cModules& cModules::Find(const QString& ParentCode) {
    const QString statement = ParentCode.isEmpty()
                                  ? u"SELECT *  FROM Modules where len(ModuleCode)=3 order by ModuleCode"_s
                                  : u"SELECT *  FROM Modules where len(ModuleCode)=6 and left(ModuleCode,3)='"_s +
                                        ParentCode + u"' order by ModuleCode"_s;
    load(statement, [](cModule& module, const Row& row) {
        module.RecordID = row.number16("RecordID");
        module.ModuleCode = row.text("ModuleCode");
        module.ModuleName = row.text("ModuleName");
        module.TableName = row.text("TableName");
        module.Note = row.text("Note");
    });
    return *this;
}

}  // namespace talvora
