#include "core/status_of.h"

#include "core/mdlpublic.h"

namespace talvora {

Status executed(const QString& statement) {
    return statusOf([&] {
        cnnPublic.Execute(statement);
        return Status::Done;
    });
}

}  // namespace talvora
