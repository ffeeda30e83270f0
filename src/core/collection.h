#pragma once

#include "core/mdlpublic.h"
#include "platform/runtime_error.h"

#include <QHash>
#include <QString>

#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace talvora {

/// The key of a record in its collection when it is a number: the letter "a" in front of the number, so that a number
/// is never taken for a position. Kept as the number alone.
template <auto Field>
struct NumberKey {
    using Type = qint32;

    template <class Record>
    static Type of(const Record& record) {
        return record.*Field;
    }
    static bool parse(const QString& text, Type& key) {
        if (!text.startsWith(u'a', Qt::CaseInsensitive)) {
            return false;
        }
        const QStringView digits = QStringView(text).sliced(1);
        key = digits.toInt();
        return digits == QString::number(key);
    }
};

/// The key of a record in its collection when it is a text, as `Of` gives it. Keys go without regard to case.
template <auto Of>
struct TextKey {
    using Type = QString;

    template <class Record>
    static Type of(const Record& record) {
        return QString(std::invoke(Of, record)).toCaseFolded();
    }
    static bool parse(const QString& text, Type& key) {
        key = text.toCaseFolded();
        return true;
    }
};

/// The records of one table on the client, in the order in which they were added. Every collection class is this
/// template and its own loaders. Items are shared: a caller that holds one keeps it alive after Clear.
template <class RecordType, class Key>
class Collection {
 public:
    using Record = RecordType;
    using Pointer = std::shared_ptr<Record>;

    /// Takes the record under its key and hands it back. RuntimeError 457 when the key stands already.
    Pointer Add(Pointer record) {
        const auto key = Key::of(*record);
        if (positions_.contains(key)) {
            throw RuntimeError(errors::DuplicateKey);
        }
        positions_.insert(key, static_cast<int>(items_.size()));
        items_.push_back(record);
        return record;
    }

    /// The item at `position`, counted from 1. RuntimeError 9 when there is none.
    Pointer Item(int position) const {
        if (position < 1 || position > Count()) {
            throw RuntimeError(errors::SubscriptOutOfRange);
        }
        return items_[static_cast<std::size_t>(position - 1)];
    }

    /// The item under `key`. RuntimeError 5 when there is none.
    Pointer Item(const QString& key) const { return Item(positionOf(key)); }

    qint32 Count() const { return static_cast<qint32>(items_.size()); }

    void Remove(int position) {
        Item(position);
        items_.erase(items_.begin() + (position - 1));
        // A key is what it was when its item was added, whatever has become of the record since.
        positions_.remove(positions_.key(position - 1));
        for (int& later : positions_) {
            later -= later >= position ? 1 : 0;
        }
    }
    void Remove(const QString& key) { Remove(positionOf(key)); }

    void Clear() {
        items_.clear();
        positions_.clear();
    }

    auto begin() const { return items_.cbegin(); }
    auto end() const { return items_.cend(); }

 protected:
    /// Adds a record for each row that the statement gives, which `fill(record, row)` fills. A failing statement's
    /// error goes to the caller.
    template <class Fill>
    void append(const QString& statement, Fill&& fill) {
        const Recordset rows = cnnPublic.Execute(statement);
        items_.reserve(items_.size() + static_cast<std::size_t>(rows.RecordCount()));
        positions_.reserve(Count() + rows.RecordCount());
        for (const Row row : rows) {
            auto record = std::make_shared<Record>();
            fill(*record, row);
            Add(std::move(record));
        }
    }

    /// The same in place of the present items. They are gone even when the statement fails.
    template <class Fill>
    void load(const QString& statement, Fill&& fill) {
        Clear();
        append(statement, std::forward<Fill>(fill));
    }

 private:
    int positionOf(const QString& text) const {
        typename Key::Type key{};
        if (!Key::parse(text, key) || !positions_.contains(key)) {
            throw RuntimeError(errors::InvalidCall);
        }
        return positions_.value(key) + 1;
    }

    std::vector<Pointer> items_;
    QHash<typename Key::Type, int> positions_;
};

}  // namespace talvora
