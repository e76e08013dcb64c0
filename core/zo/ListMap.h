#ifndef ZO_LISTMAP_H
#define ZO_LISTMAP_H

#include <algorithm>
#include <cstddef>
#include <functional>
#include <list>
#include <map>
#include <memory>
#include <utility>

#include <zo/ListMapKey.h>
#include <zo/allocated.h>

namespace zo {

/// A map that keeps its entries in the order of their insertion and finds them by key in
/// logarithmic time.
///
/// Invariants:
/// 1. No two keys are equal.
/// 2. Unless `m_map` is empty, each entry of `m_list` has exactly one entry of `m_map`, which
///    points at it and whose key is that entry's own; `m_map` has no others. It is empty until
///    there are more than `k_unmapped` entries: so few are found sooner one by one.
/// 3. The pointer to both is not null, except after a move.
/// 4. An entry's address, and an iterator at it, hold until that entry is erased, whatever else is
///    inserted or erased, and also when the map is moved or swapped; so does `end()`.
///
/// What values point to is not the map's: it never deletes it. Therefore there is no copying: two
/// maps would point to the same things, and nobody could tell which of their users deletes them.
/// A map that was moved from may only be destroyed or assigned to.
///
/// All memory comes from `Alloc`, which must hold no state.
///
/// Comparing two keys must not throw. Unless told otherwise members take constant time and do not
/// throw.
template <class Key, class Value, class Compare = std::less<Key>,
          class Alloc = std::allocator<std::pair<const Key, Value>>>
class ListMap {
    using List = std::list<std::pair<const Key, Value>, Alloc>;
    using MapKey = ListMapKey<Key, Compare>;
    using MapAlloc = typename std::allocator_traits<Alloc>::template rebind_alloc<
        std::pair<const MapKey, typename List::iterator>>;
    using Map = std::map<MapKey, typename List::iterator, std::less<>, MapAlloc>;

public:
    /// Bidirectional, over the entries in the order of their insertion.
    /// @{
    using iterator = typename List::iterator;
    using const_iterator = typename List::const_iterator;
    /// @}
    using value_type = typename List::value_type;
    /// What stands for a key that is looked for: for texts it is made of a `std::string_view`.
    using Sought = typename MapKey::Sought;

    /// Empty. Allocates, and throws `std::bad_alloc` when it cannot.
    ListMap() : m_contents(makeAllocated<Contents, Alloc>()) {}
    ListMap(const ListMap&) = delete;
    ListMap& operator=(const ListMap&) = delete;
    ListMap(ListMap&&) noexcept = default;
    ListMap& operator=(ListMap&&) noexcept = default;
    ~ListMap() = default;

    iterator begin() noexcept { return list().begin(); }
    iterator end() noexcept { return list().end(); }
    const_iterator begin() const noexcept { return list().cbegin(); }
    const_iterator end() const noexcept { return list().cend(); }

    std::size_t size() const noexcept { return list().size(); }
    bool empty() const noexcept { return list().empty(); }

    /// The entry with `key`, or `end()`. Logarithmic.
    /// @{
    iterator find(const Key& key) { return findSought(Sought(key)); }
    const_iterator find(const Key& key) const { return findSought(Sought(key)); }
    iterator findSought(const Sought& key) {
        if (map().empty()) {
            return std::find_if(begin(), end(),
                                [&](const value_type& entry) { return key == entry.first; });
        }
        const auto found = map().find(key);
        return found == map().end() ? end() : found->second;
    }
    const_iterator findSought(const Sought& key) const {
        return const_cast<ListMap*>(this)->findSought(key);
    }
    /// @}

    /// Puts a copy of `entry` last. If its key is there already, nothing changes, neither value nor
    /// place. Returns the entry with the key and whether it is new. Logarithmic. After an exception
    /// (out of memory, a copy that throws) the map is as before.
    std::pair<iterator, bool> insert(const value_type& entry) {
        return insert(entry.first, entry.second);
    }
    /// The same, with no entry made if the key is there already.
    std::pair<iterator, bool> insert(const Key& key, const Value& value) {
        if (map().empty()) {
            const auto found = find(key);
            return found != end() ? std::pair(found, false) : std::pair(append(key, value), true);
        }
        const MapKey wanted(key);
        const auto place = map().lower_bound(wanted);
        if (place != map().end() && !(wanted < place->first)) {
            return {place->second, false};
        }
        const auto added = list().emplace(end(), key, value);
        withdrawOnFailure(added, [&] { map().emplace_hint(place, MapKey(added->first), added); });
        return {added, true};
    }

    /// The same for a key that is known not to be there, which is not checked: constant in a small
    /// map.
    iterator append(const Key& key, const Value& value) {
        const auto added = list().emplace(end(), key, value);
        if (!map().empty()) {
            withdrawOnFailure(added, [&] { map().emplace(MapKey(added->first), added); });
        } else if (size() > k_unmapped) {
            withdrawOnFailure(added, [&] { mapAll(); });
        }
        return added;
    }

    /// Erases the entry at `position`, which must be one of this map, and returns the one that
    /// follows it. Logarithmic.
    iterator erase(iterator position) {
        map().erase(MapKey(position->first));
        return list().erase(position);
    }

    /// Erases the entry with `key` and returns how many were erased: 0 or 1. `key` may be the very
    /// key of that entry. Logarithmic.
    std::size_t erase(const Key& key) {
        const auto found = find(key);
        if (found == end()) {
            return 0;
        }
        erase(found);
        return 1;
    }

    /// Takes the first entry off and returns its value; there must be one. For taking a whole map
    /// apart in order: meanwhile keys are searched one by one. Linear the first time.
    Value takeFirst() noexcept {
        map().clear();
        const Value value = list().front().second;
        list().pop_front();
        return value;
    }

    /// Erases all entries. Linear.
    void clear() noexcept {
        map().clear();
        list().clear();
    }

    void swap(ListMap& other) noexcept { m_contents.swap(other.m_contents); }

private:
    static constexpr std::size_t k_unmapped = 48;

    struct Contents {
        List m_list;
        Map m_map;
    };

    List& list() noexcept { return m_contents->m_list; }
    const List& list() const noexcept { return m_contents->m_list; }
    Map& map() noexcept { return m_contents->m_map; }

    void mapAll() {
        try {
            for (auto entry = begin(); entry != end(); ++entry) {
                map().emplace(MapKey(entry->first), entry);
            }
        } catch (...) {
            map().clear();
            throw;
        }
    }

    template <class Work>
    void withdrawOnFailure(iterator added, const Work& work) {
        try {
            work();
        } catch (...) {
            list().erase(added);
            throw;
        }
    }

    // Behind a pointer, so that the list's end stays where it is when the map moves.
    Allocated<Contents, Alloc> m_contents;
};

}  // namespace zo

#endif
