#include "core/transaction.h"

#include "core/mdlpublic.h"
#include "core/resume_next.h"

namespace talvora {

Status executePassingErrors(const QStringList& statements) {
    ResumeNext steps;
    steps([] { cnnPublic.BeginTrans(); });
    for (const QString& statement : statements) {
        steps([&] { cnnPublic.Execute(statement); });
    }
    steps([] { cnnPublic.CommitTrans(); });
    return steps.status();
}

}  // namespace talvora
