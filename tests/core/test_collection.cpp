#include "core/collection.h"
#include "core/trimmed_text.h"
#include "support/error_of.h"

#include <gtest/gtest.h>

namespace talvora::test {

using namespace Qt::StringLiterals;

namespace {

struct Numbered {
    qint16 ID = 0;
    QString Name;
};
using NumberedItems = Collection<Numbered, NumberKey<&Numbered::ID>>;

struct Coded {
    TrimmedText Code;
};
using CodedItems = Collection<Coded, TextKey<&Coded::Code>>;

NumberedItems numbered(const QList<qint16>& ids) {
    NumberedItems items;
    for (const qint16 id : ids) {
        items.Add(std::make_shared<Numbered>(Numbered{id, QString::number(id)}));
    }
    return items;
}

QString order(const NumberedItems& items) {
    QStringList names;
    for (const auto& item : items) {
        names += item->Name;
    }
    return names.join(u' ');
}

TEST(CollectionTest, KeepsTheOrderOfAddingByPositionAndKey) {
    const NumberedItems items = numbered({30, -1, 2});
    EXPECT_EQ(order(items), u"30 -1 2"_s);
    EXPECT_EQ(items.Count(), 3);
    EXPECT_EQ(items.Item(1)->ID, 30);
    EXPECT_EQ(items.Item(u"a2"_s), items.Item(3));
    EXPECT_EQ(items.Item(u"A-1"_s), items.Item(2));
}

TEST(CollectionTest, MissingItemsAreErrors) {
    const NumberedItems items = numbered({3, 4});
    for (const int position : {0, 3, -1}) {
        EXPECT_EQ(errorOf([&] { items.Item(position); }), errors::SubscriptOutOfRange) << position;
    }
    for (const QString& key : {u"a5"_s, u"3"_s, u"a03"_s, u"a 3"_s, u"a3 "_s, u"a"_s, QString(), u"a99999999999"_s}) {
        EXPECT_EQ(errorOf([&] { items.Item(key); }), errors::InvalidCall) << key.toStdString();
    }
}

TEST(CollectionTest, RemovalMovesTheLaterItemsUp) {
    NumberedItems items = numbered({3, 4, 5, 6});
    items.Remove(2);
    items.Remove(u"a5"_s);
    EXPECT_EQ(items.Item(u"a6"_s), items.Item(2));
    EXPECT_EQ(errorOf([&] { items.Remove(u"a4"_s); }), errors::InvalidCall);
    EXPECT_EQ(errorOf([&] { items.Remove(3); }), errors::SubscriptOutOfRange);
    EXPECT_EQ(errorOf([&] { items.Add(items.Item(2)); }), errors::DuplicateKey);
    items.Add(std::make_shared<Numbered>(Numbered{4, u"back"_s}));
    EXPECT_EQ(order(items), u"3 6 back"_s);
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
    CodedItems items;
    items.Add(std::make_shared<Coded>(Coded{u" aBc "_s}));
    EXPECT_EQ(items.Item(u"AbC"_s)->Code.text(), u"aBc"_s);
    EXPECT_EQ(errorOf([&] { items.Add(std::make_shared<Coded>(Coded{u"ABC"_s})); }), errors::DuplicateKey);
}

TEST(TrimmedTextTest, TrimsBlanksOnlyAndCutsAtTheLimit) {
    const LimitedText<4> text(u"  \tab c  "_s);
    EXPECT_EQ(text.text(), u"\tab "_s);
    EXPECT_EQ(TrimmedText(u"   "_s).text(), QString());
}

}  // namespace

}  // namespace talvora::test
