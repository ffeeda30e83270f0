#include "setup/import/csv.h"

#include <algorithm>
#include <array>

namespace talvora {

using namespace Qt::StringLiterals;

namespace {

class CsvParser {
 public:
    CsvParser(const QString& text, QChar separator, ImportFaults& faults)
        : text_(text), separator_(separator), faults_(faults) {}

    std::vector<CsvRecord> records() {
        while (at_ < text_.size()) {
            readRecord();
        }
        return std::move(records_);
    }

 private:
    bool atEnd() const { return at_ == text_.size() || text_[at_] == u'\n'; }

    void readRecord() {
        CsvRecord record{line_, {}};
        record.cells.append(readCell());
        while (!atEnd()) {
            ++at_;
            record.cells.append(readCell());
        }
        ++at_;
        ++line_;
        const bool isBlank = std::all_of(record.cells.begin(), record.cells.end(),
                                         [](const QString& cell) { return cell.trimmed().isEmpty(); });
        if (!isBlank) {
            records_.push_back(std::move(record));
        }
    }

    // Leaves the position at the separator or the end of the record.
    QString readCell() {
        if (at_ < text_.size() && text_[at_] == u'"') {
            return readQuoted();
        }
        const qsizetype start = at_;
        skipToCellEnd();
        return text_.sliced(start, at_ - start);
    }

    QString readQuoted() {
        const int openedOn = line_;
        QString cell;
        for (++at_; at_ < text_.size(); ++at_) {
            const QChar c = text_[at_];
            if (c == u'"') {
                ++at_;
                if (at_ == text_.size() || text_[at_] != u'"') {
                    refuseTail();
                    return cell;
                }
            }
            line_ += c == u'\n' ? 1 : 0;
            cell += c;
        }
        faults_.push_back({openedOn, u"双引号没有配对的结束引号！"_s});
        return cell;
    }

    void refuseTail() {
        const qsizetype start = at_;
        skipToCellEnd();
        if (!text_.sliced(start, at_ - start).trimmed().isEmpty()) {
            faults_.push_back({line_, u"结束引号之后还有文字！"_s});
        }
    }

    void skipToCellEnd() {
        while (!atEnd() && text_[at_] != separator_) {
            ++at_;
        }
    }

    const QString& text_;
    QChar separator_;
    ImportFaults& faults_;
    std::vector<CsvRecord> records_;
    qsizetype at_ = 0;
    int line_ = 1;
};

}  // namespace

QChar csvSeparator(const QString& text) {
    constexpr std::array<char16_t, 3> separators{u',', u';', u'\t'};
    std::array<int, separators.size()> counts{};
    bool isQuoted = false;
    for (const QChar c : text) {
        if (c == u'\n' && !isQuoted) {
            break;
        }
        isQuoted = isQuoted != (c == u'"');
        for (std::size_t i = 0; i < separators.size(); ++i) {
            counts[i] += !isQuoted && c == separators[i] ? 1 : 0;
        }
    }
    return separators[static_cast<std::size_t>(std::max_element(counts.begin(), counts.end()) - counts.begin())];
}

std::vector<CsvRecord> parseCsv(const QString& text, QChar separator, ImportFaults& faults) {
    return CsvParser(text, separator, faults).records();
}

}  // namespace talvora
