#include "platform/database/server/link_error.h"

#include "platform/database/server_errors.h"

namespace talvora {

using namespace Qt::StringLiterals;

namespace {

bool isTimeLimit(const DatabaseError& error) {
    return error.sqlState().startsWith("HYT"_L1);
}

QString withReason(const QString& words, const QString& reason) {
    return words + u"\n（"_s + reason + u"）"_s;
}

}  // namespace

bool isLinkLost(const DatabaseError& error) {
    return error.sqlState().startsWith("08"_L1);
}

DatabaseError linkLost() {
    return {server_error::LinkLost, u"与数据库服务器的连接已中断，请检查网络和服务器后重试！"_s, u"08S01"_s};
}

DatabaseError timeLimitReached() {
    return {server_error::Timeout, u"数据库服务器没有在规定的时间内答复，请稍后重试！"_s, u"HYT00"_s};
}

DatabaseError statementFailure(const DatabaseError& error) {
    if (isTimeLimit(error)) {
        return timeLimitReached();
    }
    return isLinkLost(error) ? linkLost() : error;
}

DatabaseError connectFailure(const DatabaseError& error, const QString& server) {
    const QString& reason = error.description();
    switch (error.number()) {
        case server_error::LoginFailed:
            return {server_error::LoginFailed,
                    withReason(u"数据库服务器［%1］拒绝了登录，请检查登录名和密码！"_s.arg(server), reason),
                    error.sqlState()};
        case server_error::CannotOpenDatabase:
            return {server_error::CannotOpenDatabase,
                    withReason(u"数据库服务器［%1］上没有指定的数据库，或登录名无权使用它！"_s.arg(server), reason),
                    error.sqlState()};
        default:
            break;
    }
    if (isLinkLost(error) || isTimeLimit(error)) {
        return {server_error::NotReached,
                withReason(u"连接不到数据库服务器［%1］，请检查服务器名、端口和网络！"_s.arg(server), reason),
                u"08001"_s};
    }
    return error;
}

}  // namespace talvora
