#include "setup/check.h"

#include "core/data_routines.h"
#include "platform/runtime_error.h"
#include "setup/care/key_ranges.h"
#include "setup/install.h"
#include "setup/tables.h"

#include <algorithm>

namespace talvora {

using namespace Qt::StringLiterals;

namespace {

class Checker {
 public:
    explicit Checker(Connection& connection) : connection_(connection) {}

    std::vector<CheckItem> items() {
        if (tables()) {
            attempt(u"模块目录"_s, [this] { modules(); });
            attempt(u"功能目录"_s, [this] { functions(); });
            attempt(u"选项"_s, [this] { options(); });
            attempt(u"系统角色"_s, [this] { systemRole(); });
            attempt(u"系统用户"_s, [this] { systemUser(); });
            attempt(u"排序规则（大小写）"_s, [this] { letterCase(); });
            attempt(u"排序规则（全角半角）"_s, [this] { width(); });
            for (const auto& range : keyRanges()) {
                attempt(u"编号［%1］"_s.arg(range.caption), [&] { keys(range); });
            }
            attempt(u"答题记录"_s, [this] { history(); });
        }
        return std::move(items_);
    }

 private:
    void add(bool isGood, const QString& text) { items_.push_back({isGood, text}); }
    void warn(const QString& text) { items_.push_back({true, text, true}); }

    template <class Step>
    void attempt(const QString& subject, Step&& step) {
        try {
            step();
        } catch (const RuntimeError& error) {
            add(false, subject + u"：检查失败，"_s + error.description());
        }
    }

    bool tables() {
        for (const auto& table : schemaTables()) {
            attempt(u"表 "_s + table.table, [&] { columns(table); });
        }
        return isComplete(items_);
    }

    void columns(const TableColumns& table) {
        if (!hasTable(connection_, table.table)) {
            add(false, u"表 %1：不存在"_s.arg(table.table));
            return;
        }
        const auto missing = missingColumns(connection_, table);
        if (!missing.isEmpty()) {
            add(false, u"表 %1：缺少列 %2"_s.arg(table.table, missing.join(u'、')));
            return;
        }
        add(true, u"表 %1：%2 列"_s.arg(table.table).arg(table.columns.size()));
    }

    // The rows of the catalogue that the database must have as well, told by one text column.
    void demandRows(const QString& subject, const QString& statement, Connection& model) {
        QStringList missing;
        const auto wanted = firstColumn(model, statement);
        const auto present = firstColumn(connection_, statement);
        for (const auto& text : wanted) {
            if (!present.contains(text, Qt::CaseInsensitive)) {
                missing.append(text);
            }
        }
        add(missing.isEmpty(), missing.isEmpty() ? u"%1：%2 项齐全"_s.arg(subject).arg(wanted.size())
                                                 : u"%1：缺少 %2"_s.arg(subject, missing.join(u'、')));
    }

    static QStringList firstColumn(Connection& connection, const QString& statement) {
        QStringList texts;
        const auto rows = connection.Execute(statement);
        for (const auto row : rows) {
            texts.append(row.text(0));
        }
        return texts;
    }

    // A database as the installation leaves it, to compare with.
    Connection& model() {
        if (!model_.IsOpen()) {
            model_.ConnectionString = u"Data Source=embedded;Initial Catalog=:memory:"_s;
            model_.Open();
            installSchema(model_);
            installCatalogue(model_, u"model"_s);
        }
        return model_;
    }

    void modules() {
        demandRows(u"模块目录"_s, u"select TableName from Modules where len(ModuleCode)=6"_s, model());
        const auto astray = countOf(connection_,
                                    u"select count(*) from Modules where len(ModuleCode)=6 and left(ModuleCode,3) "
                                    "not in (select ModuleCode from Modules where len(ModuleCode)=3)"_s);
        add(astray == 0,
            u"模块目录：%1"_s.arg(astray == 0 ? u"每个模块都在一个分组之下"_s : u"有模块不在任何分组之下"_s));
    }

    void functions() {
        demandRows(u"功能目录"_s,
                   u"select m.TableName + '.' + f.FunctionKey from Modules m,ModuleFunction f "
                   "where m.ModuleCode=f.ModuleCode"_s,
                   model());
    }

    void options() { demandRows(u"选项"_s, u"select VarName from Options"_s, model()); }

    void systemRole() {
        const auto roles = countOf(connection_, u"select count(*) from Roles where RoleName='系统管理员'"_s);
        add(roles == 1, u"系统角色［系统管理员］：%1"_s.arg(roles == 1 ? u"存在"_s : u"不存在或不唯一"_s));
    }

    void systemUser() {
        const auto users = connection_.Execute(u"select Password,Locked from Users where UserName='admin'"_s);
        if (users.RecordCount() != 1) {
            add(false, u"系统用户［admin］：不存在或不唯一"_s);
            return;
        }
        const bool isOpen = users.first().number16Or0("Locked") == 0;
        const bool hasPassword = !users.first().text("Password").isEmpty();
        add(isOpen, u"系统用户［admin］：%1"_s.arg(isOpen ? u"可以登录"_s : u"已锁定"_s));
        add(hasPassword, u"系统用户［admin］：%1"_s.arg(hasPassword ? u"有密码"_s : u"没有密码"_s));
    }

    void letterCase() {
        const bool isGood = countOf(connection_, u"select count(*) from Modules where TableName='TESTING'"_s) == 1;
        add(isGood, u"排序规则：%1"_s.arg(isGood ? u"不区分大小写"_s : u"区分大小写，应为 Chinese_PRC_CI_AS"_s));
    }

    // On a copy of the column, since only the column itself tells the collation that it was made with.
    void width() {
        connection_.Execute(u"select ScoreScope1 into #WidthProbe from Examination where ExaminationID=0"_s);
        connection_.Execute(u"insert into #WidthProbe (ScoreScope1) values ('0-59')"_s);
        const bool isGood = countOf(connection_, u"select patindex('%－%',ScoreScope1) from #WidthProbe"_s) == 2;
        connection_.Execute(u"drop table #WidthProbe"_s);
        add(isGood, u"排序规则：%1"_s.arg(isGood ? u"不区分全角与半角"_s : u"区分全角与半角，测评将无法计分"_s));
    }

    void keys(const KeyRange& range) {
        constexpr int warningPercent = 80;
        const qint32 used = usedKeys(connection_, range);
        const qint64 percent = qint64{used} * 100 / greatestKey;
        const auto state =
            u"编号［%1］：已用 %2 / %3（%4%）"_s.arg(range.caption).arg(used).arg(greatestKey).arg(percent);
        if (qint64{used} * 100 < qint64{warningPercent} * greatestKey) {
            add(true, state);
        } else if (used < greatestKey) {
            warn(state + u"，快用完了，"_s + advice(range));
        } else {
            add(false, state + u"，已用完，不能再增加，"_s + advice(range));
        }
    }

    // A new numbering gains what the rows that are there leave over.
    QString advice(const KeyRange& range) {
        if (heldKeys(connection_, range) < greatestKey / 2) {
            return u"请运行 talvora-setup renumber 重新编号"_s;
        }
        const bool isTest = range.home.table == "TestingResult"_L1;
        return (isTest ? u"请先用 talvora-setup archive 移走旧的测评"_s : u"请先删除不再使用的内容"_s) +
               u"，再运行 talvora-setup renumber 重新编号"_s;
    }

    // Each submission scores all answers of its paper again. The embedded database finds those that change by an
    // index; a server reads them all, and has to be done within the client's time limit.
    void history() {
        constexpr qint32 manyAnswers = 800'000;
        if (isEmbedded(connection_)) {
            return;
        }
        qint32 most = 0;
        const auto papers = connection_.Execute(
            u"select ExaminationID,count(*) from TestingResultDetail where ExaminationID>0 group by ExaminationID"_s);
        for (const auto paper : papers) {
            most = std::max(most, paper.number32(1));
            if (paper.number32(1) >= manyAnswers) {
                warn(
                    u"答题记录：试卷［%1］有 %2 条，再多下去提交测评会超过时限而失败，"
                    "请用 talvora-setup archive 移走旧的测评"_s.arg(numberOfPaper(paper.text(0)))
                        .arg(paper.number32(1)));
            }
        }
        if (most < manyAnswers) {
            add(true, u"答题记录：一份试卷最多 %1 条"_s.arg(most));
        }
    }

    QString numberOfPaper(const QString& key) {
        const auto papers = connection_.Execute(u"select ExaminationNum from Examination where ExaminationID="_s + key);
        return papers.RecordCount() == 0 ? key : papers.first().text(0);
    }

    Connection& connection_;
    Connection model_;
    std::vector<CheckItem> items_;
};

}  // namespace

std::vector<CheckItem> checkDatabase(Connection& connection) {
    return Checker(connection).items();
}

QString checkText(const std::vector<CheckItem>& items) {
    QStringList lines;
    for (const auto& item : items) {
        lines.append((item.isWarning ? u"注意  "_s : item.isGood ? u"通过  "_s : u"问题  "_s) + item.text);
    }
    lines.append(isComplete(items) ? u"数据库完整。"_s : u"数据库不完整，请处理列为“问题”的各项。"_s);
    if (std::any_of(items.begin(), items.end(), [](const CheckItem& item) { return item.isWarning; })) {
        lines.append(u"另请留意列为“注意”的各项。"_s);
    }
    return lines.join(u'\n');
}

bool isComplete(const std::vector<CheckItem>& items) {
    return std::all_of(items.begin(), items.end(), [](const CheckItem& item) { return item.isGood; });
}

}  // namespace talvora
