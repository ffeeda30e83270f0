#include "setup/agreement.h"

#include "platform/runtime_error.h"
#include "setup/terminal.h"

namespace talvora {

using namespace Qt::StringLiterals;

bool isAgreed(const Arguments& arguments, const QString& question) {
    if (arguments.options.contains(u"yes"_s)) {
        return true;
    }
    if (!isAsked()) {
        throw RuntimeError(errors::InvalidCall,
                           question + u"\n这里无法询问，没有做任何改动；确实要做时请加上参数［--yes］。"_s);
    }
    static const QStringList agreed{u"是"_s, u"y"_s, u"yes"_s};
    const bool isYes = agreed.contains(readAnswer(question + u"\n继续吗？（是/否）"_s).trimmed(), Qt::CaseInsensitive);
    if (!isYes) {
        complain(u"已取消，没有做任何改动。"_s);
    }
    return isYes;
}

}  // namespace talvora
