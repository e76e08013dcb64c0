#ifndef ZO_TESSERA_SRC_CONTAINERS_CHILDREN_H
#define ZO_TESSERA_SRC_CONTAINERS_CHILDREN_H

#include <string>

#include <zo/Tessera/Array.h>
#include <zo/Tessera/Object.h>

namespace zo::Tessera {

/// Steps through the children of an array or of an object, in order, in one way for both.
/// The loops that take the place of recursion keep one of these for each open container.
class Children {
public:
    explicit Children(const Array& array)
        : m_keyed(false), m_item(array.begin()), m_itemEnd(array.end()) {}

    explicit Children(const Object& object)
        : m_keyed(true), m_member(object.begin()), m_memberEnd(object.end()) {}

    bool atEnd() const { return m_keyed ? m_member == m_memberEnd : m_item == m_itemEnd; }
    bool keyed() const { return m_keyed; }
    /// Only in an object.
    const std::string& key() const { return m_member->first; }
    const Element& element() const { return *(m_keyed ? m_member->second : *m_item); }

    void advance() {
        if (m_keyed) {
            ++m_member;
        } else {
            ++m_item;
        }
    }

private:
    bool m_keyed;
    Array::const_iterator m_item;
    Array::const_iterator m_itemEnd;
    Object::const_iterator m_member;
    Object::const_iterator m_memberEnd;
};

}  // namespace zo::Tessera

#endif
