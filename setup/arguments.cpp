#include "setup/arguments.h"

namespace talvora {

using namespace Qt::StringLiterals;

namespace {

bool isPasswordOption(const QString& name) {
    static const QStringList names{u"password"_s, u"pwd"_s, u"pass"_s, u"passwd"_s};
    return names.contains(name, Qt::CaseInsensitive);
}

// An option that has no value.
bool isFlag(const QString& name) {
    return name == "yes"_L1;
}

}  // namespace

Arguments Arguments::parse(const QStringList& given, const QStringList& known, QString& fault) {
    Arguments arguments;
    for (auto at = given.begin(); at != given.end() && fault.isEmpty(); ++at) {
        if (!at->startsWith("--"_L1)) {
            arguments.words.append(*at);
            continue;
        }
        const auto equals = at->indexOf(u'=');
        const auto name = at->sliced(2, (equals < 0 ? at->size() : equals) - 2);
        if (isPasswordOption(name)) {
            fault = u"密码不能写在命令行上，请从标准输入提供！"_s;
        } else if (!known.contains(name)) {
            fault = u"不认识的参数［--%1］！"_s.arg(name);
        } else if (arguments.options.contains(name)) {
            fault = u"参数［--%1］重复！"_s.arg(name);
        } else if (isFlag(name) && equals >= 0) {
            fault = u"参数［--%1］不带内容！"_s.arg(name);
        } else if (isFlag(name)) {
            arguments.options.insert(name, {});
        } else if (equals < 0 && at + 1 == given.end()) {
            fault = u"参数［--%1］缺少内容！"_s.arg(name);
        } else {
            arguments.options.insert(name, equals < 0 ? *++at : at->sliced(equals + 1));
        }
    }
    return arguments;
}

}  // namespace talvora
