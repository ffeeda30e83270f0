#include "setup/sample/candidates.h"

#include "core/identity_number.h"

#include <QStringList>

#include <algorithm>
#include <vector>

namespace talvora {

using namespace Qt::StringLiterals;

namespace {

constexpr int oldest = 49;

/// How old one is at least with an education, and where in the list of salaries its wishes begin.
struct Education {
    QString name;
    int youngest;
    int firstSalary;
};

QString nameOf(SampleChance& chance, bool man) {
    static const QStringList families =
        u"王 李 张 刘 陈 杨 赵 黄 周 吴 徐 孙 胡 朱 高 林 何 郭 马 罗 梁 宋 郑 谢 韩 唐 冯 于 董 萧"_s.split(u' ');
    static const QStringList men =
        u"伟 强 磊 洋 勇 军 杰 涛 超 明 浩然 志强 建华 文博 子轩 俊杰 天宇 家豪 晓东 国栋 立新 海波 振宇 思远"_s.split(
            u' ');
    static const QStringList women =
        u"芳 娜 敏 静 丽 艳 娟 霞 慧 莹 雅婷 晓燕 思琪 雨欣 佳怡 文静 美玲 秀英 婉清 梦洁 海燕 春梅 诗涵 若兰"_s.split(
            u' ');
    return chance.pick(families) + chance.pick(man ? men : women);
}

/// The check character is X for one person in eleven. Self-service refuses those numbers, so the sample has none: it
/// takes the next order number of the sex, and draws no second time, so that what is drawn after it stays the same.
QString identityNumberOf(SampleChance& chance, const QDate& birth, bool man) {
    static const QStringList areas =
        u"110105 310104 320106 330106 370202 420106 440305 510107 610113 210102"_s.split(u' ');
    constexpr int ordersOfSex = 400;
    const QString area = chance.pick(areas);
    for (int order = chance.below(ordersOfSex) * 2 + (man ? 1 : 2);; order += 2) {
        const QString first17 = area + birth.toString(u"yyyyMMdd"_s) + u"%1"_s.arg(order, 3, 10, QChar(u'0'));
        const QString check = ChecksumChar(first17);
        if (check != "X"_L1) {
            return first17 + check;
        }
    }
}

}  // namespace

int SampleChance::below(int count) {
    return static_cast<int>(series_() % static_cast<std::mt19937::result_type>(count));
}

double SampleChance::around(double centre, double spread) {
    constexpr int grains = 1000;
    constexpr int throws = 4;
    double sum = 0;
    for (int i = 0; i < throws; ++i) {
        sum += static_cast<double>(below(grains)) / grains;
    }
    return std::clamp(centre + (sum - throws / 2.0) * spread, 0.0, 1.0);
}

cTesting sampleCandidate(SampleChance& chance, const QDate& day) {
    static const Education master{u"硕士"_s, 25, 2};
    static const Education bachelor{u"本科"_s, 22, 1};
    static const Education college{u"专科"_s, 21, 0};
    static const std::vector<Education> educations{bachelor,          bachelor, bachelor, bachelor, college,
                                                   college,           college,  master,   master,   {u"高中"_s, 20, 0},
                                                   {u"博士"_s, 28, 3}};
    static const QStringList salaries =
        u"2000~4000 4000~6000 6000~8000 8000~10000 10000~12000 12000~14000 14000~16000"_s.split(u' ');
    constexpr int daysOfYear = 365;
    constexpr int salaryWishes = 4;
    const auto education = chance.pick(educations);
    const bool man = chance.below(2) == 0;
    const int age = education.youngest + chance.below(oldest - education.youngest);
    const QDate birth = day.addYears(-age).addDays(-chance.below(daysOfYear));
    cTesting candidate;
    candidate.Name = nameOf(chance, man);
    candidate.Sex = man ? u"男"_s : u"女"_s;
    candidate.Age = static_cast<qint16>(age);
    candidate.IDNumber = identityNumberOf(chance, birth, man);
    candidate.Education = education.name;
    candidate.Salary = salaries[education.firstSalary + chance.below(salaryWishes)];
    return candidate;
}

}  // namespace talvora
