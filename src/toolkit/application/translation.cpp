#include "toolkit/application/translation.h"

#include <QCoreApplication>
#include <QHash>
#include <QLibraryInfo>
#include <QTranslator>

namespace talvora {

using namespace Qt::StringLiterals;

namespace {

class OwnWords : public QTranslator {
 public:
    using QTranslator::QTranslator;

    bool isEmpty() const override { return false; }

    QString translate(const char*, const char* source, const char*, int) const override {
        static const QHash<QByteArray, QString> words{
            {"OK", u"确定"_s},           {"&OK", u"确定(&O)"_s},        {"Save", u"保存"_s},
            {"&Save", u"保存(&S)"_s},    {"Open", u"打开"_s},           {"&Open", u"打开(&O)"_s},
            {"Cancel", u"取消"_s},       {"&Cancel", u"取消(&C)"_s},    {"Close", u"关闭"_s},
            {"&Close", u"关闭(&C)"_s},   {"&Yes", u"是(&Y)"_s},         {"&No", u"否(&N)"_s},
            {"&Undo", u"撤消(&U)"_s},    {"&Redo", u"重做(&R)"_s},      {"Cu&t", u"剪切(&T)"_s},
            {"&Copy", u"复制(&C)"_s},    {"&Paste", u"粘贴(&P)"_s},     {"Delete", u"删除"_s},
            {"Select All", u"全选"_s},   {"Select all", u"全选"_s},     {"&Select All", u"全选(&A)"_s},
            {"&Step up", u"增加(&S)"_s}, {"Step &down", u"减少(&D)"_s}, {"Size", u"大小"_s},
        };
        return words.value(source);
    }
};

}  // namespace

void installTranslations(QCoreApplication& application) {
    // The translator installed last is asked first: our own words are the same with and without Qt's.
    auto* installed = new QTranslator(&application);
    if (installed->load(u"qtbase_zh_CN"_s, QLibraryInfo::path(QLibraryInfo::TranslationsPath))) {
        QCoreApplication::installTranslator(installed);
    }
    QCoreApplication::installTranslator(new OwnWords(&application));
}

}  // namespace talvora
