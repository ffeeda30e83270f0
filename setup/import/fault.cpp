#include "setup/import/fault.h"

#include <algorithm>

namespace talvora {

using namespace Qt::StringLiterals;

QStringList faultLines(ImportFaults faults, int limit) {
    std::stable_sort(faults.begin(), faults.end(),
                     [](const ImportFault& a, const ImportFault& b) { return a.line < b.line; });
    const int count = static_cast<int>(faults.size());
    QStringList lines;
    for (int i = 0; i < std::min(count, limit); ++i) {
        const auto& fault = faults[static_cast<std::size_t>(i)];
        lines.append(fault.line > 0 ? u"第 %1 行：%2"_s.arg(fault.line).arg(fault.reason) : fault.reason);
    }
    if (count > limit) {
        lines.append(u"……此外还有 %1 处错误。"_s.arg(count - limit));
    }
    return lines;
}

}  // namespace talvora
