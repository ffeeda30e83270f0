#include "platform/database/embedded/server_error.h"

#include "platform/database/embedded/tokens.h"

#include <algorithm>
#include <array>

namespace talvora::embedded {

using namespace Qt::StringLiterals;

namespace {

struct Words {
    int number;
    QStringView text;  ///< with %1, %2 for what the case adds
    QStringView state = u"42000";
};

using namespace server_error;

constexpr std::array errorWords = {
    Words{Timeout, u"查询超时已过期。", u"HYT00"},
    Words{IncorrectSyntax, u"'%1' 附近有语法错误。"},
    Words{UnclosedQuote, u"字符串 '%1' 后的引号不完整。"},
    Words{UnknownPrefix, u"列前缀 '%1' 与查询中所用的表名或别名不匹配。"},
    Words{FewerValuesThanColumns, u"INSERT 语句中列的数目大于 VALUES 子句中指定的值的数目。"},
    Words{MoreValuesThanColumns, u"INSERT 语句中列的数目小于 VALUES 子句中指定的值的数目。"},
    Words{UnclosedComment, u"缺少注释结束标记 '*/'。"},
    Words{SubqueryColumns, u"当没有用 EXISTS 引入子查询时，在选择列表中只能指定一个表达式。"},
    Words{KeywordSyntax, u"关键字 '%1' 附近有语法错误。"},
    Words{ArgumentCount, u"%1 函数要求有 %2 个参数。"},
    Words{NestedTooDeeply, u"SQL 语句的某些部分嵌套过深。请重写查询或将其分解成更小的查询。"},
    Words{UnknownFunction, u"'%1' 不是可以识别的内置函数名称。"},
    Words{InvalidColumn, u"列名 '%1' 无效。", u"42S22"},
    Words{InvalidObject, u"对象名 '%1' 无效。", u"42S02"},
    Words{AmbiguousColumn, u"列名 '%1' 不明确。"},
    Words{InvalidDate, u"从字符串转换日期和/或时间时，转换失败。", u"22007"},
    Words{ConversionFailed, u"在将 nvarchar 值 '%1' 转换成数据类型 %2 时失败。", u"22018"},
    Words{ConversionOverflow, u"nvarchar 值 '%1' 的转换溢出了 %2 列。", u"22003"},
    Words{NoTableToSelectFrom, u"必须指定要从中进行选择的表。"},
    Words{ColumnSetTwice, u"在 SET 子句或列列表中多次指定了列名 '%1'。"},
    Words{NullNotAllowed, u"不能将值 NULL 插入列 '%1'，表 '%2'；列不允许有 Null 值。", u"23000"},
    Words{InvalidLength, u"传递到 RIGHT 函数的长度参数无效。"},
    Words{InvalidLengthLeftRight, u"传递到 LEFT 或 SUBSTRING 函数的长度参数无效。"},
    Words{ExplicitIdentity, u"当 IDENTITY_INSERT 设置为 OFF 时，不能为表 '%1' 中的标识列插入显式值。"},
    Words{MissingIdentity, u"当 IDENTITY_INSERT 设置为 ON 时，必须为表 '%1' 中的标识列指定显式值。"},
    Words{OutOfMemory, u"没有足够的系统内存来运行此查询。"},
    Words{FileAccess, u"读写数据库文件时，操作系统返回了错误（%1）。请检查磁盘。"},
    Words{DamagedFile, u"数据库文件已损坏，请用备份恢复。"},
    Words{NamelessColumn, u"缺少对象或列名，或者对象或列名为空。对于 SELECT INTO 语句，请确保每列均具有名称。"},
    Words{DiskFull, u"无法为数据库分配空间，因为磁盘已满。请删除不需要的文件后重试。"},
    Words{LockTimeout, u"已超过了锁请求超时时段。", u"HYT00"},
    Words{NoColumnToIndex, u"目标表或视图中不存在列名 '%1'。"},
    Words{IndexExists, u"操作失败，因为已存在同名的索引。"},
    Words{DuplicateIndexKey, u"不能在具有唯一索引的对象 '%1' 中插入重复键的行。", u"23000"},
    Words{DuplicateKey, u"违反了 PRIMARY KEY 约束。不能在对象 '%1' 中插入重复键。", u"23000"},
    Words{ObjectExists, u"数据库中已存在名为 '%1' 的对象。", u"42S01"},
    Words{UnknownType, u"找不到数据类型 %1。"},
    Words{SecondIdentity, u"为表 '%1' 指定了多个标识列。只允许为每个表指定一个标识列。"},
    Words{CannotDrop, u"无法对 表 '%1' 执行 删除，因为它不存在，或者您没有所需的权限。", u"42S02"},
    Words{NothingToCommit, u"COMMIT TRANSACTION 请求没有对应的 BEGIN TRANSACTION。", u"25000"},
    Words{NothingToRollBack, u"ROLLBACK TRANSACTION 请求没有对应的 BEGIN TRANSACTION。", u"25000"},
    Words{ReadOnlyDatabase, u"无法更新数据库，因为数据库是只读的。"},
    Words{CannotOpenDatabase, u"无法打开数据库 \"%1\"。", u"08004"},
    Words{UnboundName, u"无法绑定由多个部分组成的标识符 \"%1\"。"},
    Words{NoCondition, u"在应使用条件的上下文(在 '%1' 附近)中指定了非布尔类型的表达式。"},
    Words{NoDatabaseFile, u"文件的标头不是有效的数据库文件标头。", u"08004"},
    Words{UpdatedIdentity, u"无法更新标识列 '%1'。"},
    Words{NoIdentityColumn, u"表 '%1' 没有标识属性。无法执行 SET 操作。"},
    Words{OtherIdentityInsert, u"表 '%1' 的 IDENTITY_INSERT 已经为 ON。无法为表 '%2' 执行 SET 操作。"},
    Words{RealConversion, u"从数据类型 nvarchar 转换为 float 时出错。", u"22018"},
    Words{ArithmeticOverflow, u"将 expression 转换为数据类型 %1 时出现算术溢出错误。", u"22003"},
    Words{InvalidOperand, u"操作数数据类型 %1 对于 %2 运算符无效。"},
    Words{TextTruncated, u"将截断字符串或二进制数据。", u"22001"},
    Words{NamelessDerivedColumn, u"没有为 '%1' 的列 %2 指定任何列名称。"},
    Words{TooManyRows, u"INSERT 语句中行值表达式的数目超出了允许的最大值 1000 行值。"},
};

/// `words` with the inserts in place of %1, %2. What an insert itself holds is left alone.
QString filled(QStringView words, const QStringList& inserts) {
    QString text;
    for (qsizetype i = 0; i < words.size(); ++i) {
        if (words[i] == u'%' && i + 1 < words.size()) {
            text += inserts.value(words[++i].digitValue() - 1);
        } else {
            text += words[i];
        }
    }
    return text;
}

}  // namespace

DatabaseError serverError(int number, const QStringList& inserts) {
    const auto words = std::find_if(errorWords.begin(), errorWords.end(),
                                    [number](const Words& known) { return known.number == number; });
    if (words == errorWords.end()) {
        return {number, inserts.join(u' '), u"HY000"_s};
    }
    return {number, filled(words->text, inserts), words->state.toString()};
}

DatabaseError incorrectSyntax(QStringView near) {
    constexpr qsizetype shown = 60;
    if (near.isEmpty()) {
        return {IncorrectSyntax, u"语句末尾附近有语法错误。"_s, u"42000"_s};
    }
    return serverError(isReserved(near) ? KeywordSyntax : IncorrectSyntax, {near.left(shown).toString()});
}

}  // namespace talvora::embedded
