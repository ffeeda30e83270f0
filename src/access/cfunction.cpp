#include "access/cfunction.h"

#include "core/mdlpublic.h"

namespace talvora {

using namespace Qt::StringLiterals;

cFunctions& cFunctions::Find(const QString& ModuleCode) {
    const QString statement =
        u"SELECT *  FROM ModuleFunction where ModuleCode='"_s + ModuleCode + u"' order by FunctionKey"_s;
    Clear();
    for (const Row row : cnnPublic.Execute(statement)) {
        auto function = std::make_shared<cFunction>();
        function->RecordID = row.number16("RecordID");
        function->ModuleCode = row.text("ModuleCode");
        function->FunctionKey = row.text("FunctionKey");
        function->FunctionDesc = row.text("FunctionDesc");
        Add(function);
    }
    return *this;
}

}  // namespace talvora
