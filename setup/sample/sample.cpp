#include "setup/sample/sample.h"

#include "core/mdlpublic.h"
#include "core/resume_next.h"
#include "platform/runtime_error.h"
#include "setup/import/import.h"
#include "setup/sample/sample_models.h"
#include "setup/sample/sample_tests.h"

namespace talvora {

using namespace Qt::StringLiterals;

namespace {

constexpr int fileExists = 58;
constexpr int testCount = 200;

void requireEmptyBank() {
    for (const auto& table : {u"TestingType"_s, u"Position"_s, u"TestingSolution"_s, u"TestingResult"_s}) {
        if (cnnPublic.Execute(u"select count(*) from "_s + table).first().number32(0) > 0) {
            throw RuntimeError(fileExists, u"数据库中已有测评数据，不能再装入示例题库！"_s);
        }
    }
}

void importSamplePapers(const QString& name) {
    const auto outcome = importPapers(setupText(name).toUtf8());
    if (!outcome.faults.empty()) {
        throw RuntimeError(errors::InvalidCall, faultLines(outcome.faults).join(u'\n'));
    }
}

void clearSample() {
    ResumeNext steps;
    for (const auto& table :
         {u"TestingResultDetail"_s, u"TestingResult"_s, u"TestingSolutionDetail"_s, u"TestingSolution"_s,
          u"ExaminationQuestion"_s, u"Examination"_s, u"TestingType"_s, u"Position"_s}) {
        steps([&] { cnnPublic.Execute(u"delete from "_s + table); });
    }
    const QString own = u"(select RoleID from Roles where RoleName<>N'系统管理员')"_s;
    steps([&] { cnnPublic.Execute(u"delete from UserRole where RoleID in "_s + own); });
    steps([&] { cnnPublic.Execute(u"delete from RoleRight where RoleID in "_s + own); });
    steps([] { cnnPublic.Execute(u"delete from Roles where RoleName<>N'系统管理员'"_s); });
    steps([] { cnnPublic.Execute(u"delete from Users where UserName<>'admin'"_s); });
}

}  // namespace

void installSample(const Progress& progress) {
    requireEmptyBank();
    try {
        for (const auto& papers :
             {u"sample/papers-conduct.csv"_s, u"sample/papers-thinking.csv"_s, u"sample/papers-management.csv"_s}) {
            importSamplePapers(papers);
        }
        runScript(cnnPublic, setupText(u"sample/sample.sql"_s));
        addSampleModels(setupText(u"sample/models.csv"_s));
        addSampleTests(testCount, progress);
    } catch (const RuntimeError&) {
        clearSample();
        throw;
    }
}

}  // namespace talvora
