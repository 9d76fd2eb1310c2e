#pragma once

#include <algorithm>
#include <cstddef>
#include <functional>
#include <string_view>
#include <utility>
#include <vector>

namespace desk {

/// Finds things by their keys, of which each has one that no other has. The keys are not copied:
/// `Thing::key()` must stay as it is while the thing is in here. One table and no list behind it, so that a
/// hundred thousand things are not as many pieces of memory; and things whose keys come in order, as a
/// statement with an order gives them, enter the table only when one is looked for.
template <class Thing>
class KeyIndex {
  public:
    /// Whether a thing has that key.
    bool holds(std::string_view key) { return !isBehindAll(key) && find(key) != nullptr; }

    /// Null when no thing has that key.
    Thing* find(std::string_view key) {
        enterWaiting();
        return count_ == 0 ? nullptr : entries_[placeOf(key, hashOf(key))].thing;
    }

    /// Puts in a thing whose key nothing in here has.
    void insert(Thing& thing) {
        const bool last = isBehindAll(thing.key());
        waiting_.push_back(&thing);
        if (last)
            greatest_ = &thing;
        else
            enterWaiting();
    }

    void erase(const Thing& thing) {
        enterWaiting();
        if (count_ == 0) return;
        std::size_t gap = placeOf(thing.key(), hashOf(thing.key()));
        if (entries_[gap].thing != &thing) return;
        if (greatest_ == &thing) greatest_ = nullptr;
        // Whatever had to step over the gap to find its place moves back into it.
        for (std::size_t i = next(gap); entries_[i].thing != nullptr; i = next(i)) {
            const std::size_t home = entries_[i].hash & mask();
            if (((i - home) & mask()) < ((i - gap) & mask())) continue;
            entries_[gap] = entries_[i];
            gap = i;
        }
        entries_[gap] = {};
        --count_;
    }

    /// The table stays as large as it is: what was full is mostly filled again.
    void clear() {
        if (count_ != 0) std::fill(entries_.begin(), entries_.end(), Entry());
        count_ = 0;
        waiting_.clear();
        greatest_ = nullptr;
    }

  private:
    struct Entry {
        std::size_t hash = 0;
        Thing* thing = nullptr;  ///< null in a free place
    };

    static std::size_t hashOf(std::string_view key) { return std::hash<std::string_view>()(key); }
    std::size_t mask() const { return entries_.size() - 1; }
    std::size_t next(std::size_t place) const { return (place + 1) & mask(); }

    /// Whether the key stands behind all keys in here, shorter ones first, and so is new without a look.
    bool isBehindAll(std::string_view key) const {
        if (greatest_ == nullptr) return count_ == 0 && waiting_.empty();
        const std::string_view greatest = greatest_->key();
        return key.size() != greatest.size() ? key.size() > greatest.size() : key > greatest;
    }

    /// Where the thing of that key is, or the free place where it would have to be.
    std::size_t placeOf(std::string_view key, std::size_t hash) const {
        std::size_t place = hash & mask();
        while (entries_[place].thing != nullptr &&
               (entries_[place].hash != hash || entries_[place].thing->key() != key))
            place = next(place);
        return place;
    }

    void enterWaiting() {
        for (Thing* thing : waiting_) {
            if (2 * (count_ + 1) > entries_.size()) grow();
            put({hashOf(thing->key()), thing});
            ++count_;
        }
        waiting_.clear();
    }

    void put(const Entry& entry) {
        std::size_t place = entry.hash & mask();
        while (entries_[place].thing != nullptr) place = next(place);
        entries_[place] = entry;
    }

    void grow() {
        constexpr std::size_t least = 16;
        const auto old = std::exchange(entries_, std::vector<Entry>(std::max(least, 2 * entries_.size())));
        for (const Entry& entry : old)
            if (entry.thing != nullptr) put(entry);
    }

    std::vector<Entry> entries_;  ///< a power of two of them, half free at least
    std::size_t count_ = 0;       ///< of the things in the table
    std::vector<Thing*> waiting_;
    const Thing* greatest_ = nullptr;  ///< null when there is none, or it is not known
};

}  // namespace desk
