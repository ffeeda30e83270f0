#include "platform/database/embedded/statement_cache.h"

#include <algorithm>

namespace talvora::embedded {

Plan* StatementCache::find(const Tokens& tokens) {
    const auto found = byShape_.constFind(QStringView(tokens.shape));
    if (found == byShape_.cend()) {
        return nullptr;
    }
    const auto entry = *found;
    const auto& structural = entry->plan.structural;
    const bool fits = std::all_of(structural.begin(), structural.end(), [&tokens](const Plan::Structural& part) {
        return tokens.literals[static_cast<std::size_t>(part.literal)].text == part.text;
    });
    if (!fits) {
        byShape_.erase(found);
        entries_.erase(entry);
        return nullptr;
    }
    entries_.splice(entries_.begin(), entries_, entry);
    return &entry->plan;
}

Plan& StatementCache::add(const Tokens& tokens, Plan plan) {
    constexpr std::size_t mostPlans = 200;
    if (entries_.size() >= mostPlans) {
        byShape_.remove(QStringView(entries_.back().shape));
        entries_.pop_back();
    }
    // A deep copy: the tokens' own text is written over by the next statement.
    entries_.push_front({QStringView(tokens.shape).toString(), std::move(plan)});
    byShape_.insert(QStringView(entries_.front().shape), entries_.begin());
    return entries_.front().plan;
}

void StatementCache::clear() {
    byShape_.clear();
    entries_.clear();
}

}  // namespace talvora::embedded
