#pragma once

#include <QString>

namespace talvora {

/// Whether a statement only reads, so that it may be sent twice or ahead of its time.
bool isQuery(const QString& statement);

}  // namespace talvora
