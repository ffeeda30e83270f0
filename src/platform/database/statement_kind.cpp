#include "platform/database/statement_kind.h"

namespace talvora {

using namespace Qt::StringLiterals;

bool isQuery(const QString& statement) {
    const QString text = statement.trimmed();
    return text.startsWith("select"_L1, Qt::CaseInsensitive) && !text.contains(" into "_L1, Qt::CaseInsensitive);
}

}  // namespace talvora
