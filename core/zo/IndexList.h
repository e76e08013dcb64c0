#ifndef ZO_INDEXLIST_H
#define ZO_INDEXLIST_H

#include <algorithm>
#include <cassert>
#include <cstddef>
#include <list>
#include <memory>
#include <vector>

#include <zo/allocated.h>

namespace zo {

/// A list whose values are also reached by their place in constant time.
///
/// Invariants:
/// 1. `m_slots` has as many entries as `m_list`, and entry i points at the i-th value.
/// 2. The pointer to both is not null, except after a move.
/// 3. A value's address, and an iterator at it, hold until that value is erased, whatever else is
///    appended or erased, and also when the list is moved or swapped; so does `end()`.
///
/// What values point to is not the list's: it never deletes it. Therefore there is no copying: two
/// lists would point to the same things, and nobody could tell which of their users deletes them.
/// A list that was moved from may only be destroyed or assigned to.
///
/// All memory comes from `Alloc`, which must hold no state.
///
/// Unless told otherwise members take constant time and do not throw.
template <class T, class Alloc = std::allocator<T>>
class IndexList {
    using List = std::list<T, Alloc>;
    using SlotAlloc = typename std::allocator_traits<Alloc>::template rebind_alloc<T*>;
    using Slots = std::vector<T*, SlotAlloc>;

public:
    /// Bidirectional.
    /// @{
    using iterator = typename List::iterator;
    using const_iterator = typename List::const_iterator;
    /// @}
    using value_type = typename List::value_type;

    /// Empty. Allocates, and throws `std::bad_alloc` when it cannot.
    IndexList() : m_contents(makeAllocated<Contents, Alloc>()) {}
    IndexList(const IndexList&) = delete;
    IndexList& operator=(const IndexList&) = delete;
    IndexList(IndexList&&) noexcept = default;
    IndexList& operator=(IndexList&&) noexcept = default;
    ~IndexList() = default;

    iterator begin() noexcept { return list().begin(); }
    iterator end() noexcept { return list().end(); }
    const_iterator begin() const noexcept { return list().cbegin(); }
    const_iterator end() const noexcept { return list().cend(); }

    std::size_t size() const noexcept { return list().size(); }
    bool empty() const noexcept { return list().empty(); }

    /// The value at place `index`, counted from 0, which must be less than `size()`: that is
    /// asserted in debug builds and not checked in others.
    /// @{
    T& operator[](std::size_t index) {
        assert(index < m_contents->m_slots.size());
        return *m_contents->m_slots[index];
    }
    const T& operator[](std::size_t index) const {
        assert(index < m_contents->m_slots.size());
        return *m_contents->m_slots[index];
    }
    /// @}

    /// Makes room for the places of `count` values, if there is less. After an exception the list
    /// is as before.
    void reserve(std::size_t count) { m_contents->m_slots.reserve(count); }

    /// Puts a copy of `value` last. Amortised constant. After an exception (out of memory, a copy
    /// that throws) the list is as before.
    void push_back(const T& value) { add(list().end(), value); }

    /// Puts a copy of `value` before `position`, which must be one of this list or its end, and
    /// returns where it stands. Linear in the whole list unless at the end, since all places are
    /// counted anew. After an exception the list is as before.
    iterator insert(iterator position, const T& value) {
        const auto node = add(position, value);
        if (position != list().end()) {
            recount();
        }
        return node;
    }

    /// Erases the value at `position`, which must be one of this list, and returns the one that
    /// follows it. All places are counted anew: linear in the whole list, wherever `position` is.
    /// Allocates nothing.
    iterator erase(iterator position) {
        const auto following = list().erase(position);
        recount();
        return following;
    }

    /// Moves the value at `position`, which must be one of this list, to the end of `target`. For
    /// taking out many: places are not counted anew, and until `recount` is called the values are
    /// reached by iteration only. Allocates nothing.
    void extract(iterator position, std::list<T, Alloc>& target) noexcept {
        target.splice(target.end(), list(), position);
    }

    /// Counts the places anew after values were extracted. Linear; allocates nothing.
    void recount() noexcept {
        m_contents->m_slots.resize(list().size());
        std::transform(list().begin(), list().end(), m_contents->m_slots.begin(),
                       [](T& value) { return std::addressof(value); });
    }

    /// Takes the first value off and returns it; there must be one. For taking a whole list apart
    /// in order: all places are given up, and until the list is empty its values are reached by
    /// iteration only. Linear the first time.
    T takeFirst() noexcept {
        m_contents->m_slots.clear();
        const T value = list().front();
        list().pop_front();
        return value;
    }

    /// Erases all values. The room for their places is kept for those to come. Linear.
    void clear() noexcept {
        m_contents->m_slots.clear();
        list().clear();
    }

    void swap(IndexList& other) noexcept { m_contents.swap(other.m_contents); }

private:
    // Most lists stay short, and would otherwise grow again at their second value.
    static constexpr std::size_t k_leastRoom = 2;

    struct Contents {
        List m_list;
        Slots m_slots;
    };

    /// Its place is the last one for now.
    iterator add(iterator position, const T& value) {
        Slots& slots = m_contents->m_slots;
        if (slots.size() == slots.capacity()) {
            slots.reserve(std::max(k_leastRoom, 2 * slots.size()));
        }
        const auto node = list().insert(position, value);
        slots.push_back(std::addressof(*node));
        return node;
    }

    List& list() noexcept { return m_contents->m_list; }
    const List& list() const noexcept { return m_contents->m_list; }

    // Behind a pointer, so that the list's end stays where it is when the whole moves.
    Allocated<Contents, Alloc> m_contents;
};

}  // namespace zo

#endif
