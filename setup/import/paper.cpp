#include "setup/import/paper.h"

#include "platform/database/embedded/collation.h"

#include <QDate>
#include <QHash>

#include <algorithm>

namespace talvora {

using namespace Qt::StringLiterals;

namespace {

constexpr qint16 usualMinutes = 10;
constexpr int mandatoryBands = 2;

// Whether `text` is made of up to `most` of the ten plain digits. A full-width digit is none for the database.
bool isWholeNumber(const QString& text, int most) {
    return !text.isEmpty() && text.size() <= most &&
           std::all_of(text.begin(), text.end(), [](QChar c) { return c >= u'0' && c <= u'9'; });
}

QString inBrackets(Column column) {
    return u'［' + columnName(column) + u'］';
}

// Turns the first row of a paper into its head.
class HeadReader {
 public:
    HeadReader(const ImportRow& row, ImportFaults& faults) : row_(row), faults_(faults) {}

    void read(ImportPaper& paper) {
        paper.subtypeNote = row_[Column::SubtypeNote];
        paper.minutes = minutes();
        paper.note = row_[Column::PaperNote];
        paper.isDraft = isDraft();
        paper.author = row_[Column::Author];
        paper.auditing = row_[Column::Auditing];
        paper.approver = row_[Column::Approver];
        paper.writeDate = date(Column::WriteDate);
        paper.auditingDate = date(Column::AuditingDate);
        paper.approverDate = date(Column::ApproverDate);
        if (row_[Column::WriteDate].isEmpty()) {
            paper.writeDate = QDate::currentDate().toString(Qt::ISODate);
        }
        for (int number = 1; number <= bandCount; ++number) {
            paper.bands[static_cast<std::size_t>(number - 1)] = band(number);
        }
        checkWords(paper);
    }

 private:
    void fault(const QString& reason) { faults_.push_back({row_.line(), reason}); }

    qint16 minutes() {
        const auto& text = row_[Column::Minutes];
        if (text.isEmpty()) {
            return usualMinutes;
        }
        if (!isWholeNumber(text, 2)) {
            fault(inBrackets(Column::Minutes) + u"只能为 0 至 99 的整数！"_s);
            return 0;
        }
        return text.toShort();
    }

    bool isDraft() {
        const auto& text = row_[Column::State];
        if (text == u"建立中"_s || text == u"0 - 建立中"_s) {
            return true;
        }
        if (!text.isEmpty() && text != u"已完成"_s && text != u"1 - 已完成"_s) {
            fault(inBrackets(Column::State) + u"只能为［已完成］或［建立中］！"_s);
        }
        return false;
    }

    QString date(Column column) {
        const auto& text = row_[column];
        if (text.isEmpty()) {
            return {};
        }
        const auto read = QDate::fromString(QString(text).replace(u'/', u'-'), u"yyyy-M-d"_s);
        if (!read.isValid()) {
            fault(inBrackets(column) + u"不是日期，应如 2024-03-15！"_s);
        }
        return read.toString(Qt::ISODate);
    }

    ImportBand band(int number) {
        ImportBand band{row_[bandColumn(number, BandPart::Lower)], row_[bandColumn(number, BandPart::Upper)],
                        row_[bandColumn(number, BandPart::Word)], row_[bandColumn(number, BandPart::Explanation)]};
        const bool isComplete = !band.lower.isEmpty() && !band.upper.isEmpty() && !band.word.isEmpty();
        const bool isBlank =
            band.lower.isEmpty() && band.upper.isEmpty() && band.word.isEmpty() && band.explanation.isEmpty();
        if (isBlank && number > mandatoryBands) {
            return band;
        }
        if (!isComplete) {
            fault(u"［序号%1］的得分下限、得分上限和评价结果%2！"_s.arg(number).arg(
                number > mandatoryBands ? u"必须全部输入（或者全部不输入）"_s : u"必须输入完整"_s));
        } else if (!isWholeNumber(band.lower, 2) || !isWholeNumber(band.upper, 3)) {
            fault(u"［序号%1］的得分下限只能为 0 至 99 的整数，得分上限只能为 0 至 999 的整数！"_s.arg(number));
        } else if (band.upper.toInt() < band.lower.toInt()) {
            fault(u"［序号%1］的得分上限不能小于得分下限！"_s.arg(number));
        }
        return band;
    }

    void checkWords(const ImportPaper& paper) {
        QStringList seen;
        for (const auto& band : paper.bands) {
            const auto word = comparable(band.word);
            if (!word.isEmpty() && seen.contains(word)) {
                fault(u"评价结果［%1］重复！"_s.arg(band.word));
            }
            seen.append(word);
        }
    }

    const ImportRow& row_;
    ImportFaults& faults_;
};

ImportQuestion readQuestion(const ImportRow& row, ImportFaults& faults) {
    const auto fault = [&](const QString& reason) { faults.push_back({row.line(), reason}); };
    ImportQuestion question{row.line(), row[Column::Question], {}, {}};
    if (question.text.isEmpty()) {
        fault(u"请输入［题目］！"_s);
    } else if (question.text[0] >= u'A' && question.text[0] <= u'E') {
        fault(u"［题目］中的第一个字符不能为［A、B、C、D、E］！"_s);
    }
    int used = answerCount;
    while (used > leastAnswerAmount && row[answerColumn(used, AnswerPart::Text)].isEmpty() &&
           row[answerColumn(used, AnswerPart::Score)].isEmpty()) {
        --used;
    }
    for (int number = 1; number <= used; ++number) {
        const auto text = answerColumn(number, AnswerPart::Text);
        const auto score = answerColumn(number, AnswerPart::Score);
        if (row[text].isEmpty() || row[score].isEmpty()) {
            fault(u"请输入"_s + inBrackets(text) + u"及其分数！"_s);
        } else if (!isWholeNumber(row[score], 1)) {
            fault(inBrackets(score) + u"只能为 0 至 9 的一位数字！"_s);
        }
        question.answers.append(row[text]);
        question.scores.push_back(row[score].toShort());
    }
    return question;
}

// Puts each row to its paper.
class PaperGatherer {
 public:
    explicit PaperGatherer(ImportFaults& faults) : faults_(faults) {}

    void take(const ImportRow& row) {
        if (!takeKey(row)) {
            return;
        }
        const auto place = placeOf(row);
        const auto question = readQuestion(row, faults_);
        addQuestion(papers_[place], question);
    }

    std::vector<ImportPaper> papers() { return std::move(papers_); }

 private:
    void fault(int line, const QString& reason) { faults_.push_back({line, reason}); }

    // The three names that tell a row's paper. An empty one is that of the row above as long as those before it are.
    bool takeKey(const ImportRow& row) {
        bool isAsAbove = true;
        for (auto [column, kept] : {std::pair{Column::MainType, &mainType_}, std::pair{Column::Subtype, &subtype_},
                                    std::pair{Column::Number, &number_}}) {
            const auto& given = row[column];
            if (given.isEmpty() && (!isAsAbove || kept->isEmpty())) {
                fault(row.line(), u"请输入"_s + inBrackets(column) + u'！');
                return false;
            }
            if (!given.isEmpty() && comparable(given) != comparable(*kept)) {
                isAsAbove = false;
                *kept = given;
            }
        }
        return true;
    }

    std::size_t placeOf(const ImportRow& row) {
        const auto key = comparable(number_);
        const auto known = places_.constFind(key);
        if (known == places_.constEnd()) {
            startPaper(row, key);
            return papers_.size() - 1;
        }
        const auto& paper = papers_[*known];
        if (comparable(paper.mainType) != comparable(mainType_) || comparable(paper.subtype) != comparable(subtype_)) {
            fault(row.line(), u"［试卷编号］［%1］已用于第 %2 行的［%3］！"_s.arg(number_, QString::number(paper.line),
                                                                                  paper.subtype));
        }
        compareHead(row, heads_[*known]);
        return *known;
    }

    void startPaper(const ImportRow& row, const QString& key) {
        ImportPaper paper;
        paper.line = row.line();
        paper.mainType = mainType_;
        paper.subtype = subtype_;
        paper.number = number_;
        HeadReader(row, faults_).read(paper);
        places_.insert(key, papers_.size());
        papers_.push_back(std::move(paper));
        heads_.push_back(row);
        questions_.emplace_back();
    }

    void compareHead(const ImportRow& row, const ImportRow& head) {
        for (int i = 0; i < static_cast<int>(Column::Question); ++i) {
            const auto column = static_cast<Column>(i);
            const bool isKey = column == Column::MainType || column == Column::Subtype || column == Column::Number;
            if (!isKey && !row[column].isEmpty() && row[column] != head[column]) {
                fault(row.line(), inBrackets(column) + u"与同一试卷第 %1 行的内容不一致！"_s.arg(head.line()));
            }
        }
    }

    void addQuestion(ImportPaper& paper, const ImportQuestion& question) {
        auto& lines = questions_[static_cast<std::size_t>(&paper - papers_.data())];
        const auto text = comparable(question.text);
        if (!text.isEmpty() && lines.contains(text)) {
            fault(question.line, u"［题目］与同一试卷第 %1 行的相同！"_s.arg(lines.value(text)));
        }
        lines.insert(text, question.line);
        if (!paper.questions.empty() && paper.questions.front().answers.size() != question.answers.size()) {
            fault(question.line, u"本题有 %1 个答案，而同一试卷第 %2 行的有 %3 个！"_s.arg(question.answers.size())
                                     .arg(paper.questions.front().line)
                                     .arg(paper.questions.front().answers.size()));
        }
        paper.questions.push_back(question);
    }

    ImportFaults& faults_;
    QString mainType_;
    QString subtype_;
    QString number_;
    std::vector<ImportPaper> papers_;
    std::vector<ImportRow> heads_;                ///< the first row of each paper
    std::vector<QHash<QString, int>> questions_;  ///< of each paper its questions with their lines
    QHash<QString, std::size_t> places_;          ///< the papers by number
};

}  // namespace

std::vector<ImportPaper> importPapersOf(const std::vector<ImportRow>& rows, ImportFaults& faults) {
    PaperGatherer gatherer(faults);
    for (const auto& row : rows) {
        gatherer.take(row);
    }
    return gatherer.papers();
}

QString comparable(const QString& text) {
    QString folded = text;
    for (QChar& c : folded) {
        c = QChar(embedded::folded(c.unicode()));
    }
    while (folded.endsWith(u' ')) {
        folded.chop(1);
    }
    return folded;
}

}  // namespace talvora
