#include "setup/import/csv.h"
#include "setup/import/text_file.h"

#include <gtest/gtest.h>

namespace talvora::test {

using namespace Qt::StringLiterals;

// The records of a text, each with its line number, cells parted by "|" (line breaks written ¶); then the faults.
static QString told(const QString& text) {
    ImportFaults faults;
    QStringList lines;
    for (const auto& record : parseCsv(text, u',', faults)) {
        lines.append(QString::number(record.line) + u':' + record.cells.join(u'|').replace(u'\n', u'¶'));
    }
    return (lines + faultLines(faults)).join(u'\n');
}

TEST(Csv, CutsRecordsAsSpreadsheetProgramsWriteThem) {
    const std::pair<QString, QString> cases[] = {
        {u""_s, u""_s},
        {u"a,b\nc,,\n"_s, u"1:a|b\n2:c||"_s},
        {u"\"a,\nb\",c\nd,e"_s, u"1:a,¶b|c\n3:d|e"_s},
        {u"\"say \"\"hi\"\"\",c"_s, u"1:say \"hi\"|c"_s},
        {u"5\" disk,c"_s, u"1:5\" disk|c"_s},
        {u"a\n\n , \n\nb"_s, u"1:a\n5:b"_s},
        {u"\"a\" ,b"_s, u"1:a|b"_s},
        {u"x\n\"a\"b,c\nd"_s, u"1:x\n2:a|c\n3:d\n第 2 行：结束引号之后还有文字！"_s},
        {u"x\n\"a,b\nc"_s, u"1:x\n2:a,b¶c\n第 2 行：双引号没有配对的结束引号！"_s},
        {u"\""_s, u"第 1 行：双引号没有配对的结束引号！"_s},
    };
    for (const auto& [text, records] : cases) {
        EXPECT_EQ(told(text), records) << qPrintable(text);
    }
}

// What is read well, the import's tests tell.
TEST(ImportText, RefusesOtherEncodingsWithTheirLine) {
    const auto utf16 = u"不支持 UTF-16 编码或二进制文件，请另存为“CSV UTF-8”格式！"_s;
    const std::pair<QByteArray, QString> cases[] = {
        {"\xef\xbb\xbf\n\xcc\xe2\xc4\xbf", u"第 2 行：含有不是 UTF-8 编码的字符！"_s},
        {"a\n\xd6\nb", u"第 2 行：含有既不是 UTF-8 也不是 GBK 编码的字符！"_s},
        {QByteArray("\xff\xfe\n\0", 4), utf16},
        {QByteArray("a\0b\0", 4), utf16},
        {"PK\x03\x04zip", u"这是电子表格文件，不是 CSV 文件，请在电子表格程序中另存为 CSV 格式！"_s},
    };
    for (const auto& [content, fault] : cases) {
        ImportFaults faults;
        EXPECT_EQ(fileText(content, faults), QString());
        EXPECT_EQ(faultLines(faults), QStringList(fault)) << content.toHex().data();
    }
}

TEST(ImportFaultLines, AreSortedAndEndWithACount) {
    EXPECT_EQ(faultLines({{3, u"c"_s}, {0, u"a"_s}, {2, u"b"_s}, {4, u"d"_s}}, 2),
              (QStringList{u"a"_s, u"第 2 行：b"_s, u"……此外还有 2 处错误。"_s}));
}

}  // namespace talvora::test
