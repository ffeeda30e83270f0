#include "core/collection.h"
#include "core/trimmed_text.h"
#include "support/error_of.h"

#include <gtest/gtest.h>

namespace talvora::test {

using namespace Qt::StringLiterals;

namespace {

struct Numbered {
    qint16 ID = 0;
};
using NumberedItems = Collection<Numbered, NumberKey<&Numbered::ID>>;

NumberedItems numbered(const QList<qint16>& ids) {
    NumberedItems items;
    for (const qint16 id : ids) {
        items.Add(std::make_shared<Numbered>(Numbered{id}));
    }
    return items;
}

TEST(CollectionTest, ItemsAreTakenByPositionAndKey) {
    NumberedItems items = numbered({30, -1, 2, 6});
    EXPECT_EQ(items.Item(1)->ID, 30);
    EXPECT_EQ(items.Item(u"a2"_s), items.Item(3));
    EXPECT_EQ(items.Item(u"A-1"_s), items.Item(2));
    for (const int position : {0, 5, -1}) {
        EXPECT_EQ(errorOf([&] { items.Item(position); }), errors::SubscriptOutOfRange) << position;
        EXPECT_EQ(errorOf([&] { items.Remove(position); }), errors::SubscriptOutOfRange) << position;
    }
    for (const QString& key : {u"a5"_s, u"2"_s, u"a02"_s, u"a 2"_s, u"a2 "_s, u"a"_s, QString(), u"a99999999999"_s}) {
        EXPECT_EQ(errorOf([&] { items.Item(key); }), errors::InvalidCall) << key.toStdString();
    }
    items.Remove(2);
    items.Remove(u"a2"_s);
    EXPECT_EQ(items.Item(u"a6"_s), items.Item(2));
    EXPECT_EQ(errorOf([&] { items.Remove(u"a-1"_s); }), errors::InvalidCall);
    EXPECT_EQ(errorOf([&] { items.Add(items.Item(2)); }), errors::DuplicateKey);
    items.Add(std::make_shared<Numbered>(Numbered{-1}));
    QStringList order;
    for (const auto& item : items) {
        order += QString::number(item->ID);
    }
    EXPECT_EQ(order.join(u' '), u"30 6 -1"_s);
}

TEST(CollectionTest, KeysAreThoseOfTheTimeOfAdding) {
    NumberedItems items = numbered({3, 4, 5});
    items.Item(3)->ID = 8;
    items.Item(1)->ID = 9;
    items.Remove(1);
    EXPECT_EQ(items.Item(u"a5"_s), items.Item(2));
    for (const QString& key : {u"a3"_s, u"a8"_s, u"a9"_s}) {
        EXPECT_EQ(errorOf([&] { items.Item(key); }), errors::InvalidCall) << key.toStdString();
    }
    items.Clear();
    EXPECT_EQ(items.Count(), 0);
    EXPECT_EQ(errorOf([&] { items.Item(u"a5"_s); }), errors::InvalidCall);
}

TEST(CollectionTest, TextKeysGoWithoutRegardToCase) {
    struct Coded {
        TrimmedText Code;
    };
    Collection<Coded, TextKey<&Coded::Code>> items;
    items.Add(std::make_shared<Coded>(Coded{u" aBc "_s}));
    EXPECT_EQ(items.Item(u"AbC"_s)->Code.text(), u"aBc"_s);
    EXPECT_EQ(errorOf([&] { items.Add(std::make_shared<Coded>(Coded{u"ABC"_s})); }), errors::DuplicateKey);
    EXPECT_EQ(LimitedText<4>(u"  \tab c  "_s).text(), u"\tab "_s);
}

}  // namespace

}  // namespace talvora::test
