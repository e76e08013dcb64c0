#ifndef ZO_INDEXLIST_H
#define ZO_INDEXLIST_H

#include <algorithm>
#include <cassert>
#include <cstddef>
#include <list>
#include <memory>
#include <vector>

namespace zo {

/// A list whose values are also reached by their place in constant time.
///
/// Invariants:
/// 1. `m_slots` has as many entries as `m_list`, and entry i points at the i-th value.
/// 2. Neither pointer is null, except after a move.
/// 3. A value's address, and an iterator at it, hold until that value is erased, whatever else is
///    appended or erased, and also when the list is moved or swapped; so does `end()`.
///
/// What values point to is not the list's: it never deletes it. Therefore there is no copying: two
/// lists would point to the same things, and nobody could tell which of their users deletes them.
/// A list that was moved from may only be destroyed or assigned to.
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
    IndexList() : m_list(std::make_unique<List>()), m_slots(std::make_unique<Slots>()) {}
    IndexList(const IndexList&) = delete;
    IndexList& operator=(const IndexList&) = delete;
    IndexList(IndexList&&) noexcept = default;
    IndexList& operator=(IndexList&&) noexcept = default;
    ~IndexList() = default;

    iterator begin() noexcept { return m_list->begin(); }
    iterator end() noexcept { return m_list->end(); }
    const_iterator begin() const noexcept { return m_list->cbegin(); }
    const_iterator end() const noexcept { return m_list->cend(); }

    std::size_t size() const noexcept { return m_list->size(); }
    bool empty() const noexcept { return m_list->empty(); }

    /// The value at place `index`, counted from 0, which must be less than `size()`: that is
    /// asserted in debug builds and not checked in others.
    /// @{
    T& operator[](std::size_t index) {
        assert(index < m_slots->size());
        return *(*m_slots)[index];
    }
    const T& operator[](std::size_t index) const {
        assert(index < m_slots->size());
        return *(*m_slots)[index];
    }
    /// @}

    /// Puts a copy of `value` last. Amortised constant. After an exception (out of memory, a copy
    /// that throws) the list is as before.
    void push_back(const T& value) { insert(m_list->end(), value); }

    /// Puts a copy of `value` before `position`, which must be one of this list or its end, and
    /// returns where it stands. Linear in the whole list unless at the end, since all places are
    /// counted anew. After an exception the list is as before.
    iterator insert(iterator position, const T& value) {
        // The node joins the list when nothing can fail any more; joining keeps its address.
        List added(m_list->get_allocator());
        added.push_back(value);
        const auto node = added.begin();
        m_slots->push_back(std::addressof(*node));
        m_list->splice(position, added);
        if (position != m_list->end()) {
            recount();
        }
        return node;
    }

    /// Erases the value at `position`, which must be one of this list, and returns the one that
    /// follows it. All places are counted anew: linear in the whole list, wherever `position` is.
    /// Allocates nothing.
    iterator erase(iterator position) {
        const auto following = m_list->erase(position);
        recount();
        return following;
    }

    /// Moves the value at `position`, which must be one of this list, to the end of `target`. For
    /// taking out many: places are not counted anew, and until `recount` is called the values are
    /// reached by iteration only. Allocates nothing.
    void extract(iterator position, std::list<T, Alloc>& target) noexcept {
        target.splice(target.end(), *m_list, position);
    }

    /// Counts the places anew after values were extracted. Linear; allocates nothing.
    void recount() noexcept {
        m_slots->resize(m_list->size());
        std::transform(m_list->begin(), m_list->end(), m_slots->begin(),
                       [](T& value) { return std::addressof(value); });
    }

    /// Takes the first value off and returns it; there must be one. For taking a whole list apart
    /// in order: all places are given up, and until the list is empty its values are reached by
    /// iteration only. Linear the first time.
    T takeFirst() noexcept {
        m_slots->clear();
        const T value = m_list->front();
        m_list->pop_front();
        return value;
    }

    /// Erases all values. The room for their places is kept for those to come. Linear.
    void clear() noexcept {
        m_slots->clear();
        m_list->clear();
    }

    void swap(IndexList& other) noexcept {
        m_list.swap(other.m_list);
        m_slots.swap(other.m_slots);
    }

private:
    // Behind pointers, so that the list's end stays where it is when the whole moves.
    std::unique_ptr<List> m_list;
    std::unique_ptr<Slots> m_slots;
};

}  // namespace zo

#endif
