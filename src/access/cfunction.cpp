#include "access/cfunction.h"

namespace talvora {

using namespace Qt::StringLiterals;

cFunctions& cFunctions::Find(const QString& ModuleCode) {
    const QString statement =
        u"SELECT *  FROM ModuleFunction where ModuleCode='"_s + ModuleCode + u"' order by FunctionKey"_s;
    load(statement, [](cFunction& function, const Row& row) {
        function.RecordID = row.number16("RecordID");
        function.ModuleCode = row.text("ModuleCode");
        function.FunctionKey = row.text("FunctionKey");
        function.FunctionDesc = row.text("FunctionDesc");
    });
    return *this;
}

}  // namespace talvora
