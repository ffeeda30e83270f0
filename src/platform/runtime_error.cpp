#include "platform/runtime_error.h"

namespace talvora {

using namespace Qt::StringLiterals;

namespace {

QString wordsOf(int number) {
    switch (number) {
        case errors::InvalidCall:
            return u"无效的过程调用或参数"_s;
        case errors::Overflow:
            return u"溢出"_s;
        case errors::SubscriptOutOfRange:
            return u"下标越界"_s;
        case errors::TypeMismatch:
            return u"类型不匹配"_s;
        case errors::PathAccess:
            return u"路径/文件访问错误"_s;
        case errors::InvalidUseOfNull:
            return u"无效使用 Null"_s;
        case errors::InvalidPropertyValue:
            return u"无效属性值"_s;
        case errors::AlreadyDisplayed:
            return u"窗体已经显示；不能按模态方式显示"_s;
        case errors::DuplicateKey:
            return u"该键已经与该集合中的一个元素相关联"_s;
        case errors::NoCurrentRow:
            return u"没有当前记录"_s;
        case errors::NoSuchField:
            return u"在集合中找不到该字段"_s;
        case errors::ConnectionClosed:
            return u"数据库连接没有打开"_s;
        default:
            return u"应用程序定义或对象定义的错误"_s;
    }
}

}  // namespace

RuntimeError::RuntimeError(int number) : RuntimeError(number, wordsOf(number)) {}

RuntimeError::RuntimeError(int number, const QString& description)
    : number_(number), description_(description), what_(description.toUtf8()) {}

DatabaseError::DatabaseError(int number, const QString& description, const QString& sqlState)
    : RuntimeError(number, description), sqlState_(sqlState) {}

}  // namespace talvora
