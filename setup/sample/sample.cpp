#include "setup/sample/sample.h"

#include "core/data_routines.h"
#include "core/mdlpublic.h"
#include "core/resume_next.h"
#include "platform/runtime_error.h"
#include "setup/import/import.h"
#include "setup/sample/sample_models.h"
#include "setup/sample/sample_tests.h"
#include "setup/tables.h"

namespace talvora {

using namespace Qt::StringLiterals;

namespace {

constexpr int testCount = 200;
// What is there besides the catalogue rows.
const auto ownRoles = u"Roles where RoleName<>N'系统管理员'"_s;
const auto ownUsers = u"Users where UserName<>'admin'"_s;

void requireEmptyBank() {
    for (const auto& rows : {u"TestingType"_s, u"Examination"_s, u"Position"_s, u"TestingSolution"_s,
                             u"TestingResult"_s, ownRoles, ownUsers}) {
        if (countOf(u"select count(*) from "_s + rows) > 0) {
            throw RuntimeError(errors::FileAlreadyExists,
                               u"数据库中已有测评数据、职位、角色或用户，不能再装入示例题库！"_s);
        }
    }
}

void importSamplePapers(const QString& name) {
    const auto outcome = importPapers(setupText(name).toUtf8());
    if (!outcome.faults.empty()) {
        throw RuntimeError(errors::InvalidCall, faultLines(outcome.faults).join(u'\n'));
    }
}

/// Beginning a transaction stores what a failed step left open; the deletions then must not stay open themselves, or
/// an end by the failure would undo them.
void clearSample() {
    ResumeNext steps;
    steps([] { cnnPublic.BeginTrans(); });
    for (const auto& table :
         {u"TestingResultDetail"_s, u"TestingResult"_s, u"TestingSolutionDetail"_s, u"TestingSolution"_s,
          u"ExaminationQuestion"_s, u"Examination"_s, u"TestingType"_s, u"Position"_s}) {
        steps([&] { cnnPublic.Execute(u"delete from "_s + table); });
    }
    const QString ofOwnRoles = u" where RoleID in (select RoleID from "_s + ownRoles + u')';
    for (const auto& rows : {u"UserRole"_s + ofOwnRoles, u"RoleRight"_s + ofOwnRoles, ownRoles, ownUsers}) {
        steps([&] { cnnPublic.Execute(u"delete from "_s + rows); });
    }
    steps([] { cnnPublic.CommitTrans(); });
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
        storeTests(drawSampleTests(testCount), progress);
    } catch (const RuntimeError&) {
        clearSample();
        throw;
    }
}

}  // namespace talvora
