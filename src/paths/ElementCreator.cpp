#include <zo/Tessera/ElementCreator.h>

#include "paths/segments.h"

namespace zo::Tessera {

namespace {

[[noreturn]] void refuseType() {
    // Callers match on this text, spelling included.
    throw Exception("Ivalid type!");
}

}  // namespace

ElementCreator::ElementCreator(const Path& path, Element& root, const Element& value,
                               bool throwOnMissing)
    : m_current(&root), m_value(value.clone()), m_throw(throwOnMissing), m_path(path) {}

ElementCreator::~ElementCreator() = default;

bool ElementCreator::cbObjectProperty(const std::string& key) {
    createPending();
    if (m_current->type() != etObject) {
        return m_found = refuseSegment(m_throw, *m_current, m_path, key);
    }
    if (Element* const member = memberOf(*m_current, key)) {
        m_current = member;
    } else {
        m_pendingKey = key;
        m_pendingType = etObject;
        m_pending = true;
    }
    return true;
}

bool ElementCreator::cbArrayItem(unsigned long index) {
    createPending();
    if (Element* const item = itemOf(*m_current, index)) {
        m_current = item;
    } else if (m_current->type() == etArray && index == Path::k_noIndex) {
        m_pendingType = etArray;
        m_pending = true;
    } else {
        return m_found = refuseSegment(m_throw, *m_current, m_path, index);
    }
    return true;
}

void ElementCreator::cbFinish() {
    if (!m_pending) {
        return;
    }
    // The container itself is asked once more: an application may have changed the tree since.
    switch (m_current->type()) {
        case etArray:
            m_current->getArrayValue().push_back(m_value.get());
            break;
        case etObject:
            m_current->getObjectValue().insert(m_pendingKey, m_value.get());
            break;
        default:
            refuseType();
    }
    m_current = m_value.release();
    m_pending = false;
}

bool ElementCreator::pathExists() const {
    return m_found;
}

Element* ElementCreator::currentElement() const {
    return m_current;
}

void ElementCreator::createPending() {
    if (!m_pending) {
        return;
    }
    // Of the kind of what lacks it, whatever the next segment needs: callers rely on it.
    switch (m_pendingType) {
        case etArray:
            m_current = Element::create(etArray, m_current);
            break;
        case etObject:
            m_current = Element::create(etObject, m_current, m_pendingKey);
            break;
        default:
            refuseType();
    }
    m_pending = false;
}

}  // namespace zo::Tessera
