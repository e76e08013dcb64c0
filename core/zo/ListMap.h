#ifndef ZO_LISTMAP_H
#define ZO_LISTMAP_H

#include <cstddef>
#include <functional>
#include <list>
#include <map>
#include <memory>
#include <utility>

#include <zo/ListMapKey.h>

namespace zo {

/// A map that keeps its entries in the order of their insertion and finds them by key in
/// logarithmic time.
///
/// Invariants:
/// 1. Each entry of `m_list` has exactly one entry of `m_map`, which points at it and whose key is
///    that entry's own; `m_map` has no others, and no two keys are equal.
/// 2. Neither pointer is null, except after a move.
/// 3. An entry's address, and an iterator at it, hold until that entry is erased, whatever else is
///    inserted or erased, and also when the map is moved or swapped; so does `end()`.
///
/// What values point to is not the map's: it never deletes it. Therefore there is no copying: two
/// maps would point to the same things, and nobody could tell which of their users deletes them.
/// A map that was moved from may only be destroyed or assigned to.
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
    using Map = std::map<MapKey, typename List::iterator, std::less<MapKey>, MapAlloc>;

public:
    /// Bidirectional, over the entries in the order of their insertion.
    /// @{
    using iterator = typename List::iterator;
    using const_iterator = typename List::const_iterator;
    /// @}
    using value_type = typename List::value_type;

    /// Empty. Allocates, and throws `std::bad_alloc` when it cannot.
    ListMap() : m_list(std::make_unique<List>()), m_map(std::make_unique<Map>()) {}
    ListMap(const ListMap&) = delete;
    ListMap& operator=(const ListMap&) = delete;
    ListMap(ListMap&&) noexcept = default;
    ListMap& operator=(ListMap&&) noexcept = default;
    ~ListMap() = default;

    iterator begin() noexcept { return m_list->begin(); }
    iterator end() noexcept { return m_list->end(); }
    const_iterator begin() const noexcept { return m_list->cbegin(); }
    const_iterator end() const noexcept { return m_list->cend(); }

    std::size_t size() const noexcept { return m_list->size(); }
    bool empty() const noexcept { return m_list->empty(); }

    /// The entry with `key`, or `end()`. Logarithmic.
    /// @{
    iterator find(const Key& key) {
        const auto found = m_map->find(MapKey(key));
        return found == m_map->end() ? m_list->end() : found->second;
    }
    const_iterator find(const Key& key) const {
        const auto found = m_map->find(MapKey(key));
        return found == m_map->end() ? m_list->cend() : const_iterator(found->second);
    }
    /// @}

    /// Puts a copy of `entry` last. If its key is there already, nothing changes, neither value nor
    /// place. Returns the entry with the key and whether it is new. Logarithmic. After an exception
    /// (out of memory, a copy that throws) the map is as before.
    std::pair<iterator, bool> insert(const value_type& entry) {
        const MapKey key(entry.first);
        const auto place = m_map->lower_bound(key);
        if (place != m_map->end() && !(key < place->first)) {
            return {place->second, false};
        }
        // The node joins the list when nothing can fail any more; joining keeps its address.
        List added(m_list->get_allocator());
        added.push_back(entry);
        const auto node = added.begin();
        m_map->emplace_hint(place, MapKey(node->first), node);
        m_list->splice(m_list->end(), added);
        return {node, true};
    }

    /// Erases the entry at `position`, which must be one of this map, and returns the one that
    /// follows it. Logarithmic.
    iterator erase(iterator position) {
        m_map->erase(MapKey(position->first));
        return m_list->erase(position);
    }

    /// Erases the entry with `key` and returns how many were erased: 0 or 1. `key` may be the very
    /// key of that entry. Logarithmic.
    std::size_t erase(const Key& key) {
        const auto found = m_map->find(MapKey(key));
        if (found == m_map->end()) {
            return 0;
        }
        const iterator node = found->second;
        m_map->erase(found);
        m_list->erase(node);
        return 1;
    }

    /// Takes the first entry off and returns its value; there must be one. For taking a whole map
    /// apart in order: all keys are given up, and until the map is empty its entries are reached by
    /// iteration only. Linear the first time.
    Value takeFirst() noexcept {
        m_map->clear();
        const Value value = m_list->front().second;
        m_list->pop_front();
        return value;
    }

    /// Erases all entries. Linear.
    void clear() noexcept {
        m_map->clear();
        m_list->clear();
    }

    void swap(ListMap& other) noexcept {
        m_list.swap(other.m_list);
        m_map.swap(other.m_map);
    }

private:
    // Behind pointers, so that the list's end stays where it is when the map moves.
    std::unique_ptr<List> m_list;
    std::unique_ptr<Map> m_map;
};

}  // namespace zo

#endif
